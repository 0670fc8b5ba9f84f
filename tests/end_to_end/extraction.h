// The extraction tool of the media: a stand-in that reports, and unpacks a driver installer.
#pragma once

#include "tests/end_to_end/stage.h"

inline const std::string bits = on64BitWindows() ? "64" : "32";
inline const std::string otherBits = on64BitWindows() ? "32" : "64";
inline const std::string driverInstaller = "dpinst_" + bits + ".exe";
inline const std::string testSystemFolder = std::string("C:\\Program Files") +
                                            (on64BitWindows() ? " (x86)" : "") +
                                            "\\Halvick Test System II";
/// What the tool unpacks.
inline const std::string unpacked = testSystemFolder + "\\Drivers\\sub folder\\" + driverInstaller;

void layOutExtraction(const Stage& stage, const std::string& report =
                                              "unpacked \"sub folder\\dpinst_32.exe\" and "
                                              "\"sub folder\\dpinst_64.exe\"\r\n");
/// The record of the tool's run.
std::string extraction(const Stage& stage, const std::string& archive);
