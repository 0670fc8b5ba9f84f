// What the dialogs' templates say. Macros that the resource compiler understands too: the release
// engineer's tools foretell the dialogs from the same texts.
#pragma once

#define TEXT_LIVE_PRODUCT "Live Product"
#define TEXT_FILE_VIEWER "File Viewer"
#define TEXT_DEMONSTRATION "Demonstration"
#define TEXT_INSTALL "Install"
#define TEXT_CANCEL "Cancel"
#define TEXT_HELP "Help"

#define TEXT_UNINSTALL_CAPTION "Tavlink Protocol Analysis System"
// Kept: the odd blank; scripts in the field find the box by this label.
#define TEXT_SELECT_ALL "Select All/ Deselect All"
#define TEXT_UNINSTALL_YES "Yes, Uninstall Selected Version(s)"
#define TEXT_UNINSTALL_NO "No, Skip"
