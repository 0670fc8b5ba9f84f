#include "desk/media/media_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <tuple>
#include <utility>

#include "app/direct_install.h"
#include "app/install_plan.h"
#include "app/messages.h"
#include "app/setup_parameters.h"
#include "catalogue/product_data_file.h"
#include "catalogue/product_data_loading.h"
#include "catalogue/product_traits.h"
#include "desk/computer/dry_run.h"
#include "desk/executables/executable.h"
#include "desk/executables/stamp_image.h"
#include "desk/western_text.h"
#include "drivers/driver_installation.h"
#include "drivers/driver_package_table.h"
#include "ui/dialog_texts.h"

namespace {

/// Reads the product data as a run does; says where the build comes from.
std::string readBuild(const DryRunMedia& media, CProductData& catalogue,
                      std::vector<std::string>& problems) {
    if (media.productData.empty()) {
        return "compiled in, since there is no product-data file beside the installer";
    }
    const std::string& file = media.productData.front().first;
    const bool read = loadProductValues(catalogue, *machineWith(media, {}));
    const auto value = catalogue.ProductDataValues.find("Version Number");
    if (catalogue.productDataText.empty()) {
        problems.push_back(file + ": " + catalogue.lastError);
        return "compiled in, since " + file + " cannot be used";
    }
    if (!read || value == catalogue.ProductDataValues.end() || value->second.empty()) {
        problems.push_back(file + ": no \"Version Number\" in the section \"[Version Number]\"");
        return "compiled in, since " + file + " gives none";
    }
    if (value->second.find('\n') != std::string_view::npos) {
        problems.push_back(file + ": lines do not end in CR LF; the build swallows what follows");
    }
    return file;
}

/// What to say about product data that the run does not read, or that are not there at all.
void examineProductData(const Media& media, MediaReport& report) {
    const bool beside = std::any_of(
        std::begin(productDataNames), std::end(productDataNames),
        [&media](const ProductDataName& name) { return media.besideInstaller(name.file).present; });
    if (media.installerIsOnMedia) {
        if (!beside) {
            report.warnings.push_back(
                "There is no product-data file: every build is handed over as " + report.build +
                ".");
        }
        return;
    }
    const auto* const onMedia = std::find_if(
        std::begin(productDataNames), std::end(productDataNames),
        [&media](const ProductDataName& name) { return media.onMedia(name.file).present; });
    if (!beside && onMedia != std::end(productDataNames)) {
        report.problems.push_back(
            std::string(onMedia->file) +
            " on the media is not read: a run reads it in the installer's own "
            "folder, where there is none; put the installer on the media");
        return;
    }
    report.warnings.push_back(
        "The installer lies in another folder than the media. A run reads the product data beside "
        "the installer, so check the copy that is delivered.");
}

InstallPlan planOf(std::string_view productCode, const CProductData& catalogue,
                   DriverPackageTable& drivers) {
    buildDriverPackageTable(drivers);
    return planInstallation(productCode, catalogue, drivers);
}

/// What each way of the run hands over on a machine without other versions, where all files are.
void tellHandOvers(DryRunMedia media, MediaReport& report) {
    for (const MediaFile& file : report.files) {
        media.files.push_back(file.name);
    }
    const auto endingsOn = [&media](int bits) {
        MachineDescription machine;
        std::string error;
        std::ignore = emptyMachine({"", bits}, machine, error);  // the ordinary release is known
        return dryRun(media, machine).endings;
    };
    const std::vector<DryRunEnding> on32 = endingsOn(32), on64 = endingsOn(64);
    for (std::size_t index = 0; index < on32.size(); ++index) {
        const std::string choice = !on32[index].choice.empty()               ? on32[index].choice
                                   : traitsOf(report.productCode).freeViewer ? "without a question"
                                                                             : TEXT_LIVE_PRODUCT;
        const std::string &parameters32 = on32[index].setup.arguments,
                          &parameters64 = on64[index].setup.arguments;
        if (parameters32 == parameters64) {
            report.handOvers.push_back({choice, "any Windows", parameters32});
        } else {
            report.handOvers.push_back({choice, "32-bit Windows", parameters32});
            report.handOvers.push_back({choice, "64-bit Windows", parameters64});
        }
    }
}

}  // namespace

DryRunMedia dryRunMedia(const Media& media, const MediaReport& report) {
    DryRunMedia result{.identity = {report.productCode, report.productName},
                       .sourceDirectory = media.directory};
    for (const MediaFile& file : report.files) {
        if (file.present) {
            result.files.push_back(file.name);
        }
    }
    for (const ProductDataName& name : productDataNames) {
        NamedFile file = media.besideInstaller(name.file);
        if (file.present) {
            result.productData.emplace_back(name.file, std::move(file.content));
        }
    }
    return result;
}

bool MediaReport::isComplete() const {
    return problems.empty() && std::all_of(files.begin(), files.end(), [](const MediaFile& file) {
               return file.present && file.damage.empty();
           });
}

