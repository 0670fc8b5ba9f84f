#include "desk/media/media_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "app/direct_install.h"
#include "app/messages.h"
#include "app/setup_parameters.h"
#include "catalogue/product_data_file.h"
#include "catalogue/product_data_loading.h"
#include "catalogue/product_traits.h"
#include "desk/computer/dry_run.h"
#include "desk/executables/executable.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/manifest.h"
#include "desk/media/media_folder.h"
#include "desk/media/product_data.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "drivers/driver_installation.h"
#include "drivers/driver_package_table.h"
#include "ui/resource.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestPath = 259;  // MAX_PATH without the terminator

/// Reads the product data as a run does; says where the build comes from.
std::string readBuild(const DryRunMedia& media, CProductData& catalogue, Json& problems) {
    if (media.productData.empty()) {
        return "compiled in, since there is no product-data file beside the installer";
    }
    const std::string& file = media.productData.front().first;
    const bool read = loadProductValues(catalogue, *machineWith(media, {}));
    const auto value = catalogue.ProductDataValues.find("Version Number");
    if (catalogue.productDataText.empty()) {
        problems.push_back(file + ": " + toUtf8(catalogue.lastError));
        return "compiled in, since " + file + " cannot be used";
    }
    if (!read || value == catalogue.ProductDataValues.end() || value->second.empty()) {
        problems.push_back(file + ": no \"Version Number\" in the section \"[Version Number]\"");
        return "compiled in, since " + file + " gives none";
    }
    if (value->second.find('\n') != std::string_view::npos) {
        problems.push_back(file + ": lines do not end in CR LF; the build swallows what follows");
    } else if (const std::string fault = buildFault(value->second); !fault.empty()) {
        problems.push_back(file + ": " + fault);
    }
    return file;
}

/// What to say about product data that the run does not read, or that are not there at all.
void examineProductData(const DryRunMedia& media, const fs::path& folder, bool installerIsOnMedia,
                        Json& report) {
    if (installerIsOnMedia) {
        if (media.productData.empty()) {
            report["warnings"].push_back(
                "There is no product-data file: every build is handed over as " +
                report.value("build", "") + ".");
        }
        return;
    }
    const auto* const onMedia = std::find_if(
        std::begin(productDataNames), std::end(productDataNames),
        [&folder](const ProductDataName& name) { return findInFolder(folder, name.file); });
    if (media.productData.empty() && onMedia != std::end(productDataNames)) {
        report["problems"].push_back(
            std::string(onMedia->file) +
            " on the media is not read: a run reads it in the installer's own folder, where there "
            "is none; put the installer on the media");
        return;
    }
    report["warnings"].push_back(
        "The installer lies in another folder than the media. A run reads the product data beside "
        "the installer, so check the copy that is delivered.");
}

/// The files of the media that the run needs; those that are there go to `media`, too.
void examineFiles(const InstallPlan& plan, const fs::path& folder, DryRunMedia& media,
                  Json& report) {
    for (const NeededFile& file : neededFiles(plan)) {
        const std::optional<fs::path> path = findInFolder(folder, file.name);
        report["files"].push_back({{"name", file.name},
                                   {"purpose", file.purpose},
                                   {"present", path.has_value()},
                                   {"damage", path ? damageOf(*path) : ""}});
        if (path) {
            media.files.push_back(file.name);
        }
        if (withTrailingBackslash(media.sourceDirectory).size() + file.name.size() > longestPath) {
            report["problems"].push_back("The path of \"" + file.name +
                                         "\" has more than 259 characters, which a run does not "
                                         "find; deliver the media in a folder of a shorter name.");
        }
    }
    if (!fs::exists(folder / manifestFile)) {
        report["warnings"].push_back(std::string("There is no ") + manifestFile +
                                     ", which tells whether files are those that were laid out.");
        return;
    }
    for (const FileProblem& problem : compareWithList(folder, manifestFile)) {
        report["problems"].push_back(asLine(problem));
    }
}

