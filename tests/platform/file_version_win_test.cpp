// On a stand-in with the version resource of recorder.rc.
#include "platform/file_version_win.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/rows.h"

namespace {

std::string wide(const std::string& text) {
    std::string bytes;
    for (const char character : text) {
        bytes += {character, '\0'};
    }
    return bytes;
}

class FileVersion : public testing::Test {
  protected:
    FileVersion() {
        const auto folder = std::filesystem::path(_pgmptr).parent_path().parent_path();
        std::ifstream file(folder / "dialog_driver" / "recorder.exe", std::ios::binary);
        program.assign(std::istreambuf_iterator<char>(file), {});
        std::filesystem::create_directories(path.parent_path());
    }
    ~FileVersion() override { std::filesystem::remove_all(installation); }

    /// The version text; "none" without a version resource.
    std::string read(const std::string& content) const {
        std::ofstream(path, std::ios::binary) << content;
        std::string text = "left over";
        return fileVersionText(path.string(), text) ? text : "none" + text;
    }

    const std::filesystem::path installation =
        std::filesystem::temp_directory_path() / "installer test";
    const std::filesystem::path path = installation / "Executables\\Core\\qmx.exe";
    std::string program;
};

TEST_F(FileVersion, IsThatOfTheUsEnglishUnicodeTable) {
    std::string text = "left over";
    EXPECT_FALSE(fileVersionText(path.string(), text));
    EXPECT_EQ(text, "");
    EXPECT_EQ(read("MZ"), "none");
    expectRows<std::tuple<std::string, std::string>, std::string>(
        {{{"040904b0", "040904B0"}, "Version Build 12.4.1"},
         {{"040904b0", "040704b0"}, ""},
         {{"040904b0", "040904e4"}, ""},
         {{"FileVersion", "FileVersiox"}, ""}},
        [this](const std::string& from, const std::string& to) {
            std::string content = program;
            return read(content.replace(content.find(wide(from)), 2 * from.size(), wide(to)));
        });
}

TEST_F(FileVersion, SurvivesDamage) {
    const std::size_t resource = program.find(wide("VS_VERSION_INFO")) - 6;
    for (std::size_t offset = 0; offset < 400; offset += 3) {
        std::string content = program;
        content[resource + offset] = '\xFF';
        const std::string text = read(content);
        EXPECT_TRUE(text.empty() || text == "none" ||
                    (text.starts_with("Version ") && text.size() < 1000))
            << text;
        read(
            program.substr(0, offset % 2 != 0 ? resource + offset : program.size() * offset / 400));
    }
}

}  // namespace
