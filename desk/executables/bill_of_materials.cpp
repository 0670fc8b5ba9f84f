#include "desk/executables/bill_of_materials.h"

#include <nlohmann/json.hpp>

#include "catalogue/build_number.h"
#include "desk/western_text.h"

namespace {

constexpr const char* maker = "Halvick Test Equipment";
constexpr const char* libraries = "gcc-runtime";

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
    Json components = Json::array(), dependencies = Json::array();
    for (const ReleasedFile& file : files) {
        Json component = application(file.path, toUtf8(file.name) + " Installation", file.version);
        component["hashes"] = Json::array({{{"alg", "SHA-256"}, {"content", file.digest}}});
        component["properties"] = Json::array(
            {property("installer:path", file.path), property("installer:productCode", file.code)});
        components.push_back(std::move(component));
        dependencies.push_back({{"ref", file.path}, {"dependsOn", Json::array({libraries})}});
    }
    // What the compiler links into each; the executables do not tell its version.
    components.push_back(
        {{"type", "library"},
         {"bom-ref", libraries},
         {"name", "libstdc++, libgcc and mingw-w64 runtime, linked statically"},
         {"licenses", Json::array({{{"expression", "GPL-3.0-or-later WITH GCC-exception-3.1"}}})}});
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
