// Unpacking and installing driver packages.
#pragma once

#include "drivers/driver_package_table.h"
#include "platform/computer.h"

/// In the source directory, beside the archives.
inline constexpr const char* extractionToolFile = "flatten.exe";

/// True when the package is whole and made for this operating system; never for a release that
/// is not known.
[[nodiscard]] bool appliesTo(const DriverPackage& package, int operatingSystemCode);

/// The folder with "#PROGRAM_FILES#" (of any letter case) replaced, without one backslash at its
/// end: in front of the closing quote that would quote the quote. `programFiles` may be empty.
[[nodiscard]] std::string extractionFolder(const std::string& targetFolder,
                                           const std::string& programFiles);

struct ExtractionCommand {
    std::string tool;       ///< at most 260 characters
    std::string arguments;  ///< of any length
    std::string report;     ///< written by the tool; at most 260 characters
};

/// `sourceDirectory` ends in a backslash; `dataKey` points to 16 characters that need no
/// terminator; `folder` is an extractionFolder.
[[nodiscard]] ExtractionCommand extractionCommand(const std::string& sourceDirectory,
                                                  const std::string& archive, const char* dataKey,
                                                  const std::string& folder);

/// File name of the platform's driver installer for the running Windows.
[[nodiscard]] const char* driverInstallerName(bool wow64);

/// Full path, at most 260 characters, of the driver installer that the extraction report names:
/// the first occurrence of `name` (case-sensitive) with what stands in front of it since the
/// nearest double quote is relative to `folder`. Nothing when the report does not name it so.
[[nodiscard]] std::optional<std::string> reportedInstaller(std::string_view report,
                                                           const std::string& folder,
                                                           std::string_view name);

/// Unpacks `packages` from `sourceDirectory` (ends in a backslash) with the extraction tool that
/// lies there, and runs the driver installers that its reports name; each process is waited for.
/// `dataKey` points to 16 characters, may be null. False only when the key is missing; `error` is
/// emptied first and then says so.
[[nodiscard]] bool installDrivers(Computer& computer, const std::string& sourceDirectory,
                                  const std::vector<DriverPackage>& packages, const char* dataKey,
                                  std::string& error);
