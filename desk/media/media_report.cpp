#include "desk/media/media_report.h"

#include <algorithm>
#include <cstring>

#include "app/messages.h"
#include "catalogue/product_data_file.h"
#include "catalogue/product_data_loading.h"
#include "catalogue/product_traits.h"
#include "desk/computer/dry_run.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/manifest.h"
#include "desk/media/media_folder.h"
#include "desk/media/product_facts.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

/// Of one installer and its media.
class Examination {
  public:
    Examination(const fs::path& installer, const fs::path& folder, const MediaChoices& choices)
        : installer(installer), folder(folder), choices(choices), report(emptyReport(folder)) {}

    Json examine(const std::vector<MachineDescription>& machines) {
        const std::string image = readInstaller(installer);
        std::error_code failure;
        if (!fs::is_directory(folder, failure)) {
            refuse(folder, "is not a folder.");
        }
        media.identity = readStamp(image);
        if (media.identity.code.empty()) {
            problem(
                "The executable is not a stamped installer; \"installer-tool stamp\" makes one.");
        } else {
            examineExecutable(image);
            examineStamped(machines);
        }
        report["complete"] = faultsOf(report).empty();
        return report;
    }

  private:
    void problem(const std::string& what) { report["problems"].push_back(what); }
    /// Nothing where `what` is empty.
    void problem(const std::string& of, const std::string& what) {
        if (!what.empty()) {
            problem(of + ": " + what);
        }
    }
    void warning(const std::string& what) { report["warnings"].push_back(what); }

    void examineExecutable(const std::string& image) {
        const Executable executable(image);
        problem("The installer", executable.damage());
        if (executable.headerDamage().empty()) {
            report["signature"] = signatureOf(installer, executable, choices.signature);
        }
        problem("The installer", signatureProblem(report["signature"], choices.signature));
    }

    void examineStamped(const std::vector<MachineDescription>& machines) {
        const auto& [code, name] = media.identity;
        const fs::path ownFolder = fs::absolute(installer).parent_path();
        media.sourceDirectory = fromUtf8(choices.directory);
        for (const ProductDataName& data : productDataNames) {
            if (const auto path = findInFolder(ownFolder, data.file)) {
                media.productData.emplace_back(data.file, readWholeFile(*path));
            }
        }
        examineName();
        report["productCode"] = toUtf8(code);
        report["productName"] = toUtf8(name);
        report["buildOrigin"] = readBuild();
        const std::string build = toUtf8(catalogue.buildVersion());
        report["build"] = build;
        report["title"] = toUtf8(installTitle(name, catalogue.buildVersion()));
        examineProductData(ownFolder, build);
        if (!choices.requiredBuild.empty() && build != choices.requiredBuild) {
            problem("The build is " + build + ", not " + choices.requiredBuild);
        }
        DriverPackageTable drivers;
        buildDriverPackageTable(drivers);
        const InstallPlan plan = planInstallation(code, catalogue, drivers);
        report["path"] = routeInWords(plan);
        if (plan.route == Route::EndSilently) {
            warning(
                "A run ends without a word and installs nothing. That is how this product is made, "
                "but it is seldom what a customer should get.");
        }
        std::ranges::transform(neededFiles(plan), std::back_inserter(media.files),
                               &NeededFile::name);
        tellLaunches(plan);
        examineFiles(plan);
        examineManifest();
        for (const MachineDescription& machine : machines) {
            report["runs"].push_back(dryRun(media, machine));
        }
    }

    void examineName() {
        const auto& [code, name] = media.identity;
        std::string known;
        if (!traitsOf(code).freeViewer && !catalogue.productName(code, known)) {
            problem(toUtf8(catalogue.lastError));
        } else if (!known.empty() && known != name) {
            warning("The title says " + inQuotes(toUtf8(name)) + ", the program folder " +
                    inQuotes(known) + ": the stamped name is not the product's.");
        }
    }

    /// Reads the product data as a run does; says where the build comes from.
    std::string readBuild() {
        if (media.productData.empty()) {
            return "compiled in, since there is no product-data file beside the installer";
        }
        const std::string& file = media.productData.front().first;
        const bool read = loadProductValues(catalogue, *machineWith(media, {}));
        const std::string_view value = catalogue.ProductDataValues["Version Number"];
        if (catalogue.productDataText.empty()) {
            problem(file + ": " + toUtf8(catalogue.lastError));
            return "compiled in, since " + file + " cannot be used";
        }
        if (!read || value.empty()) {
            problem(file + ": no \"Version Number\" in the section \"[Version Number]\"");
            return "compiled in, since " + file + " gives none";
        }
        problem(file, value.find('\n') != std::string_view::npos
                          ? "lines do not end in CR LF; the build swallows what follows"
                          : buildFault(std::string(value)));
        return file;
    }

    /// What to say about product data that the run does not read, or that are not there at all.
    void examineProductData(const fs::path& ownFolder, const std::string& build) {
        std::error_code failure;
        if (fs::equivalent(ownFolder, folder, failure)) {
            if (media.productData.empty()) {
                warning("There is no product-data file: every build is handed over as " + build +
                        ".");
            }
            return;
        }
        for (const ProductDataName& data : productDataNames) {
            if (media.productData.empty() && findInFolder(folder, data.file)) {
                problem(std::string(data.file) +
                        " on the media is not read: a run reads it in the installer's own folder, "
                        "where there is none; put the installer on the media");
                return;
            }
        }
        warning(
            "The installer lies in another folder than the media. A run reads the product data "
            "beside the installer, so check the copy that is delivered.");
    }