/// What each way of the run hands over on a machine without other versions, where all files are.
void tellHandOvers(const InstallPlan& plan, DryRunMedia media, Json& report) {
    media.files.clear();
    for (const NeededFile& file : neededFiles(plan)) {
        media.files.push_back(file.name);
    }
    const auto endingsOn = [&media](int bits) {
        return dryRun(media, emptyMachine({"", bits}))["endings"];
    };
    const Json on32 = endingsOn(32), on64 = endingsOn(64);
    for (std::size_t index = 0; index < on32.size(); ++index) {
        if (!on32[index].contains("setup")) {
            continue;  // a message in its place
        }
        std::string choice = on32[index]["choice"];
        if (choice.empty()) {
            choice = plan.route == Route::Direct ? "without a question" : TEXT_LIVE_PRODUCT;
        }
        const auto add = [&](const char* windows, const Json& ending) {
            report["handOvers"].push_back({{"choice", choice},
                                           {"windows", windows},
                                           {"parameters", ending["setup"]["arguments"]}});
        };
        const bool isSame = on32[index]["setup"] == on64[index]["setup"];
        add(isSame ? "any Windows" : "32-bit Windows", on32[index]);
        if (!isSame) {
            add("64-bit Windows", on64[index]);
        }
    }
}

void examineName(const std::string& code, const std::string& name, CProductData& catalogue,
                 Json& report) {
    std::string known;
    if (!traitsOf(code).freeViewer && !catalogue.productName(code, known)) {
        report["problems"].push_back(toUtf8(catalogue.lastError));
    } else if (!known.empty() && known != name) {
        report["warnings"].push_back("The title says \"" + toUtf8(name) +
                                     "\", the program folder \"" + known +
                                     "\": the stamped name is not the product's.");
    }
}

void examineExecutable(const fs::path& installer, const std::string& image,
                       const SignatureChoices& choices, Json& report) {
    const Executable executable(image);
    if (const std::string damage = executable.damage(); !damage.empty()) {
        report["problems"].push_back("The installer: " + damage);
    }
    if (executable.headerDamage().empty()) {
        report["signature"] = signatureOf(installer, executable, choices);
    }
    if (const std::string problem = signatureProblem(report["signature"], choices);
        !problem.empty()) {
        report["problems"].push_back("The installer: " + problem);
    }
}

/// What lies beside the installer and was stamped into it.
DryRunMedia mediaBeside(const fs::path& installer, const std::string& code, const std::string& name,
                        const std::string& directory) {
    DryRunMedia media{.identity = {code, name}, .sourceDirectory = fromUtf8(directory)};
    for (const ProductDataName& data : productDataNames) {
        if (const auto path = findInFolder(fs::absolute(installer).parent_path(), data.file)) {
            media.productData.emplace_back(data.file, readWholeFile(path->string()));
        }
    }
    return media;
}

void examineStamped(const fs::path& installer, const fs::path& folder, const MediaChoices& choices,
                    const std::vector<MachineDescription>& machines, DryRunMedia media,
                    Json& report) {
    const std::string &code = media.identity.code, &name = media.identity.name;
    CProductData catalogue;
    examineName(code, name, catalogue, report);
    report["productCode"] = toUtf8(code);
    report["productName"] = toUtf8(name);
    report["buildOrigin"] = readBuild(media, catalogue, report["problems"]);
    report["build"] = toUtf8(catalogue.buildVersion());
    report["title"] = toUtf8(installTitle(name, catalogue.buildVersion()));
    std::error_code failure;
    const fs::path ownFolder = fs::absolute(installer).parent_path();
    examineProductData(media, folder, fs::equivalent(ownFolder, folder, failure), report);
    if (!choices.requiredBuild.empty() && report["build"] != choices.requiredBuild) {
        report["problems"].push_back("The build is " + report.value("build", "") + ", not " +
                                     choices.requiredBuild);
    }
    DriverPackageTable drivers;
    buildDriverPackageTable(drivers);
    const InstallPlan plan = planInstallation(code, catalogue, drivers);
    report["path"] = routeInWords(plan);
    if (plan.route == Route::EndSilently) {
        report["warnings"].push_back(
            "A run ends without a word and installs nothing. That is how this product is made, but "
            "it is seldom what a customer should get.");
    }
    examineFiles(plan, folder, media, report);
    tellHandOvers(plan, media, report);
    for (const MachineDescription& machine : machines) {
        report["runs"].push_back(dryRun(media, machine));
    }
}

}  // namespace

