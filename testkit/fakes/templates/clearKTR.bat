@echo off
rem The clean-up script. It removes nothing; it writes down how it was called.
rem The journal writer is told by a variable: a path in here would have to be in the OEM code page.
"%KTR_NOTE%" clearKTR.bat start "script=%~f0" -- %*
