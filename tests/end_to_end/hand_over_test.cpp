#include <gtest/gtest.h>

#include "catalogue/cipher.h"
#include "tests/end_to_end/stage.h"

namespace {

TEST(HandOver, EveryChoiceReachesTheSetupUtility) {
    const std::string processor = on64BitWindows() ? "x64" : "x86";
    const std::string liveSuffixed = "LIVE " + processor;
    constexpr const char *live = "Live Product", *viewer = "File Viewer", *demo = "Demonstration";
    const struct {
        std::string code, choice, pid, folder, type = "LIVE", bitness = "x86";
    } table[] = {
        {"04", live, "04", "Halvick Tavlink Classic Analyzer"},
        {"04", viewer, "04", "Halvick Tavlink Classic Analyzer Viewer", "VIEW"},
        {"04", demo, "0h", "Halvick Tavlink Classic Demo", "DEMO"},
        {"1k", live, "1k", "Halvick Tavlink Serial Analyzer"},
        {"1k", viewer, "1k", "Halvick Tavlink Serial Analyzer Viewer", "VIEW"},
        {"1k", demo, "0g", "Halvick Tavlink Serial Demo", "DEMO"},
        {"07", live, "07", "Halvick EtherTavlink", liveSuffixed, processor},
        {"07", viewer, "07", "Halvick EtherTavlink Viewer", "VIEW", processor},
        {"07", demo, "0u", "Halvick Tavlink Ethernet Demo", "DEMO"},
        {"1m", live, "1m", "Halvick Tavlink Industrial Analyzer", liveSuffixed, processor},
        {"1m", viewer, "1m", "Halvick Tavlink Industrial Analyzer Viewer", "VIEW", processor},
        {"1m", demo, "1b", "Halvick Tavlink Industrial Demo", "DEMO"},
        {"17", demo, "1t", "Halvick Tavlink USB Demo", "DEMO"},
        // A viewer-only edition and a demonstration edition as products of their own.
        {"1c", viewer, "1c", "Halvick Tavlink Industrial Viewer", "VIEW"},
        {"0g", live, "0g", "Halvick Tavlink Serial Demo"},
        // Without the maker's name in front.
        {"1s", live, "1s", "Tavlink Near Field Analyzer"},
        // The live product without a question; the folder is the bare build.
        {"1w", "", "1w", "Halvick", "LIVE x86"},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.code + ' ' + row.choice);
        const Stage stage(row.code);
        Steps steps;
        if (row.code == "1k" || row.code == "1m" || row.code == "1w") {
            steps.push_back(shellMessage);  // the media have no extraction tool
        }
        if (!row.choice.empty()) {
            steps.push_back(choose(row.choice));
        }
        stage.run(steps,
                  stage.setup(row.pid, row.folder + ' ' + defaultBuild, row.type, row.bitness));
    }
}

TEST(HandOver, TheDialogOffersWhatTheProductHas) {
    const struct {
        const char *code, *name, *choices;
    } table[] = {
        {"04", "Classic", "Live Product | File Viewer | Demonstration"},
        {"1d", "ZigBee", "Live Product | File Viewer"},
        {"0q", "Universal", "Live Product"},
    };
    for (const auto& row : table) {
        Stage(row.code).run(
            {{std::string("Tavlink ") + row.name +
                  " Analyzer 16.4.10002.0 Installation | Please select the type of product to "
                  "install.\nOnly the live product works with capture hardware. | " +
                  row.choices + " | Install | Cancel | Help",
              {"close"}}},
            "");
    }
}

TEST(HandOver, ASetupUtilityThatCannotBeStartedIsReported) {
    const Stage stage("0q");
    const std::string setup = stage.path("Setup.Exe");
    writeFile(setup, "a text");
    stage.run(
        {chooseLive, shellMessage, {"Error | warning | Unknown ShellExecute error ! | OK", {"OK"}}},
        "");
    DeleteFileA(setup.c_str());
    stage.run({chooseLive,
               box("Failed to locate program installation utility: \"" + setup + '"', "error")},
              "");
}

TEST(HandOver, ProductDataGiveTheBuildOrLeaveTheCompiledInOne) {
    const std::string good = "[Version Number]\r\nVersion Number=16.4.12000.0\r\n";
    std::string damaged = encipher(good);
    damaged[damaged.size() / 2] ^= 1;
    std::string comments, values = good, garbage;
    while (comments.size() < 10'000'000) {
        comments += "; a comment\r\n";
        values += "a=b\n";
    }
    for (unsigned state = 1; garbage.size() < 100'000; state = state * 1664525 + 1013904223) {
        garbage += static_cast<char>(state >> 24);
    }
    const struct {
        const char *what, *name;
        std::string content, build;
    } table[] = {
        {"plain", "ProductData.ini", good, "16.4.12000.0"},
        {"enciphered", "ProductData.inx", encipher(good), "16.4.12000.0"},
        {"damaged", "ProductData.inx", damaged, defaultBuild},
        {"bare line feeds", "ProductData.ini", "[Version Number]\nVersion Number=16.4.1\nOther=2",
         "16.4.1\nOther=2"},
        {"10 MB of comments", "ProductData.ini", comments + good, "16.4.12000.0"},
        {"10 MB of values", "ProductData.ini", values, "16.4.12000.0"},
        {"empty", "ProductData.ini", "", defaultBuild},
        {"zero bytes", "ProductData.ini", std::string(1000, '\0'), defaultBuild},
        {"garbage", "ProductData.ini", garbage, defaultBuild},
        {"garbage", "ProductData.inx", garbage, defaultBuild},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(std::string(row.what) + " in " + row.name);
        const Stage stage("04");
        // The enciphered file goes before the plain one, whether it can be read or not.
        writeFile(stage.scratch + "ProductData.ini",
                  "[Version Number]\r\nVersion Number=1.2.3.4\r\n");
        writeFile(stage.scratch + row.name, row.content);
        stage.run({chooseLive}, stage.setup("04", "Halvick Tavlink Classic Analyzer " + row.build,
                                            "LIVE", "x86", row.build));
    }
}

}  // namespace
