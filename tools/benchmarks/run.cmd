@echo off
rem scripts/benchmark.py puts a number for ROUNDS.
rem Under Wine the first window brings up what stays, and would hold the report: not into it.
"%~dp0start_benchmark.exe" dialog 0 "%~dp0bare_dialog.exe"
echo start_benchmark dialog
"%~dp0start_benchmark.exe" dialog ROUNDS "%~dp0media\04.exe -dir %~dp0media" "%~dp0bare_dialog.exe" "%~dp0empty_dialog.exe" "%~dp0media\same_dialog.exe" >>"%~dp0report.txt" 2>&1
echo start_benchmark launch
"%~dp0start_benchmark.exe" launch ROUNDS "%~dp0media\1q.exe -dir %~dp0media" "%~dp0bare_launch.exe %~dp0media\Setup.Exe" "%~dp0media\same_launch.exe" >>"%~dp0report.txt" 2>&1
echo registry_benchmark
"%~dp0registry_benchmark.exe" >>"%~dp0report.txt" 2>&1
