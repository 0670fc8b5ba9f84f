#pragma once

/// The event that the stand-in for the setup utility sets when it has been started.
inline constexpr const char* handOverEvent = "Installer benchmark hand-over";
