#include "desk/media/release_folder.h"

#include <algorithm>
#include <array>

#include "catalogue/build_number.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/product_facts.h"
#include "desk/western_text.h"

namespace {

constexpr const char* maker = "Halvick Test Equipment";

/// third_party_notices.txt, which CMake puts between quotes.
constexpr std::string_view notices =
#include "third_party_notices.inc"
    ;

/// What the compiler links into each installer; the executables do not tell its version.
constexpr struct {
    const char *reference, *name, *licence, *copyright;
} linkedLibraries[] = {
    {"gcc-runtime", "libgcc and libstdc++", "GPL-3.0-or-later WITH GCC-exception-3.1",
     "Free Software Foundation, Inc."},
    {"mingw-w64-runtime", "mingw-w64 runtime", "ZPL-2.1 AND LicenseRef-public-domain",
     "2009-2016 the mingw-w64 project"},
};
// The bill of materials says nothing that the notices do not.
static_assert(std::ranges::all_of(linkedLibraries, [](const auto& library) {
    return std::ranges::all_of(
        std::array{library.name, library.licence, library.copyright},
        [](const char* said) { return notices.find(said) != std::string_view::npos; });
}));

Json application(const Json& reference, const std::string& name, const Json& version) {
    return {{"type", "application"},
            {"bom-ref", reference},
            {"supplier", {{"name", maker}}},
            {"name", name},
            {"version", version}};
}

/// The component of each file in the bill of materials.
Json billedComponents(const fs::path& folder, std::vector<FileProblem>& problems) {
    Json components = Json::object();
    const fs::path file = folder / billOfMaterialsFile;
    try {
        const Json bill = readJson(file);
        for (const Json& component : bill.at("components")) {
            components[component.at("bom-ref").get<std::string>()] = component;
        }
    } catch (const Json::exception&) {
        problems.push_back(
            {billOfMaterialsFile, inQuotes(file) + " is no bill of materials of ours."});
    } catch (const Refusal& reason) {
        problems.push_back({billOfMaterialsFile, reason.what()});
    }
    return components;
}

template <class Add>
void examineStamp(const std::string& image, const ProductFacts& facts, Add add) {
    const auto [code, name] = readStamp(image);
    if (code.empty()) {
        add("is not stamped; make it with \"installer-tool stamp\"");
        return;
    }
    if (code != facts.code) {
        add("is stamped " + inQuotes(toUtf8(code)) + ", not " + inQuotes(facts.code));
    }
    if (name != facts.name) {
        add("is stamped with the name " + inQuotes(toUtf8(name)) + ", not " + inQuotes(facts.name));
    }
    if (const std::string shown = versionText(image, "ProductName").value_or(""); shown != name) {
        add("shows " + inQuotes(shown) +
            " as its product in the version resource, not its stamped name");
    }
}

void examineInstaller(const fs::path& folder, const ProductFacts& facts, const Json& billed,
                      const SignatureChoices& choices, ReleaseReport& report,
                      std::set<std::string>& builds) {
    const std::string path = releasedPath(facts.code);
    const auto add = [&](const std::string& what) {
        if (!what.empty()) {
            report.problems.push_back({path, what});
        }
    };
    const std::string image = readInstaller(folder / path);
    ++report.installers;
    const Executable executable(image);
    add(executable.damage());
    if (!executable.headerDamage().empty()) {
        return;
    }
    examineStamp(image, facts, add);
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
    add(signatureProblem(signature, choices));
    report.signers.insert(signatureInWords(signature));
}

}  // namespace

std::string releasedPath(const std::string& code) {
    return folderOf(code) + '/' + installerFile;
}

ReleaseReport examineRelease(const fs::path& folder, const std::string& build,
                             const SignatureChoices& choices) {
    if (!fs::is_directory(folder)) {
        refuse(folder, "is no folder that can be read; name a release.");
    }
    ReleaseReport report;
    std::vector<FileProblem>& problems = report.problems;
    problems = compareWithList(folder, checksumsFile);
    const Json billed = billedComponents(folder, problems);
    std::set<std::string> builds, known = {checksumsFile, billOfMaterialsFile, noticesFile};
    for (const ProductFacts& facts : productFacts()) {
        const std::string path = releasedPath(facts.code);
        known.insert(path);
        try {
            examineInstaller(folder, facts, billed, choices, report, builds);
        } catch (const Refusal& reason) {
            if (std::ranges::count(problems, path, &FileProblem::file) == 0) {
                problems.push_back({path, reason.what()});
            }
        }
    }
    std::vector<FileProblem> links;  // told already
    for (const std::string& file : filesBelow(folder, links)) {
        if (!known.contains(file)) {
            problems.push_back({file, "does not belong to a release"});
        }
    }
    if (builds.size() > 1) {
        problems.push_back({"", "the installers show different builds: " + joined(builds)});
    }
    report.build = builds.size() == 1 ? *builds.begin() : "";
    if (!build.empty() && report.build != build) {
        problems.push_back({"", "the installers do not all show the build " + build});
    }
    if (report.signatures != 0 && report.signatures != report.installers) {
        problems.push_back({"", "some installers are signed and some are not: " +
                                    std::to_string(report.signatures) + " of " +
                                    std::to_string(report.installers)});
    }
    return report;
}

Json billOfMaterials(const Json& files) {
    Json components = Json::array(), dependencies = Json::array(), libraries = Json::array();
    for (const auto& [reference, name, licence, copyright] : linkedLibraries) {
        libraries.push_back(reference);
        components.push_back({{"type", "library"},
                              {"bom-ref", reference},
                              {"name", name},
                              {"licenses", Json::array({{{"expression", licence}}})},
                              {"copyright", copyright}});
    }
    for (const Json& file : files) {
        const Json& path = file["path"];
        Json component =
            application(path, file.value("name", "") + " Installation", file["version"]);
        component["hashes"] = Json::array({{{"alg", "SHA-256"}, {"content", file["sha256"]}}});
        component["properties"] =
            Json::array({{{"name", "installer:path"}, {"value", path}},
                         {{"name", "installer:productCode"}, {"value", file["code"]}}});
        components.push_back(std::move(component));
        dependencies.push_back({{"ref", path}, {"dependsOn", libraries}});
    }
    const Json tool = application("tool", "installer-tool", INSTALLER_BUILD_TEXT);
    return {
        {"bomFormat", "CycloneDX"},
        {"specVersion", "1.5"},
        {"version", 1},
        {"metadata",
         {{"tools", {{"components", Json::array({tool})}}},
          {"component", application("release", "Tavlink installers", files.front()["version"])}}},
        {"components", std::move(components)},
        {"dependencies", std::move(dependencies)}};
}

std::string thirdPartyNotices() {
    return std::string(notices);
}
