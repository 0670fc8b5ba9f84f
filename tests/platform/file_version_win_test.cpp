// The version of an analyser's executable, on a stand-in with the version resource of recorder.rc.
#include "platform/file_version_win.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "installed/installation_index_win.h"

namespace {

std::string wide(const std::string& text) {
    std::string bytes;
    for (const char character : text) {
        bytes += {character, '\0'};
    }
    return bytes;
}

class ExecutableVersion : public testing::Test {
  protected:
    ExecutableVersion() {
        const auto folder = std::filesystem::path(_pgmptr).parent_path().parent_path();
        std::ifstream file(folder / "dialog_driver" / "recorder.exe", std::ios::binary);
        program.assign(std::istreambuf_iterator<char>(file), {});
        std::filesystem::create_directories(path.parent_path());
    }
    ~ExecutableVersion() override { std::filesystem::remove_all(installation); }

    /// False without a version resource.
    bool read(const std::string& content) {
        std::ofstream(path, std::ios::binary) << content;
        return fileVersionText(path.string(), text);
    }

    const std::filesystem::path installation =
        std::filesystem::temp_directory_path() / "installer test";
    const std::filesystem::path path = installation / "Executables\\Core\\qmx.exe";
    std::string program, text = "left over";
};

TEST_F(ExecutableVersion, IsThatOfTheUsEnglishUnicodeTable) {
    EXPECT_FALSE(fileVersionText(path.string(), text));
    EXPECT_FALSE(read("MZ"));
    EXPECT_EQ(text, "");
    const std::string table[][3] = {
        {"040904b0", "040904B0", "Version Build 12.4.1"},
        {"040904b0", "040704b0", ""},
        {"040904b0", "040904e4", ""},
        {"FileVersion", "FileVersiox", ""},
    };
    for (const auto& [from, to, expected] : table) {
        std::string content = program;
        content.replace(content.find(wide(from)), 2 * from.size(), wide(to));
        EXPECT_TRUE(read(content)) << to;
        EXPECT_EQ(text, expected) << to;
    }
    read(program);
    InstallationRecord record;
    record.fields["Installation Path"] = installation.string();
    EXPECT_TRUE(InstallationIndex::readExecutableVersion(record, text));
    EXPECT_EQ(text, "12.4.1");
}

TEST_F(ExecutableVersion, SurvivesDamage) {
    const std::size_t resource = program.find(wide("VS_VERSION_INFO")) - 6;
    for (std::size_t offset = 0; offset < 400; offset += 3) {
        std::string content = program;
        content[resource + offset] = '\xFF';
        read(content);
        EXPECT_TRUE(text.empty() || (text.starts_with("Version ") && text.size() < 1000)) << text;
        read(
            program.substr(0, offset % 2 != 0 ? resource + offset : program.size() * offset / 400));
    }
}

}  // namespace
