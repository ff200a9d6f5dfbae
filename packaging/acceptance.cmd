@echo off
rem Checks UninstallUI on this machine and writes report.html beside this file.
rem     acceptance.cmd              with the steps for a person
rem     acceptance.cmd /unattended  without them
rem The status is 0 if all passed, 1 if not, 2 if the checks could not run.
setlocal EnableExtensions DisableDelayedExpansion
set "ERRORLEVEL="
rem Explorer shows an archive like a folder, and runs this file alone from there.
if exist "%~dp0files\acceptance.exe" goto run
echo Unpack the whole archive and start acceptance.cmd there.
set status=2
goto end

:run
"%~dp0files\acceptance.exe" %*
set status=%ERRORLEVEL%

:end
rem A console that Explorer has opened closes with this file.
if "%~1"=="" pause
exit /b %status%