MediaReport examineMedia(const Media& media, CProductData& catalogue) {
    MediaReport report;
    if (!readStamp(media.installer, report.productCode, report.productName) ||
        report.productCode.empty()) {
        report.problems.push_back(
            "The executable is not a stamped installer; \"installer-tool stamp\" makes one.");
        return report;
    }
    if (const std::string damage = executableDamage(media.installer); !damage.empty()) {
        report.problems.push_back("The installer: " + damage);
    }
    std::string knownName;
    if (!traitsOf(report.productCode).freeViewer &&
        !catalogue.productName(report.productCode, knownName)) {
        report.problems.push_back(catalogue.lastError);
    } else if (!knownName.empty() && knownName != report.productName) {
        report.warnings.push_back("The title says \"" + report.productName +
                                  "\", the program folder \"" + knownName +
                                  "\": the stamped name is not the product's.");
    }
    const DryRunMedia onTheDesk = dryRunMedia(media, report);
    report.buildOrigin = readBuild(onTheDesk, catalogue, report.problems);
    report.build = catalogue.buildVersion();
    report.title = installTitle(report.productName, report.build);
    examineProductData(media, report);
    if (!media.requiredBuild.empty() && report.build != media.requiredBuild) {
        report.problems.push_back("The build is " + report.build + ", not " + media.requiredBuild);
    }

    DriverPackageTable drivers;
    const InstallPlan plan = planOf(report.productCode, catalogue, drivers);
    report.path = routeInWords(plan);
    if (plan.route == Route::EndSilently) {
        report.warnings.push_back(
            "A run ends without a word and installs nothing. That is how this product is made, but "
            "it is seldom what a customer should get.");
    }
    report.files = neededFiles(plan);
    for (MediaFile& file : report.files) {
        const FileState state = media.onMedia(file.name);
        file.present = state.present;
        file.damage = state.damage;
    }
    tellHandOvers(onTheDesk, report);
    return report;
}

std::vector<MediaFile> neededFiles(const InstallPlan& plan) {
    std::vector<MediaFile> files;
    if (plan.route == Route::EndSilently) {
        return files;
    }
    if (plan.route == Route::Direct) {
        files.push_back({replacementUninstallerFile, "removes older viewers"});
    } else if (plan.driverStep != DriverStep::None) {
        files.push_back({extractionToolFile, "unpacks the driver archives"});
        for (const DriverPackage& package : plan.deviceFamily->packages) {
            files.push_back({package.archive, "drivers"});
        }
    }
    files.push_back({setupUtilityFile, "installs the product"});
    return files;
}

std::string routeInWords(const InstallPlan& plan) {
    switch (plan.route) {
        case Route::Direct:
            return "older viewers are stopped and removed, then the viewer is installed";
        case Route::EndSilently:
            return "ends silently, nothing is installed";
        case Route::HardwareFamily:
            return "drivers, then \"Install Product\"";
        case Route::Ordinary:
            break;
    }
    return plan.asksProductType
               ? "older versions, then \"Install Product\""
               : "older versions, then drivers, then the live product without a question";
}

std::string asText(const MediaReport& report) {
    std::string text;
    if (!report.productCode.empty()) {
        text = "product   " + report.productCode + "  " + report.productName + "\ntitle     " +
               report.title + "\npath      " + report.path + "\nbuild     " + report.build + "  (" +
               report.buildOrigin + ")\n";
    }
    for (const MediaFile& file : report.files) {
        const bool whole = file.present && file.damage.empty();
        text += (whole          ? "found     "
                 : file.present ? "DAMAGED   "
                                : "MISSING   ") +
                file.name + "  (" + (file.damage.empty() ? file.purpose : file.damage) + ")\n";
    }
    for (const std::string& warning : report.warnings) {
        text += "WARNING   " + warning + '\n';
    }
    for (const std::string& problem : report.problems) {
        text += "PROBLEM   " + problem + '\n';
    }
    for (const HandOver& handOver : report.handOvers) {
        text += "\n" + handOver.choice + ", " + handOver.windows + "\n    " + handOver.parameters +
                "\n";
    }
    return toUtf8(text) + (report.isComplete() ? "\ncomplete\n" : "\nNOT COMPLETE\n");
}

Json asJson(const MediaReport& report) {
    Json json = {{"productCode", toUtf8(report.productCode)},
                 {"productName", toUtf8(report.productName)},
                 {"title", toUtf8(report.title)},
                 {"path", report.path},
                 {"build", toUtf8(report.build)},
                 {"buildOrigin", report.buildOrigin},
                 {"files", Json::array()},
                 {"warnings", Json::array()},
                 {"problems", Json::array()},
                 {"handOvers", Json::array()},
                 {"complete", report.isComplete()}};
    for (const MediaFile& file : report.files) {
        json["files"].push_back({{"name", file.name},
                                 {"purpose", file.purpose},
                                 {"present", file.present},
                                 {"damage", file.damage}});
    }
    for (const std::string& warning : report.warnings) {
        json["warnings"].push_back(toUtf8(warning));
    }
    for (const std::string& problem : report.problems) {
        json["problems"].push_back(toUtf8(problem));
    }
    for (const HandOver& handOver : report.handOvers) {
        json["handOvers"].push_back({{"choice", handOver.choice},
                                     {"windows", handOver.windows},
                                     {"parameters", toUtf8(handOver.parameters)}});
    }
    return json;
}
