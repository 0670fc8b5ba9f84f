; A rival for the time to the launch: starts the setup utility beside it, and nothing else.
Name "Same launch"
RequestExecutionLevel admin
SilentInstall silent
Section
    ExecShell open "$EXEDIR\Setup.Exe"
SectionEnd
