#include "installed/running_instances.h"

#include "platform/ansi_text.h"
#include "tests/stand_ins.h"

namespace {

/// A process that runs for a minute unless it is stopped; with its modules loaded.
class Instance {
  public:
    Instance(const StandIns& standIns, const std::string& name) {
        standIns.layOut(name, "write\t" + standIns.path(name) + ".up\tup\nwait\t60000");
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        EXPECT_TRUE(CreateProcessA(standIns.path(name).c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                   nullptr, nullptr, &startup, &process));
        const DWORD deadline = GetTickCount() + 10000;
        const std::string up = standIns.path(name) + ".up";
        while (GetFileAttributesA(up.c_str()) == INVALID_FILE_ATTRIBUTES &&
               GetTickCount() < deadline) {
            Sleep(10);
        }
        EXPECT_TRUE(isRunning());
    }
    ~Instance() {
        TerminateProcess(process.hProcess, 0);
        WaitForSingleObject(process.hProcess, 5000);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    bool isRunning() const {
        return WaitForSingleObject(process.hProcess, 0) == DWORD{WAIT_TIMEOUT};
    }

  private:
    PROCESS_INFORMATION process{};
};

TEST(RunningInstances, StopsThoseOfThePathAlone) {
    const StandIns standIns;
    const Instance first(standIns, "here\\QMX stand-in.EXE"), second(standIns, "here\\other.exe"),
        elsewhere(standIns, "there\\qmx stand-in.exe");
    const std::string path = standIns.path("here\\qmx STAND-IN.exe");
    EXPECT_EQ(terminateProcessesByPath("", path), 0u);
    EXPECT_EQ(terminateProcessesByPath("qmx stand-in.exe", ""), 0u);
    EXPECT_EQ(terminateProcessesByPath("qmx stand-in.exe", standIns.path("qmx stand-in.exe")), 0u);
    EXPECT_EQ(terminateProcessesByPath("qmx", path), 0u);
    EXPECT_EQ(terminateProcessesByPath("other.exe", path), 0u);
    EXPECT_TRUE(first.isRunning());

    EXPECT_EQ(terminateProcessesByPath("Qmx stand-in.exe", lowerCase(path)), 0u);
    EXPECT_FALSE(first.isRunning());
    EXPECT_TRUE(second.isRunning());
    EXPECT_TRUE(elsewhere.isRunning());
}

}  // namespace
