#include "tests/end_to_end/hand_over.h"

#include <gtest/gtest.h>

bool on64BitWindows() {
    BOOL answer = FALSE;
    return IsWow64Process(GetCurrentProcess(), &answer) && answer;
}

InstallerRun start(const Media& media, const std::string& program) {
    return {program, "-dir \"" + media.folder.substr(0, media.folder.size() - 1) + '"'};
}

void answer(InstallerRun& run, const Box& expected, const char* button) {
    const auto dialog = run.nextDialog();
    ASSERT_TRUE(dialog) << "ended without " << expected;
    EXPECT_EQ(dialog->box(), expected);
    dialog->click(button);
}

void dismissShellMessage(InstallerRun& run) {
    const auto dialog = run.nextDialog();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->shows("OK")) << dialog->box();
    dialog->click("OK");
}

void choose(InstallerRun& run, const char* choice) {
    const auto dialog = run.nextDialog();
    ASSERT_TRUE(dialog) << "ended without the choice of the product type";
    ASSERT_TRUE(dialog->shows("Install")) << dialog->box();
    dialog->click(choice);
    dialog->click("Install");
}

void expectStarted(InstallerRun& run, const Media& media,
                   const std::vector<std::string>& expected) {
    EXPECT_FALSE(run.nextDialog());
    run.awaitEnd();
    EXPECT_EQ(media.started(), expected);
}

void expectOneAfterAnother(const Media& media) {
    const auto records = media.records();
    for (size_t index = 1; index < records.size(); ++index) {
        EXPECT_GE(records[index].started, records[index - 1].ended) << records[index].program;
    }
}

std::string setup(const Media& media, const HandOver& handOver) {
    return media.path("Setup.Exe") + " /hide_usd -build=" + handOver.build +
           "`-pid=" + handOver.pid + "`-pf=" + handOver.folder + "`-type=" + handOver.type +
           "`-bitness=" + handOver.bitness + "`-tmp=" + media.folder + '`';
}
