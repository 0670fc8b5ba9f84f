; A rival for the time to the hand-over: starts the setup utility beside it, and nothing else.
Name "Same hand-over"
RequestExecutionLevel admin
SilentInstall silent
Section
    ExecShell open "$EXEDIR\Setup.Exe"
SectionEnd
