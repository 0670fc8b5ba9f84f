// What the release engineer's tool tells about a run is what the run does.
#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "installed/installation_index.h"
#include "tests/end_to_end/stage.h"

namespace {

using nlohmann::json;

json readJson(const std::string& path) {
    const json document = json::parse(readFile(path), nullptr, false);
    EXPECT_TRUE(document.is_object()) << path;
    return document;
}

/// The machine's keys, and stand-ins for its uninstallers.
std::vector<Given> machineAsDescribed(const json& machine) {
    std::vector<Given> given;
    std::string key = "a";
    for (const json& entry : machine.value("installed", json::array())) {
        const std::string command = entry["UninstallString"];
        const std::size_t start = command.starts_with('"') ? 1 : 0;
        given.push_back(program(command.substr(start, command.find(".exe") + 4 - start)));
        given.push_back(installed(entry.value("key", key), entry["DisplayName"], command,
                                  entry["InstallLocation"], entry["DisplayVersion"]));
        ++key.back();
    }
    for (const json& installation : machine.value("installations", json::array())) {
        given.push_back(indexed((installation.value("older", false) ? olderMakerTree : makerTree) +
                                    installation.value("key", "1"),
                                installation["Program Folder"]));
    }
    return given;
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

Step started(const json& command) {
    std::string file = command["program"];
    if (file.starts_with('"')) {  // the shell takes a quoted name without its quotes
        file = file.substr(1, file.find('"', 1) - 1);
    }
    // Where the stand-in of the extraction tool unpacks the driver installer to.
    if (const std::size_t gap = file.find("\\...\\"); gap != std::string::npos) {
        file.replace(gap, 5, "\\sub folder\\");
    }
    return ran(file, command["arguments"]);
}

/// The story along one of its endings.
std::vector<Step> stepsOf(const json& story, std::size_t way) {
    const json& endings = story["endings"];
    const json ending = endings.empty() ? json() : endings[way % endings.size()];
    std::vector<Step> steps;
    for (const json& step : story["steps"]) {
        if (step["kind"] == "run" || step["kind"] == "runReported") {
            steps.push_back(started(step));
        } else if (step["kind"] == "dialog") {
            const json& answer = step["answers"][0];
            steps.push_back({described(step["dialog"]), {answer["button"]}});
            if (answer["button"] == "Install") {
                steps.back().actions.insert(steps.back().actions.begin(), ending["choice"]);
            }
            for (const json& command : answer["runs"]) {
                steps.push_back(started(command));
            }
        }
    }
    if (ending.is_object()) {
        steps.push_back(started(ending["setup"]));
    }
    return steps;
}

TEST(Stories, AreWhatTheRunDoes) {
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr) {
        GTEST_SKIP() << "Windows reports no other release than its own";
    }
    const struct {
        const char *machine, *release;
    } machines[] = {{"workshop", "winxp"}, {"server", "win2008"}, {"office", "win10"}};
    const std::string told = std::string(std::getenv("STAMPED_INSTALLERS")) + '/';
    std::size_t way = 0;
    for (const std::string code : {"04", "07", "16", "1k", "1q", "1w"}) {
        for (const auto& row : machines) {
            std::vector<Given> given = machineAsDescribed(
                readJson(std::string(std::getenv("MACHINES")) + '/' + row.machine + ".json"));
            given.insert(given.end(), {release(row.release), program(media + "UninstallQmx.exe"),
                                       extractionTool()});
            const json story = readJson(told + code + '/' + row.machine + '-' +
                                        (on64BitWindows() ? "64" : "32") + ".json");
            play({code + ": on the machine \"" + row.machine + '"', stepsOf(story["run"], way++),
                  given});
        }
    }
}

}  // namespace
