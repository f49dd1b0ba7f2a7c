@echo off
rem check.cmd [all]: runs the tests of qvl on this machine and prints one line. The log of each program
rem is beside it. Without "all", cases are left out that check what only the runtime of the project's
rem own tests does; their names end in OnTestRuntime.
cd /d "%~dp0"
set failed=
set filter=--gtest_filter=-*OnTestRuntime*
if "%1"=="all" set filter=--gtest_filter=*
for %%p in (qvl_tests qvl_tests_version_6 activation_test activation_test_version_6 icon_refill_test icon_refill_test_version_6 qvl_windows_tests) do call :run %%p
if "%failed%"=="" (
  echo qvl check: all programs passed
  exit /b 0
)
echo qvl check: failed:%failed%. See the .log files.
exit /b 1

rem The status of a program that crashes is negative, so "if errorlevel 1" would not see it. A program
rem that is not run, because its log cannot be written, leaves the 1 of the first line.
:run
cmd /c exit 1
%1.exe %filter% > %1.log 2>&1
if not %errorlevel%==0 set failed=%failed% %1
exit /b 0
