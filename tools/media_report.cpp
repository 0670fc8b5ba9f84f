#include "tools/media_report.h"

#include <cstdio>
#include <tuple>

#include "app/direct_install.h"
#include "app/install_plan.h"
#include "app/message.h"
#include "app/setup_parameters.h"
#include "catalogue/product_code.h"
#include "catalogue/product_data_file.h"
#include "catalogue/product_traits.h"
#include "drivers/driver_installation.h"
#include "drivers/driver_package_table.h"
#include "platform/ansi_text.h"
#include "tools/stamp_image.h"
#include "ui/product_type.h"

namespace {

/// Fills the catalogue's values from the product-data file; says where the build comes from.
std::string readBuild(const FolderReader& besideInstaller, CProductData& catalogue,
                      std::vector<std::string>& problems) {
    for (const ProductDataName& name : productDataNames) {
        std::optional<std::string> content = besideInstaller(name.file);
        if (!content) {
            continue;
        }
        std::string text, error;
        if (!productDataText(std::move(content), name.enciphered, text, error)) {
            problems.push_back(std::string(name.file) + ": " + error);
            return "compiled in, since " + std::string(name.file) + " cannot be used";
        }
        catalogue.keepProductData(name.file, std::move(text));
        std::ignore = catalogue.readBuildSection();  // without a value the compiled-in build stands
        const auto value = catalogue.ProductDataValues.find("Version Number");
        if (value != catalogue.ProductDataValues.end() && !value->second.empty()) {
            if (value->second.find('\n') != std::string_view::npos) {
                problems.push_back(std::string(name.file) +
                                   ": lines do not end in CR LF; the build swallows what follows");
            }
            return name.file;
        }
        problems.push_back(std::string(name.file) +
                           ": no \"Version Number\" in the section \"[Version Number]\"");
        return "compiled in, since " + std::string(name.file) + " gives none";
    }
    return "compiled in, since there is no product-data file beside the installer";
}

void addDriverFiles(const DeviceFamily& family, std::vector<MediaFile>& files) {
    files.push_back({extractionToolFile, "unpacks the driver archives"});
    for (const DriverPackage& package : family.packages) {
        files.push_back({package.archive, "drivers"});
    }
}

std::string handedOver(CProductData& catalogue, const MediaReport& report, unsigned productType,
                       bool on64BitWindows, const std::string& directory) {
    SetupRequest request{report.productCode, numberFromCode(report.productCode),
                         productType,        "",
                         directory,          on64BitWindows};
    if (productType == product_type::demonstration) {
        std::string name;
        std::ignore =
            switchToDemonstration(catalogue, request.productCode, name, request.productNumber);
    }
    const std::string folder =
        uniqueProgramFolder(programFolderName(catalogue, request), request.productNumber,
                            [](const std::string&) { return false; });
    return setupParameters(catalogue, request, folder);
}

std::string inWords(const InstallPlan& plan) {
    switch (plan.road) {
        case Road::Direct:
            return "older viewers are stopped and removed, then the viewer is installed";
        case Road::EndSilently:
            return "ends silently, nothing is installed";
        case Road::HardwareFamily:
            return "drivers, then \"Install Product\"";
        case Road::Ordinary:
            break;
    }
    return plan.asksProductType
               ? "older versions, then \"Install Product\""
               : "older versions, then drivers, then the live product without a question";
}

/// The files and the choices of a plan that asks, or takes the live product.
void followPlan(const InstallPlan& plan, CProductData& catalogue, const std::string& directory,
                MediaReport& report) {
    if (plan.driverStep != DriverStep::None) {
        addDriverFiles(*plan.deviceFamily, report.files);
    }
    struct {
        const char* name;
        unsigned type;
        bool offered;
    } const choices[] = {
        {"Live Product", product_type::live, true},
        {"File Viewer", product_type::viewer, plan.offersFileViewer},
        {"Demonstration", product_type::demonstration, plan.offersDemonstration},
    };
    for (const auto& choice : choices) {
        if (!choice.offered) {
            continue;
        }
        const std::string on32 = handedOver(catalogue, report, choice.type, false, directory);
        const std::string on64 = handedOver(catalogue, report, choice.type, true, directory);
        if (on32 == on64) {
            report.handOvers.push_back({choice.name, "any Windows", on32});
        } else {
            report.handOvers.push_back({choice.name, "32-bit Windows", on32});
            report.handOvers.push_back({choice.name, "64-bit Windows", on64});
        }
    }
}

std::string jsonText(const std::string& text) {
    std::string json = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') {
            json += '\\';
            json += character;
        } else if (static_cast<unsigned char>(character) < 0x20 ||
                   static_cast<unsigned char>(character) >= 0x7F) {
            // Bytes of the code page go as the characters of the same number.
            char escape[7];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned char>(character));
            json += escape;
        } else {
            json += character;
        }
    }
    return json + "\"";
}

}  // namespace

