// What the release engineer's tool tells about a run is what the run does.
#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "installed/installation_index.h"
#include "tests/end_to_end/extraction.h"

namespace {

using nlohmann::json;

json readJson(const std::string& path) {
    const json document = json::parse(readFile(path), nullptr, false);
    EXPECT_TRUE(document.is_object()) << path;
    return document;
}

/// The machine's keys, and stand-ins for its uninstallers.
void setUp(const json& machine, Stage& stage) {
    std::string number = "1";
    for (const json& entry : machine.value("installed", json::array())) {
        const std::string command = entry["UninstallString"];
        const std::size_t start = command.starts_with('"') ? 1 : 0;
        stage.layOut(command.substr(start, command.find(".exe") + 4 - start));
        stage.addInstalled(entry.value("key", "entry " + number), entry["DisplayName"],
                           entry["DisplayVersion"], command, entry["InstallLocation"]);
        ++number.back();
    }
    for (const json& installation : machine.value("installations", json::array())) {
        stage.addToIndex((installation.value("older", false) ? olderMakerTree : makerTree) +
                             installation.value("key", "1"),
                         installation["Program Folder"]);
    }
}

std::string listed(const json& texts, const std::string& mark = "") {
    std::string list;
    for (const std::string text : texts) {
        list += " | " + mark + text;
    }
    return list;
}

/// The dialog as the one on the screen is described.
std::string described(const json& dialog) {
    return dialog["title"].get<std::string>() +
           (dialog["icon"].is_null() ? "" : " | " + dialog["icon"].get<std::string>()) +
           listed(dialog["texts"]) + listed(dialog["rows"], "[x] ") + listed(dialog["choices"]) +
           listed(dialog["buttons"]);
}

std::string recorded(const json& command) {
    std::string program = command["program"];
    std::string arguments = command["arguments"];
    if (program.starts_with('"')) {  // the shell takes a quoted name without its quotes
        program = program.substr(1, program.find('"', 1) - 1);
    }
    // Where the stand-in of the extraction tool unpacks the driver installer to.
    if (const std::size_t gap = program.find("\\...\\"); gap != std::string::npos) {
        program.replace(gap, 5, "\\sub folder\\");
    }
    return Stage::ran(program, arguments);
}

/// Follows the story along one of its endings.
void follow(const json& story, std::size_t way, const Stage& stage) {
    const json& endings = story["endings"];
    const json ending = endings.empty() ? json() : endings[way % endings.size()];
    Steps steps;
    std::string records;
    for (const json& step : story["steps"]) {
        if (step["kind"] == "run" || step["kind"] == "runReported") {
            records += recorded(step);
        } else if (step["kind"] == "dialog") {
            const json& answer = step["answers"][0];
            steps.push_back({described(step["dialog"]), {answer["button"]}});
            for (const json& command : answer["runs"]) {
                records += recorded(command);
            }
            if (answer["button"] == "Install") {
                steps.back().actions.insert(steps.back().actions.begin(), ending["choice"]);
            }
        }
    }
    if (ending.is_object()) {
        records += recorded(ending["setup"]);
    }
    stage.run(steps, records);
}

TEST(Stories, AreWhatTheRunDoes) {
    const std::string bitsOfWindows = on64BitWindows() ? "64" : "32";
    const bool wine = GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
    if (!wine) {
        GTEST_SKIP() << "Windows reports no other release than its own";
    }
    const struct {
        const char *machine, *release;
    } machines[] = {{"workshop", "winxp"}, {"server", "win2008"}, {"office", "win10"}};
    std::size_t way = 0;
    for (const char* code : {"04", "07", "16", "1k", "1q", "1w"}) {
        for (const auto& row : machines) {
            SCOPED_TRACE(std::string(code) + " on " + row.machine);
            const std::string told = std::string(std::getenv("STAMPED_INSTALLERS")) + '/' + code +
                                     '/' + row.machine + '-' + bitsOfWindows + ".json";
            Stage stage(code);
            stage.setRegistry(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe",
                              "Version", row.release);
            stage.layOut(stage.path("UninstallQmx.exe"));
            layOutExtraction(stage);
            setUp(readJson(std::string(std::getenv("MACHINES")) + '/' + row.machine + ".json"),
                  stage);
            follow(readJson(told)["run"], way++, stage);
            removeFolder(testSystemFolder);
        }
    }
}

}  // namespace
