#include "desk/executables/bill_of_materials.h"

#include <nlohmann/json.hpp>

#include "catalogue/build_number.h"
#include "desk/western_text.h"

namespace {

constexpr const char* maker = "Halvick Test Equipment";

Json thirdParties() {
    return Json::parse(
#include "third_parties.inc"
    );
}

Json application(const std::string& reference, const std::string& name,
                 const std::string& version) {
    return {{"type", "application"},
            {"bom-ref", reference},
            {"supplier", {{"name", maker}}},
            {"name", name},
            {"version", version}};
}

Json property(const char* name, const std::string& value) {
    return {{"name", name}, {"value", value}};
}

}  // namespace

Json billOfMaterials(const std::vector<ReleasedFile>& files) {
    Json components = Json::array(), dependencies = Json::array(), libraries = Json::array();
    // What the compiler links into each; the executables do not tell its version.
    for (const Json& part : thirdParties()) {
        if (part["linkedInto"] == "installer") {
            libraries.push_back(part["reference"]);
            components.push_back({{"type", "library"},
                                  {"bom-ref", part["reference"]},
                                  {"name", part["name"]},
                                  {"licenses", Json::array({{{"expression", part["licence"]}}})},
                                  {"copyright", part["copyright"]}});
        }
    }
    for (const ReleasedFile& file : files) {
        Json component = application(file.path, toUtf8(file.name) + " Installation", file.version);
        component["hashes"] = Json::array({{{"alg", "SHA-256"}, {"content", file.digest}}});
        component["properties"] = Json::array(
            {property("installer:path", file.path), property("installer:productCode", file.code)});
        components.push_back(std::move(component));
        dependencies.push_back({{"ref", file.path}, {"dependsOn", libraries}});
    }
    const std::string version = files.empty() ? INSTALLER_BUILD_TEXT : files.front().version;
    const Json tool = application("tool", "installer-tool", INSTALLER_BUILD_TEXT);
    return {{"bomFormat", "CycloneDX"},
            {"specVersion", "1.5"},
            {"version", 1},
            {"metadata",
             {{"tools", {{"components", Json::array({tool})}}},
              {"component", application("release", "Tavlink installers", version)}}},
            {"components", std::move(components)},
            {"dependencies", std::move(dependencies)}};
}

std::string thirdPartyNotices() {
    std::string text = "Parts of other makers, and the terms under which they are used.\n";
    for (const Json& part : thirdParties()) {
        text += "\n" + std::string(78, '-') + "\n" + part["name"].get<std::string>() + ", in " +
                (part["linkedInto"] == "installer"
                     ? "every Install.exe"
                     : "installer-tool, which makes releases and is not shipped") +
                "\nLicence: " + part["licence"].get<std::string>() +
                "\nCopyright: " + part["copyright"].get<std::string>() + "\n\n";
        for (const Json& line : part["text"]) {
            text += line.get<std::string>() + '\n';
        }
    }
    return text;
}
