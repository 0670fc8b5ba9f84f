#include "drivers/driver_installation.h"

#include <algorithm>

#include "platform/ansi_text.h"
#include "platform/format_text.h"
#include "platform/operating_system.h"

bool appliesTo(const DriverPackage& package, int operatingSystemCode) {
    const std::vector<int>& codes = package.operatingSystemCodes;
    // As unsigned: the negative codes, which say that nothing was recognised, are out too.
    return !package.archive.empty() && !package.targetFolder.empty() &&
           static_cast<unsigned>(operatingSystemCode) <=
               static_cast<unsigned>(operating_system_code::newestKnown) &&
           std::find(codes.begin(), codes.end(), operatingSystemCode) != codes.end();
}

std::string extractionFolder(const std::string& targetFolder, const std::string& programFiles) {
    std::string folder = replaceAll(targetFolder, "#PROGRAM_FILES#", programFiles, true);
    const std::size_t backslash = findLastBackslash(folder);
    if (backslash != std::string::npos && backslash + 1 == folder.size()) {
        folder.pop_back();
    }
    return folder;
}

ExtractionCommand extractionCommand(const std::string& sourceDirectory, const std::string& archive,
                                    const char* dataKey, const std::string& folder) {
    ExtractionCommand command;
    command.tool = formatCut("%s%s", sourceDirectory.c_str(), extractionToolFile);
    command.report = formatCut("%sreport.txt", sourceDirectory.c_str());
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
    const std::string relative(report.substr(quote + 1, found + name.size() - quote - 1));
    return formatCut("%s\\%s", folder.c_str(), relative.c_str());
}
