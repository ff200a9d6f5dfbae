@echo off
rem Checks UninstallUI on this machine and writes report.html beside this file.
rem     acceptance.cmd              with the steps for a person
rem     acceptance.cmd /unattended  without them
rem The status is 0 only if nothing failed.
setlocal EnableExtensions DisableDelayedExpansion
"%~dp0files\acceptance.exe" %*
exit /b %ERRORLEVEL%
