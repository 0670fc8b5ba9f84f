#include "app/setup_parameters.h"

#include "platform/ansi_text.h"
#include "ui/product_type.h"

std::string composeSetupParameters(const std::vector<SetupField>& fields) {
    constexpr std::size_t maximumLength = 2048;
    std::string parameters = "/hide_usd ";
    for (const SetupField& field : fields) {
        parameters.append(field.name).append("=").append(field.value).append("`");
    }
    if (parameters.size() > maximumLength) {
        parameters.resize(maximumLength);
    }
    return parameters;
}

std::string setupBitness(bool hasProcessorSpecificSetups, bool on64BitWindows) {
    return hasProcessorSpecificSetups && on64BitWindows ? "x64" : "x86";
}

std::string productTypeWord(unsigned productType, int productNumber, std::string_view typeSuffix,
                            std::string_view bitness) {
    std::string word = "LIVE";
    bool live = false;
    if ((productType & product_type::demonstration) != 0) {
        word = "DEMO";
    } else if ((productType & product_type::viewer) != 0) {
        word = "VIEW";
    } else {
        live = true;
        if (!typeSuffix.empty()) {
            word.append(" ").append(typeSuffix);
        }
    }
    if (productNumber == 58 || productNumber == 60) {
        word += " x86";
    }
    if (live && (productNumber == 7 || productNumber == 51)) {
        word.append(" ").append(bitness);
    }
    return word;
}

const char* programFolderEdition(unsigned productType) {
    if ((productType & product_type::demonstration) != 0) {
        return "Demo";
    }
    return (productType & product_type::viewer) != 0 ? "Viewer" : "";
}

std::string temporaryFolder(const std::string& sourceDirectory) {
    const std::size_t backslash = findLastBackslash(sourceDirectory);
    return backslash == std::string::npos ? "" : sourceDirectory.substr(0, backslash + 1);
}
