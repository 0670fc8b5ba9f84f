// The free protocol viewer: no question, older viewers go, then its setup utility is started.
#include <gtest/gtest.h>

#include "tools/run_stage/viewers.h"

TEST(DirectInstall, RemovesEveryViewerAndLaunchesTheSetup) {
    const std::string other = scratch + "remove it.exe", absent = scratch + "absent.exe";
    play(
        {{"1q: no viewer", {viewerSetup()}},
         {"1q: no setup utility, after the removal",
          inOrder({replaced("a"),
                   {box("Failed to locate program installation utility: \"" + media + "Setup.Exe\"",
                        "error")}}),
          {newUninstaller, old("a", viewer), removed(media + "Setup.Exe"),
           file(location("a") + "\\UninstallQmx.exe", "an older one")}},
         {"1q: both editions, and nothing else",
          inOrder({replaced("b"), replaced("a"), replaced("c"), {viewerSetup()}}),
          {newUninstaller, old("a", viewer), old("b", suiteViewer), old("c", viewer),
           old("d", "Bluetooth Protocol Viewer 2"), old("e", "My Test Suite Observer"),
           old("f", "bluetooth protocol viewer"), old("g", "Tavlink Serial Analyzer")}},
         {"1q: an uninstaller of another name, and one that is not there",
          {stopped(analyser("a")), ran(other), stopped(analyser("b")), viewerSetup()},
          {program(other), file(marker("a")), installed("a", viewer, other, location("a")),
           installed("b", viewer, absent, location("b"))}}});
}
