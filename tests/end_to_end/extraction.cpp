#include "tests/end_to_end/extraction.h"

void layOutExtraction(const Stage& stage, const std::string& report) {
    const std::string source = stage.scratch + "report";
    writeFile(source, report);
    stage.layOut(stage.path("flatten.exe"), source + '\t' + stage.path("report.txt") + '\n' +
                                                stage.path("Setup.Exe") + '\t' + unpacked +
                                                "\n100");
}

std::string extraction(const Stage& stage, const std::string& archive) {
    return Stage::ran(stage.path("flatten.exe"), "-fzx \"" + stage.path(archive) +
                                                     "\" -fzxkey Kq7vR2mXp9Lz4Wc1 -rep \"" +
                                                     stage.path("report.txt") + "\" -exdir \"" +
                                                     testSystemFolder + "\\Drivers\"");
}
