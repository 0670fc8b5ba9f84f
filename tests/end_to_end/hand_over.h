// The steps that most runs share: start, answer, choose, and what "Setup.Exe" was handed.
#pragma once

#include <string>
#include <vector>

#include "tests/end_to_end/installer_run.h"
#include "tests/end_to_end/media.h"

inline constexpr const char* applicationName = "Tavlink Installation";
inline constexpr const char* defaultBuild = "16.4.10002.0";

bool on64BitWindows();

/// Starts the installer with "-dir" naming the media.
InstallerRun start(const Media& media, const std::string& program);

/// The next thing seen must be this message box; clicks the button.
void answer(InstallerRun& run, const Box& expected, const char* button);

/// For a program that cannot be started the shell has a message of its own, ahead of what the
/// installer has to say.
void dismissShellMessage(InstallerRun& run);

/// The next thing seen must be the "Install Product" dialog; chooses, and clicks Install.
void choose(InstallerRun& run, const char* choice);

/// The run must end now, having started these programs, each "program parameters", in this order.
void expectStarted(InstallerRun& run, const Media& media, const std::vector<std::string>& expected);

/// Each program that was started must have ended before the next one started.
void expectOneAfterAnother(const Media& media);

/// What "Setup.Exe" is to be handed.
struct HandOver {
    std::string pid;
    std::string folder;
    std::string type = "LIVE";
    std::string bitness = "x86";
    std::string build = defaultBuild;
};
/// Its start as `expectStarted` takes it.
std::string setup(const Media& media, const HandOver& handOver);
