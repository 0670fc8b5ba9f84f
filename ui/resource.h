// Resource ids of the program. Dialog and control ids are those that accessibility tools and the
// field's unattended-installation scripts address; they do not change.
#pragma once

#define IDI_INSTALLER 128

#define IDD_INSTALL_PRODUCT 283
#define IDC_INSTALL_PROMPT 4001
#define IDC_LIVE_PRODUCT 4006
#define IDC_FILE_VIEWER 4007
#define IDC_DEMONSTRATION 4008
#define IDC_HELP_BUTTON 57670

#define IDD_ASK_UNINSTALL 575
#define IDC_VERSION_LIST 4034
#define IDC_VERSIONS_FOUND 4035
#define IDC_UNINSTALL_QUESTION 4036
#define IDC_SELECT_ALL 4037

// What the templates say; the dry run shows the dialogs with the same texts.
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
