@echo off
rem Runs every test of the installer on this Windows and writes report.txt, to be sent back.
rem Start as administrator. Takes a few minutes; dialogs come and go by themselves meanwhile.
rem Nothing is installed, and what the tests make they take away: see README.txt.
setlocal
pushd "%~dp0programs"
set REPORT=%~dp0report.txt
set STAMPED_INSTALLERS=%~dp0installers
set UNSTAMPED_INSTALLER=%~dp0release\installer.exe
set FAILED=

echo Report of the installer's tests > "%REPORT%"
echo %DATE% %TIME% >> "%REPORT%"
ver >> "%REPORT%"
echo processor %PROCESSOR_ARCHITECTURE% %PROCESSOR_ARCHITEW6432% >> "%REPORT%"
if exist ..\build.txt type ..\build.txt >> "%REPORT%"

echo == kit_guard before >> "%REPORT%"
tools\windows_kit\kit_guard.exe before >> "%REPORT%" 2>&1
if not "%ERRORLEVEL%"=="0" goto refused

call :suite tests decision_tests
call :suite tests windows_tests
call :suite dialog_driver end_to_end_tests

echo == kit_guard after >> "%REPORT%"
tools\windows_kit\kit_guard.exe after >> "%REPORT%" 2>&1
if not "%ERRORLEVEL%"=="0" set FAILED=%FAILED% kit_guard

set RESULT=0
if "%FAILED%"=="" goto passed
set RESULT=1
echo == FAILED:%FAILED% >> "%REPORT%"
echo FAILED:%FAILED%. Please send report.txt back.
goto end

:passed
echo == all passed >> "%REPORT%"
echo All passed. Please send report.txt back.
goto end

:refused
set RESULT=2
echo == REFUSED, nothing was run >> "%REPORT%"
echo Nothing was run. The reasons:
type "%REPORT%"
goto end

:suite
echo %2...
echo == %2 >> "%REPORT%"
%1\%2.exe >> "%REPORT%" 2>&1
set CODE=%ERRORLEVEL%
rem The code of a crash is below 0, which "if errorlevel" takes for a success.
if not "%CODE%"=="0" echo %2 ended with %CODE% >> "%REPORT%"
if not "%CODE%"=="0" set FAILED=%FAILED% %2
exit /b 0

rem On ReactOS "exit /b" always ends with 0, and so does what comes before a jump: this stays last.
:end
popd
cmd /c exit %RESULT%
