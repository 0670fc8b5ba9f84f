#include "installed/running_instances_win.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

// This process is the one that must be passed over.
TEST(RunningInstances, AreThoseOfTheWholeNameAndPath) {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own = path, name = own.substr(own.rfind('\\') + 1);
    for (const auto& [otherName, otherPath] : {std::pair{std::string(), own},
                                               {name, std::string()},
                                               {name, "C:\\" + name},
                                               {name.substr(0, name.size() - 4), own},
                                               {std::string("explorer.exe"), own}}) {
        EXPECT_EQ(terminateProcessesByPath(otherName, otherPath), 0u);
    }
}

}  // namespace
