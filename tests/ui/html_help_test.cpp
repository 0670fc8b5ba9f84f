#include "ui/html_help.h"

#include <gtest/gtest.h>

#include "tests/ui/registered_help.h"

namespace {

constexpr char file[] = "C:\\media\\Install.chm";

TEST(HtmlHelpControl, IsTheRegisteredOne) {
    SetEnvironmentVariableA("HELP_FOLDER", RegisteredHelp::folder().c_str());
    const std::pair<DWORD, std::string> registrations[] = {
        {REG_SZ, RegisteredHelp::recorder()},
        {REG_EXPAND_SZ, "%HELP_FOLDER%\\help_recorder.dll"},
    };
    for (const auto& [type, path] : registrations) {
        const RegisteredHelp registration(type, path);
        recorded<int>("callCount") = 0;
        const auto owner = reinterpret_cast<HWND>(0x1234);
        HtmlHelpControl help;
        help.displayTopic(owner, file);
        help.displayTopic(owner, file);
        EXPECT_EQ(recorded<int>("callCount"), 2) << path;
        EXPECT_EQ(recorded<HWND>("lastOwner"), owner);
        EXPECT_STREQ(&recorded<char>("lastFile"), file);
        EXPECT_EQ(recorded<UINT>("lastCommand"), 0u);
        EXPECT_EQ(recorded<DWORD_PTR>("lastData"), 0u);
    }
}

TEST(HtmlHelpControl, IsTheSystemsOwnWhenTheRegistrationDoesNotLead) {
    const std::pair<DWORD, std::string> registrations[] = {
        {REG_SZ, RegisteredHelp::folder() + "\\missing.ocx"},
        {REG_SZ, "help_recorder.dll"},  // would be found beside the program
        {REG_SZ, std::string(2000, 'x')},
        {REG_EXPAND_SZ, "%HELP_FOLDER%" + std::string(240, 'x')},
        {REG_DWORD, "abc"},
        {REG_SZ, ""},
    };
    for (const auto& [type, path] : registrations) {
        const RegisteredHelp registration(type, path);
        recorded<int>("callCount") = 0;
        HtmlHelpControl().displayTopic(nullptr, "C:\\no such file.chm");
        EXPECT_EQ(recorded<int>("callCount"), 0) << path;
        EXPECT_NE(GetModuleHandleA("hhctrl.ocx"), nullptr) << path;
    }
}

TEST(HtmlHelpControl, FailureIsRemembered) {
    recorded<int>("callCount") = 0;
    HtmlHelpControl help;
    {
        // Loads, but has no ordinal 14.
        char program[MAX_PATH]{};
        GetModuleFileNameA(nullptr, program, MAX_PATH);
        const RegisteredHelp registration(REG_SZ, program);
        help.displayTopic(nullptr, file);
    }
    const RegisteredHelp registration(REG_SZ, RegisteredHelp::recorder());
    help.displayTopic(nullptr, file);
    EXPECT_EQ(recorded<int>("callCount"), 0);
}

}  // namespace
