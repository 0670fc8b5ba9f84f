#include <gtest/gtest.h>

#include "catalogue/cipher.h"
#include "tests/end_to_end/hand_over.h"

namespace {

TEST(ProductDataFile, GivesTheBuildOrLeavesTheCompiledInOne) {
    const std::string good = "[Version Number]\r\nVersion Number=16.4.12000.0\r\n";
    std::string damaged = encipher(good);
    damaged[damaged.size() / 2] ^= 1;
    std::string comments, values = good;
    while (comments.size() < 10'000'000) {
        comments += "; a comment\r\n";
        values += "a=b\n";
    }
    std::string garbage;
    for (unsigned state = 1; garbage.size() < 100'000; state = state * 1664525 + 1013904223) {
        garbage += static_cast<char>(state >> 24);
    }
    const struct {
        const char* what;
        const char* name;
        std::string content;
        std::string build;
    } table[] = {
        {"plain", "ProductData.ini", good, "16.4.12000.0"},
        {"enciphered", "ProductData.inx", encipher(good), "16.4.12000.0"},
        {"damaged", "ProductData.inx", damaged, defaultBuild},
        {"bare line feeds", "ProductData.ini", "[Version Number]\nVersion Number=16.4.1\nOther=2",
         "16.4.1\\nOther=2"},
        {"10 MB of comments", "ProductData.ini", comments + good, "16.4.12000.0"},
        {"10 MB of values", "ProductData.ini", values, "16.4.12000.0"},
        {"empty", "ProductData.ini", "", defaultBuild},
        {"zero bytes", "ProductData.ini", std::string(1000, '\0'), defaultBuild},
        {"garbage", "ProductData.ini", garbage, defaultBuild},
        {"garbage", "ProductData.inx", garbage, defaultBuild},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(std::string(row.what) + " in " + row.name);
        const Media media;
        writeFile(media.path(row.name), row.content);
        // The enciphered file goes before the plain one, whether it can be read or not.
        if (std::string(row.name) == "ProductData.inx") {
            writeFile(media.path("ProductData.ini"),
                      "[Version Number]\r\nVersion Number=1.2.3.4\r\n");
        }
        InstallerRun run = start(media, media.installer("04"));
        choose(run, "Live Product");
        expectStarted(run, media,
                      {setup(media, {.pid = "04",
                                     .folder = "Halvick Tavlink Classic Analyzer " + row.build,
                                     .build = row.build})});
    }
}

}  // namespace
