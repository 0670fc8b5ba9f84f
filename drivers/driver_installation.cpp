#include "drivers/driver_installation.h"

#include <algorithm>

#include "platform/ansi_text.h"
#include "platform/format_text.h"

namespace {

void runReportedInstaller(Computer& computer, const std::string& reportPath,
                          const std::string& folder) {
    // One that cannot be read names nothing.
    const std::string report = computer.fileContent(reportPath).value_or("");
    const std::optional<std::string> installer =
        reportedInstaller(report, folder, driverInstallerName(computer.isWow64()));
    if (installer && computer.pathKind(*installer) != PathKind::Inaccessible) {
        launchAndWait(computer, *installer, "");
    }
}

}  // namespace

bool appliesTo(const DriverPackage& package, int operatingSystemCode) {
    const std::vector<int>& codes = package.operatingSystemCodes;
    return !package.archive.empty() && !package.targetFolder.empty() && operatingSystemCode >= 0 &&
           operatingSystemCode != operating_system_code::unknownNewer &&
           std::find(codes.begin(), codes.end(), operatingSystemCode) != codes.end();
}

std::string extractionFolder(const std::string& targetFolder, const std::string& programFiles) {
    std::string folder = replaceAll(targetFolder, "#PROGRAM_FILES#", programFiles, true);
    if (!folder.empty() && findLastBackslash(folder) == folder.size() - 1) {
        folder.pop_back();
    }
    return folder;
}

ExtractionCommand extractionCommand(const std::string& sourceDirectory, const std::string& archive,
                                    const char* dataKey, const std::string& folder) {
    ExtractionCommand command;
    command.tool = composeCut({sourceDirectory, extractionToolFile});
    command.report = composeCut({sourceDirectory, "report.txt"});
    command.arguments =
        formatText("-fzx \"%s%s\" -fzxkey %.16s -rep \"%s\" -exdir \"%s\"", sourceDirectory.c_str(),
                   archive.c_str(), dataKey, command.report.c_str(), folder.c_str());
    return command;
}

const char* driverInstallerName(bool wow64) {
    return wow64 ? "dpinst_64.exe" : "dpinst_32.exe";
}

std::optional<std::string> reportedInstaller(std::string_view report, const std::string& folder,
                                             std::string_view name) {
    const std::size_t found = report.find(name);
    if (found == std::string_view::npos) {
        return std::nullopt;
    }
    // A zero byte would cut the path before the name, to run something else.
    const std::size_t quote = report.find_last_of(std::string_view("\"\0", 2), found);
    if (quote == std::string_view::npos || report[quote] != '"') {
        return std::nullopt;
    }
    return composeCut({folder, "\\", report.substr(quote + 1, found + name.size() - quote - 1)});
}

bool installDrivers(Computer& computer, const std::string& sourceDirectory,
                    const std::vector<DriverPackage>& packages, const char* dataKey,
                    std::string& error) {
    error.clear();
    if (packages.empty()) {
        return true;
    }
    if (dataKey == nullptr) {
        error = "No data key specified.";
        return false;
    }
    const int systemCode = operatingSystemCode(computer);
    const std::string programFiles = computer.programFilesFolder();
    for (const DriverPackage& package : packages) {
        if (!appliesTo(package, systemCode)) {
            continue;
        }
        const std::string folder = extractionFolder(package.targetFolder, programFiles);
        const ExtractionCommand command =
            extractionCommand(sourceDirectory, package.archive, dataKey, folder);
        launchAndWait(computer, command.tool, command.arguments);
        if (package.runInstaller) {
            runReportedInstaller(computer, command.report, folder);
        }
    }
    return true;
}
