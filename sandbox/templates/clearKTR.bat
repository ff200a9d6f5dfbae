@echo off
rem The clean-up script. It removes nothing; it writes down how it was called.
"@NOTE@" clearKTR.bat start "script=%~f0" -- %*
