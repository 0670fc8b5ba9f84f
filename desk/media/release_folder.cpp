#include "desk/media/release_folder.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "desk/executables/stamp_image.h"
#include "desk/executables/version_stamp.h"
#include "desk/json.h"
#include "desk/media/product_facts.h"
#include "desk/refusal.h"
#include "desk/table.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "platform/ansi_text.h"

namespace fs = std::filesystem;

namespace {

/// The component of each file in the bill of materials.
Json billedComponents(const fs::path& folder) {
    Json components = Json::object();
    const std::string file = (folder / billOfMaterialsFile).string();
    try {
        const Json bill = readJson(file);
        for (const Json& component : bill.at("components")) {
            components[component.at("bom-ref").get<std::string>()] = component;
        }
    } catch (const Json::exception&) {
        throw Refusal("\"" + file + "\" is no bill of materials of ours.");
    }
    return components;
}

void examineStamp(const std::string& path, const std::string& image, const ProductFacts& facts,
                  std::vector<FileProblem>& problems) {
    std::string code, name;
    if (!readStamp(image, code, name) || code.empty()) {
        problems.push_back({path, "is not stamped; make it with \"installer-tool stamp\""});
        return;
    }
    if (code != facts.code) {
        problems.push_back(
            {path, "is stamped \"" + toUtf8(code) + "\", not \"" + facts.code + "\""});
    }
    if (name != facts.name) {
        problems.push_back({path, "is stamped with the name \"" + toUtf8(name) + "\", not \"" +
                                      facts.name + "\""});
    }
    const std::string shown = versionText(image, "ProductName").value_or("");
    if (shown != name) {
        problems.push_back({path, "shows \"" + shown +
                                      "\" as its product in the version resource, not its stamped "
                                      "name"});
    }
}

void examineInstaller(const fs::path& folder, const ProductFacts& facts, const Json& billed,
                      const SignatureChoices& choices, ReleaseReport& report,
                      std::set<std::string>& builds) {
    const std::string path = releasedPath(facts.code);
    const auto add = [&](const std::string& what) { report.problems.push_back({path, what}); };
    const std::string image = readInstaller((folder / path).string());
    ++report.installers;
    const Executable executable(image);
    if (const std::string damage = executable.damage(); !damage.empty()) {
        add(damage);
    }
    if (!executable.headerDamage().empty()) {
        return;
    }
    examineStamp(path, image, facts, report.problems);
    const std::string build = versionText(image, "ProductVersion").value_or("none");
    builds.insert(build);
    const Json component = billed.value(path, Json::object());
    const std::string digest = component.value(Json::json_pointer("/hashes/0/content"), "");
    if (digest != sha256(image) || component.value("version", "") != build) {
        add(std::string("differs from the bill of materials, ") + billOfMaterialsFile);
    }
    for (const std::string& missing : executable.missingProtections()) {
        add(missing);
    }
    const Json signature = signatureOf(folder / path, executable, choices);
    report.signatures += executable.isSigned() ? 1 : 0;
    if (const std::string problem = signatureProblem(signature, choices); !problem.empty()) {
        add(problem);
    }
    report.signers.insert(signatureInWords(signature));
}

}  // namespace

std::string folderOf(const std::string& code) {
    return lowerCase(code);
}

std::string releasedPath(const std::string& code) {
    return folderOf(code) + '/' + installerFile;
}

ReleaseReport examineRelease(const fs::path& folder, const std::string& build,
                             const SignatureChoices& choices) {
    if (!fs::is_directory(folder)) {
        throw Refusal("\"" + folder.string() + "\" is no folder that can be read; name a release.");
    }
    ReleaseReport report;
    report.problems = compareWithList(folder, checksumsFile);
    Json billed = Json::object();
    std::vector<std::string> known = {checksumsFile, billOfMaterialsFile, noticesFile};
    std::set<std::string> builds;
    try {
        billed = billedComponents(folder);
    } catch (const Refusal& reason) {
        report.problems.push_back({billOfMaterialsFile, reason.what()});
    }
    for (const ProductFacts& facts : allProductFacts()) {
        known.push_back(releasedPath(facts.code));
        try {
            examineInstaller(folder, facts, billed, choices, report, builds);
        } catch (const Refusal& reason) {
            if (std::none_of(report.problems.begin(), report.problems.end(),
                             [&known](const FileProblem& problem) {
                                 return problem.file == known.back();
                             })) {
                report.problems.push_back({known.back(), reason.what()});
            }
        }
    }
    std::vector<FileProblem> links;  // told already
    for (const std::string& file : filesBelow(folder, links)) {
        if (std::find(known.begin(), known.end(), file) == known.end()) {
            report.problems.push_back({file, "does not belong to a release"});
        }
    }
    if (builds.size() > 1) {
        report.problems.push_back({"", "the installers show different builds: " + joined(builds)});
    }
    report.build = builds.size() == 1 ? *builds.begin() : "";
    if (!build.empty() && report.build != build) {
        report.problems.push_back({"", "the installers do not all show the build " + build});
    }
    if (report.signatures != 0 && report.signatures != report.installers) {
        report.problems.push_back({"", "some installers are signed and some are not: " +
                                           std::to_string(report.signatures) + " of " +
                                           std::to_string(report.installers)});
    }
    return report;
}
