#include "desk/executables/stamping.h"

#include <algorithm>

#include "desk/executables/executable.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/product_data.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "platform/ansi_text.h"

ProductStamp chooseStamp(CProductData& catalogue, const std::string& code, const std::string& name,
                         const std::string& build) {
    ProductStamp stamp;
    const StampedCode stamped = chooseStampedCode(catalogue, code);
    stamp.code = stamped.code;
    if (!stamped.note.empty()) {
        stamp.notes.push_back("the code \"" + code + "\" is " + stamped.note);
    }
    const std::string ownName = catalogue.ProductNames.find(lowerCase(stamp.code))->second;
    stamp.name = name.empty() ? ownName : name;
    if (stamp.name != ownName) {
        stamp.notes.push_back("the dialog's title will say \"" + toUtf8(stamp.name) +
                              "\", the program folder \"" + ownName +
                              "\"; leave the name out to have both agree");
    }
    if (stamp.name.size() > longestStampedName) {
        throw Refusal("The name \"" + toUtf8(stamp.name) + "\" does not fit: it has " +
                      std::to_string(stamp.name.size()) + " characters, and there is room for " +
                      std::to_string(longestStampedName) + ". Name the product more shortly.");
    }
    const auto isAscii = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::all_of(stamp.name.begin(), stamp.name.end(), isAscii)) {
        stamp.notes.push_back("the name holds characters that each code page shows in its own way");
    }
    if (!build.empty()) {
        requireBuildNumbers(build);
    }
    stamp.build = build;
    return stamp;
}

std::string readInstaller(const std::string& file) {
    std::string image;
    readInPieces(file, [&](std::string_view piece) {
        image += piece;
        if (image.size() > largestInstaller) {
            throw Refusal("\"" + file + "\" is larger than any installer.");
        }
    });
    return image;
}

std::string stampedInstaller(std::string image, const std::string& file,
                             const ProductStamp& stamp) {
    try {
        if (const std::string damage = executableDamage(image); !damage.empty()) {
            throw Refusal(damage);
        }
        stampImage(image, stamp.code, stamp.name, stamp.build);
    } catch (const Refusal& reason) {
        throw Refusal("\"" + file + "\" cannot be stamped: " + reason.what() + '.');
    }
    return image;
}
