@echo off
rem The clean-up script. It removes nothing; it records how it was called.
rem A variable has the journal writer's path: in this file it would have to be in the OEM code page.
"%KTR_NOTE%" clearKTR.bat start "script=%~f0" -- %*