bool MediaReport::isComplete() const {
    bool complete = problems.empty();
    for (const MediaFile& file : files) {
        complete = complete && file.present;
    }
    return complete;
}

MediaReport examineMedia(const std::string& installer, const FolderReader& besideInstaller,
                         const std::function<bool(const std::string& name)>& onMedia,
                         const std::string& directory) {
    MediaReport report;
    CProductData catalogue;
    if (!readStamp(installer, report.productCode, report.productName) ||
        report.productCode.empty()) {
        report.problems.push_back("The executable is not a stamped installer.");
        return report;
    }
    std::string knownName;
    if (!traitsOf(report.productCode).freeViewer &&
        !catalogue.productName(report.productCode, knownName)) {
        report.problems.push_back(catalogue.lastError);
    }
    report.buildOrigin = readBuild(besideInstaller, catalogue, report.problems);
    report.build = catalogue.buildVersion();
    report.title = installTitle(report.productName, report.build);

    const std::string sourceDirectory = withTrailingBackslash(directory);
    DriverPackageTable drivers;
    buildDriverPackageTable(drivers);
    const InstallPlan plan = planInstallation(report.productCode, catalogue, drivers);
    report.path = inWords(plan);
    if (plan.road == Road::Direct) {
        report.files.push_back({replacementUninstallerFile, "removes older viewers"});
        report.handOvers.push_back(
            {"without a question", "any Windows",
             directSetupParameters(catalogue, report.productCode, sourceDirectory)});
    } else if (plan.road != Road::EndSilently) {
        followPlan(plan, catalogue, sourceDirectory, report);
    }
    if (!report.handOvers.empty()) {
        report.files.push_back({setupUtilityFile, "installs the product"});
    }
    for (MediaFile& file : report.files) {
        file.present = onMedia(file.name);
    }
    return report;
}

std::string asText(const MediaReport& report) {
    std::string text;
    if (!report.productCode.empty()) {
        text = "product   " + report.productCode + "  " + report.productName + "\ntitle     " +
               report.title + "\npath      " + report.path + "\nbuild     " + report.build + "  (" +
               report.buildOrigin + ")\n";
    }
    for (const MediaFile& file : report.files) {
        text += std::string(file.present ? "found     " : "MISSING   ") + file.name + "  (" +
                file.purpose + ")\n";
    }
    for (const std::string& problem : report.problems) {
        text += "PROBLEM   " + problem + "\n";
    }
    for (const HandOver& handOver : report.handOvers) {
        text += "\n" + handOver.choice + ", " + handOver.windows + "\n    " + handOver.parameters +
                "\n";
    }
    return text + (report.isComplete() ? "\ncomplete\n" : "\nNOT COMPLETE\n");
}

std::string asJson(const MediaReport& report) {
    std::string json =
        "{\n  \"productCode\": " + jsonText(report.productCode) +
        ",\n  \"productName\": " + jsonText(report.productName) +
        ",\n  \"title\": " + jsonText(report.title) + ",\n  \"path\": " + jsonText(report.path) +
        ",\n  \"build\": " + jsonText(report.build) +
        ",\n  \"buildOrigin\": " + jsonText(report.buildOrigin) + ",\n  \"files\": [";
    const char* separator = "\n";
    for (const MediaFile& file : report.files) {
        json += separator + ("    {\"name\": " + jsonText(file.name)) +
                ", \"purpose\": " + jsonText(file.purpose) +
                ", \"present\": " + (file.present ? "true" : "false") + "}";
        separator = ",\n";
    }
    json += "],\n  \"problems\": [";
    separator = "\n";
    for (const std::string& problem : report.problems) {
        json += separator + ("    " + jsonText(problem));
        separator = ",\n";
    }
    json += "],\n  \"handOvers\": [";
    separator = "\n";
    for (const HandOver& handOver : report.handOvers) {
        json += separator + ("    {\"choice\": " + jsonText(handOver.choice)) +
                ", \"windows\": " + jsonText(handOver.windows) +
                ", \"parameters\": " + jsonText(handOver.parameters) + "}";
        separator = ",\n";
    }
    return json + "],\n  \"complete\": " + (report.isComplete() ? "true" : "false") + "\n}\n";
}
