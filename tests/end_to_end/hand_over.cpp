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

void choose(InstallerRun& run, const char* choice) {
    const auto dialog = run.nextDialog();
    ASSERT_TRUE(dialog) << "ended without the choice of the product type";
    dialog->click(choice);
    dialog->click("Install");
}

std::string handedOver(InstallerRun& run, const Media& media) {
    EXPECT_FALSE(run.nextDialog());
    run.awaitEnd();
    const auto records = media.records();
    if (records.size() != 1 || records[0].program != media.path("Setup.Exe")) {
        ADD_FAILURE() << records.size() << " programs were started, not Setup.Exe alone";
        return {};
    }
    return records[0].parameters;
}

std::string parameterString(const HandOver& handOver, const Media& media) {
    return "/hide_usd -build=" + handOver.build + "`-pid=" + handOver.pid +
           "`-pf=" + handOver.folder + "`-type=" + handOver.type + "`-bitness=" + handOver.bitness +
           "`-tmp=" + media.folder + '`';
}
