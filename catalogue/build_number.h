// The build of the installer's own release. Its one home: raise it here and nowhere else. The
// catalogue, the version resource and the manifest take it from this file, so it holds macros that
// the resource compiler understands as well.
#pragma once

#define INSTALLER_BUILD_MAJOR 16
#define INSTALLER_BUILD_MINOR 4
#define INSTALLER_BUILD_RELEASE 10002
#define INSTALLER_BUILD_PATCH 0

#define INSTALLER_BUILD_QUOTED(text) #text
// NOLINTNEXTLINE(bugprone-macro-parentheses): the numbers are joined, nothing is computed.
#define INSTALLER_BUILD_JOINED(a, b, c, d) INSTALLER_BUILD_QUOTED(a.b.c.d)
/// "16.4.10002.0" and the like.
#define INSTALLER_BUILD_TEXT                                                                      \
    INSTALLER_BUILD_JOINED(INSTALLER_BUILD_MAJOR, INSTALLER_BUILD_MINOR, INSTALLER_BUILD_RELEASE, \
                           INSTALLER_BUILD_PATCH)
