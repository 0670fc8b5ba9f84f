// Makes a product's installer: stamp INSTALLER.exe CODE "NAME" OUT.exe
#include <iostream>

#include "tools/stamp_image.h"
#include "tools/whole_file.h"

namespace {

int refuse(const std::string& error) {
    std::cerr << "stamp: " << error << '\n';
    return 1;
}

}  // namespace

int main(int count, char** arguments) {
    const CProductData catalogue;
    if (count == 2 && std::string_view(arguments[1]) == "--list") {
        for (const auto& [code, name] : catalogue.ProductNames) {
            std::cout << code << ' ' << name << '\n';
        }
        return 0;
    }
    if (count != 5) {
        std::cerr << "usage: stamp INSTALLER.exe CODE \"NAME\" OUT.exe\n"
                     "       stamp --list\n";
        return 2;
    }
    const std::string input = arguments[1];
    const std::string output = arguments[4];
    std::string code, note, error;
    if (!chooseStampedCode(catalogue, arguments[2], code, note, error)) {
        return refuse(error);
    }
    if (isSameFile(input, output)) {
        return refuse("The installer is not overwritten; give another file.");
    }
    std::optional<std::string> image = readWholeFile(input);
    if (!image) {
        return refuse("Cannot read \"" + input + "\".");
    }
    if (!stampImage(*image, code, arguments[3], error) || !writeWholeFile(output, *image, error)) {
        return refuse(error);
    }
    if (!note.empty()) {
        std::cerr << "stamp: note: " << note << '\n';
    }
    return 0;
}
