; A rival for the time to the first dialog: the installer's dialog, from the usual installer maker.
!include nsDialogs.nsh
Name "Same dialog"
RequestExecutionLevel admin
XPStyle on
Page custom ShowChoices
Section
SectionEnd

Function ShowChoices
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 6u 5u 223u 14u "Please select the type of product to install."
    Pop $0
    ${NSD_CreateRadioButton} 88u 25u 59u 10u "Live Product"
    Pop $0
    ${NSD_Check} $0
    ${NSD_CreateRadioButton} 88u 41u 59u 10u "File Viewer"
    Pop $0
    ${NSD_CreateRadioButton} 88u 57u 59u 10u "Demonstration"
    Pop $0
    ${NSD_CreateButton} 152u 73u 50u 14u "Help"
    Pop $0
    nsDialogs::Show
FunctionEnd
