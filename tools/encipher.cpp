// Makes the enciphered product-data file of a product's media: encipher IN.ini OUT.inx
#include <iostream>

#include "catalogue/cipher.h"
#include "tools/whole_file.h"

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: encipher IN.ini OUT.inx\n";
        return 2;
    }
    const std::string input = arguments[1];
    const std::string output = arguments[2];
    std::string error = "The input is not overwritten; give another file.";
    if (!isSameFile(input, output)) {
        const std::optional<std::string> plain = readWholeFile(input);
        error = "Cannot read \"" + input + "\".";
        if (plain && writeWholeFile(output, encipher(*plain), error)) {
            return 0;
        }
    }
    std::cerr << "encipher: " << error << '\n';
    return 1;
}