Json examineMedia(const fs::path& installer, const fs::path& folder, const MediaChoices& choices,
                  const std::vector<MachineDescription>& machines) {
    const std::string image = readInstaller(installer.string());
    std::error_code failure;
    if (!fs::is_directory(folder, failure)) {
        throw Refusal("\"" + folder.string() + "\" is not a folder.");
    }
    Json report = emptyReport(folder.string());
    std::string code, name;
    if (!readStamp(image, code, name) || code.empty()) {
        report["problems"].push_back(
            "The executable is not a stamped installer; \"installer-tool stamp\" makes one.");
    } else {
        examineExecutable(installer, image, choices.signature, report);
        examineStamped(installer, folder, choices, machines,
                       mediaBeside(installer, code, name, choices.directory), report);
    }
    concludeReport(report);
    return report;
}

Json emptyReport(const std::string& folder) {
    Json report = {{"folder", folder}};
    for (const char* name :
         {"productCode", "productName", "title", "path", "build", "buildOrigin"}) {
        report[name] = "";
    }
    report["signature"] = noSignature();
    for (const char* name : {"files", "warnings", "problems", "handOvers", "runs"}) {
        report[name] = Json::array();
    }
    return report;
}

void concludeReport(Json& report) {
    report["complete"] = faultsOf(report).empty();
}

std::vector<std::string> faultsOf(const Json& report) {
    std::vector<std::string> faults;
    for (const Json& file : report["files"]) {
        if (file["present"] == false || file["damage"] != "") {
            faults.push_back(file.value("name", "") + ": " +
                             (file["present"] == true ? file.value("damage", "") : "missing"));
        }
    }
    faults.insert(faults.end(), report["problems"].begin(), report["problems"].end());
    return faults;
}

std::vector<NeededFile> neededFiles(const InstallPlan& plan) {
    std::vector<NeededFile> files;
    if (plan.route == Route::EndSilently) {
        return files;
    }
    if (plan.route == Route::Direct) {
        files.push_back({replacementUninstallerFile, "removes older viewers"});
    } else if (plan.driverStep != DriverStep::None) {
        files.push_back({extractionToolFile, "unpacks the driver archives"});
        for (const DriverPackage& package : plan.deviceFamily->packages) {
            files.push_back({package.archive, "drivers; the archive's form is not looked into"});
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
    return plan.offeredTypes != 0
               ? "older versions, then \"Install Product\""
               : "older versions, then drivers, then the live product without a question";
}

std::string mediaInWords(const Json& report) {
    const auto text = [](const Json& object, const char* name) { return object.value(name, ""); };
    std::string words;
    for (const Json& run : report["runs"]) {
        words += runInWords(run) + '\n';
    }
    if (report["productCode"] != "") {
        words += "product   " + text(report, "productCode") + "  " + text(report, "productName") +
                 "\ntitle     " + text(report, "title") + "\npath      " + text(report, "path") +
                 "\nbuild     " + text(report, "build") + "  (" + text(report, "buildOrigin") +
                 ")\ninstaller " + signatureInWords(report["signature"]) + '\n';
    }
    for (const Json& file : report["files"]) {
        const std::string damage = text(file, "damage");
        words += (file["present"] == false ? "MISSING   "
                  : damage.empty()         ? "found     "
                                           : "DAMAGED   ") +
                 text(file, "name") + "  (" + (damage.empty() ? text(file, "purpose") : damage) +
                 ")\n";
    }
    for (const std::string warning : report["warnings"]) {
        words += "WARNING   " + warning + '\n';
    }
    for (const std::string problem : report["problems"]) {
        words += "PROBLEM   " + problem + '\n';
    }
    for (const Json& handOver : report["handOvers"]) {
        words += '\n' + text(handOver, "choice") + ", " + text(handOver, "windows") + "\n    " +
                 text(handOver, "parameters") + '\n';
    }
    return words + (report["complete"] == true ? "\ncomplete\n" : "\nNOT COMPLETE\n");
}