    /// Leaves in `media` those that are there.
    void examineFiles(const InstallPlan& plan) {
        for (const NeededFile& file : neededFiles(plan)) {
            const std::optional<fs::path> path = findInFolder(folder, file.name);
            report["files"].push_back({{"name", file.name},
                                       {"purpose", file.purpose},
                                       {"present", path.has_value()},
                                       {"damage", path ? damageOf(*path) : ""}});
            if (!path) {
                std::erase(media.files, file.name);
            }
            const std::string delivered = withTrailingBackslash(media.sourceDirectory) + file.name;
            if (delivered.size() >= maximumPathLength) {
                problem("The path of " + inQuotes(file.name) +
                        " has more than 259 characters, which a run does not find; deliver the "
                        "media in a folder of a shorter name.");
            }
        }
    }

    void examineManifest() {
        if (!fs::exists(folder / manifestFile)) {
            warning(std::string("There is no ") + manifestFile +
                    ", which tells whether files are those that were laid out.");
            return;
        }
        for (const FileProblem& found : compareWithList(folder, manifestFile)) {
            problem(found.asLine());
        }
    }

    /// What each way of the run hands over on a machine without other versions, where all files
    /// are: before examineFiles has taken out what is missing.
    void tellLaunches(const InstallPlan& plan) {
        const Json on32 = dryRun(media, emptyMachine({"", 32}))["endings"];
        const Json on64 = dryRun(media, emptyMachine({"", 64}))["endings"];
        for (std::size_t index = 0; index < on32.size(); ++index) {
            if (!on32[index].contains("setup")) {
                continue;  // a message in its place
            }
            std::string choice = on32[index]["choice"];
            if (choice.empty()) {
                choice = plan.route == Route::Direct ? "without a question" : TEXT_LIVE_PRODUCT;
            }
            const Json &setup32 = on32[index]["setup"], &setup64 = on64[index]["setup"];
            const auto add = [&](const char* windows, const Json& setup) {
                report["handOvers"].push_back(
                    {{"choice", choice}, {"windows", windows}, {"parameters", setup["arguments"]}});
            };
            add(setup32 == setup64 ? "any Windows" : "32-bit Windows", setup32);
            if (setup32 != setup64) {
                add("64-bit Windows", setup64);
            }
        }
    }

    const fs::path& installer;
    const fs::path& folder;
    const MediaChoices& choices;
    Json report;
    DryRunMedia media;  ///< what was stamped, and what lies there
    CProductData catalogue;
};

}  // namespace

Json examineMedia(const fs::path& installer, const fs::path& folder, const MediaChoices& choices,
                  const std::vector<MachineDescription>& machines) {
    return Examination(installer, folder, choices).examine(machines);
}

Json emptyReport(const std::string& folder) {
    const Json none = Json::array();
    return {
        {"folder", folder}, {"productCode", ""}, {"productName", ""}, {"title", ""},
        {"path", ""},       {"build", ""},       {"buildOrigin", ""}, {"signature", noSignature},
        {"files", none},    {"warnings", none},  {"problems", none},  {"handOvers", none},
        {"runs", none}};
}

std::string buildFault(const std::string& build) {
    const auto breaks = std::ranges::find_if(build, [](unsigned char character) {
        return character < ' ' || std::strchr("`\\/:*?\"<>|", character) != nullptr;
    });
    return breaks == build.end()
               ? ""
               : "The build " + inQuotes(toUtf8(build)) + " holds " +
                     (*breaks >= 0 && *breaks < ' ' ? "a control character" : inQuotes({*breaks})) +
                     ", which would break what \"Setup.Exe\" is handed; give a build such as "
                     "16.4.12000.0.";
}

std::vector<std::string> faultsOf(const Json& report) {
    std::vector<std::string> faults;
    for (const Json& file : report["files"]) {
        if (file["present"] == false || !file.value("damage", "").empty()) {
            faults.push_back(file.value("name", "") + ": " +
                             (file["present"] == true ? file.value("damage", "") : "missing"));
        }
    }
    faults.insert(faults.end(), report["problems"].begin(), report["problems"].end());
    return faults;
}

std::string mediaInWords(const Json& report) {
    const auto text = [](const Json& object, const char* name) { return object.value(name, ""); };
    std::string words;
    for (const Json& run : report["runs"]) {
        words += runInWords(run) + '\n';
    }
    if (const std::string code = text(report, "productCode"); !code.empty()) {
        words += "product   " + code + "  " + text(report, "productName") + "\ntitle     " +
                 text(report, "title") + "\npath      " + text(report, "path") + "\nbuild     " +
                 text(report, "build") + "  (" + text(report, "buildOrigin") + ")\ninstaller " +
                 signatureInWords(report["signature"]) + '\n';
    }
    for (const Json& file : report["files"]) {
        const std::string damage = text(file, "damage");
        words += (file["present"] == false ? "MISSING   "
                  : damage.empty()         ? "found     "
                                           : "DAMAGED   ") +
                 text(file, "name") + "  (" + (damage.empty() ? text(file, "purpose") : damage) +
                 ")\n";
    }
    words += inLines("WARNING   ", report["warnings"]) + inLines("PROBLEM   ", report["problems"]);
    for (const Json& handOver : report["handOvers"]) {
        words += '\n' + text(handOver, "choice") + ", " + text(handOver, "windows") + "\n    " +
                 text(handOver, "parameters") + '\n';
    }
    return words + (report["complete"] == true ? "\ncomplete\n" : "\nNOT COMPLETE\n");
}
