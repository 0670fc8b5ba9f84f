// Words for runs that install the free viewer.
#pragma once

#include <string>
#include <vector>

#include "tools/run_stage/stage.h"

inline constexpr const char *suiteViewer = "Test Suite Observer",
                            *viewer = "Bluetooth Protocol Viewer";

inline std::string location(const std::string& key) {
    return scratch + "old " + key;
}
inline std::string analyser(const std::string& key) {
    return location(key) + "\\Executables\\Core\\qmx.exe";
}
inline std::string marker(const std::string& key) {
    return location(key) + "\\liveimport.ini";
}

/// A viewer, listed in the order of `key`: behind its uninstaller in quotes the command has the
/// arguments. The marker is there, as if an uninstaller were at work for ever.
inline Given old(const std::string& key, const std::string& name,
                 const std::string& arguments = " -x") {
    const std::string uninstaller = location(key) + "\\setup.exe";
    return [=] {
        program(uninstaller)();
        file(marker(key))();
        file(location(key) + "\\UninstallQmx.exe.script", "100")();
        installed(key, name, '"' + uninstaller + '"' + arguments, location(key))();
    };
}
inline const Given newUninstaller = program(media + "UninstallQmx.exe");

inline std::vector<Step> inOrder(const std::vector<std::vector<Step>>& parts) {
    std::vector<Step> all;
    for (const std::vector<Step>& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

/// The viewer goes by the uninstaller of the media.
inline std::vector<Step> replaced(const std::string& key) {
    const std::string target = location(key) + "\\UninstallQmx.exe";
    return {stopped(analyser(key)), copiedOver(media + "UninstallQmx.exe", target), ran(target)};
}

inline Step viewerSetup(const std::string& build = defaultBuild) {
    return ran(
        media + "Setup.Exe",
        "/hide_usd -build=" + build + "`-pid=1Q`-pf=Bluetooth SIG`-type=LIVE`-tmp=" + media + '`');
}
