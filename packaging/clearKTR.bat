@echo off
rem Removes what is left of the product after it was uninstalled, and nothing else.
rem
rem     clearKTR.bat "C:\Folder of\the product"
rem
rem The program copies this file to the temp directory and runs that copy when it ends, hidden, with
rem the product folder as its one argument. The folder is ours if exactly one of its direct
rem sub-folders holds both UninstallUI.exe and a clearKTR.bat equal to this file.
rem
rem It prints nothing, asks nothing and removes itself at the end. It ends the command interpreter
rem that runs it, with one of these statuses:
rem
rem     0   the folder is gone
rem     2   refused, nothing was removed
rem     3   the program did not end in time, nothing was removed
rem     4   something is left: in use, out of our reach, a link that stays, installed again
rem
rem Four lines remove something: "del" of the program's file, "rd" of a link, "rd /s" of the folder,
rem and "del" of this file. Whatever is wrong before the first of them leads to :end.
setlocal EnableExtensions DisableDelayedExpansion
set "self=%~f0"
set "here=%~dp0"
set status=2

rem Variables of these names would hide what the interpreter says itself and change what "dir" does.
set "CD="
set "DIRCMD="

rem Exactly one argument, which names something that exists: only that has attributes. They contain
rem nothing of the argument, so that up to here it is harmless whatever it is.
set "attributes=%~a1"
if not defined attributes goto end
if not [%2]==[] goto end
set "folder=%~1"
if not defined folder goto end
set "folder=%folder:"=%"

rem It is a folder, and no link to one, of which the attributes have an l.
if /i not "%attributes:~0,1%"=="d" goto end
if not "%attributes:l=%"=="%attributes%" goto end

rem It begins with a drive and a backslash, so it is neither relative nor on another machine. Behind
rem that is nothing that makes two names of one: no wildcard, stream, slash, nor the tilde of short
rem names; no dots to be resolved, no backslash too many.
if not "%folder:~1,2%"==":\" goto end
set "part="
for /f "tokens=2 delims=*?<>|/:~" %%a in ("x%folder:~2%x") do set "part=%%a"
if defined part goto end
for %%p in ("%folder%\.") do if /i not "%%~fp"=="%folder%" goto end

rem It has two levels at least.
set "part="
for /f "tokens=3 delims=\" %%a in ("%folder%") do set "part=%%a"
if not defined part goto end

rem Without these there is no saying where the folders of the system and of the user are.
if not defined SystemRoot goto end
if not defined ProgramFiles goto end
if not defined USERPROFILE goto end
set "system=%SystemRoot:"=%\System32"
cd /d "%system%" 2>nul
if not exist "%system%\fc.exe" goto end
if not exist "%system%\ping.exe" goto end

rem It is none of the folders that have to stay, and none of them lies in it, nor does this file.
rem Nobody vouches for these variables, but without quotation marks they end no text. One that is
rem missing stands for a root, which is no harm.
for %%v in (TEMP TMP PUBLIC OneDrive APPDATA LOCALAPPDATA) do if not defined %%v set "%%v=\."
for %%v in (ProgramData ALLUSERSPROFILE ProgramW6432) do if not defined %%v set "%%v=\."
for %%v in (CommonProgramFiles CommonProgramW6432) do if not defined %%v set "%%v=\."
if not defined ProgramFiles(x86) set "ProgramFiles(x86)=\."
if not defined CommonProgramFiles(x86) set "CommonProgramFiles(x86)=\."
set "place=%here%" & call :stays
set "place=%TEMP:"=%" & call :stays
set "place=%TMP:"=%" & call :stays
set "place=%SystemRoot:"=%" & call :stays
set "place=%SystemRoot:"=%\System32" & call :stays
set "place=%SystemRoot:"=%\SysWOW64" & call :stays
set "place=%USERPROFILE:"=%" & call :stays
set "place=%USERPROFILE:"=%\Desktop" & call :stays
set "place=%PUBLIC:"=%" & call :stays
set "place=%PUBLIC:"=%\Desktop" & call :stays
set "place=%OneDrive:"=%" & call :stays
set "place=%OneDrive:"=%\Desktop" & call :stays
set "place=%APPDATA:"=%" & call :stays
set "place=%LOCALAPPDATA:"=%" & call :stays
set "place=%LOCALAPPDATA:"=%\Programs" & call :stays
set "place=%ProgramData:"=%" & call :stays
set "place=%ALLUSERSPROFILE:"=%" & call :stays
set "place=%ProgramFiles:"=%" & call :stays
set "place=%ProgramFiles(x86):"=%" & call :stays
set "place=%ProgramW6432:"=%" & call :stays
set "place=%CommonProgramFiles:"=%" & call :stays
set "place=%CommonProgramFiles(x86):"=%" & call :stays
set "place=%CommonProgramW6432:"=%" & call :stays

rem The same without those variables, should they be wrong: a profile holds the user's registry, and
rem folders that Windows shows in a way of its own hold its notes on that.
if exist "%folder%\ntuser.dat" goto end
if exist "%folder%\desktop.ini" goto end

rem It has the mark. "for" does not show hidden sub-folders: with one of them there is no counting.
cd /d "%folder%" 2>nul
if /i not "%CD%"=="%folder%" goto end
dir /b /adh >nul 2>nul
if not errorlevel 1 goto end
set found=0
for /d %%d in (*) do (
    set "entry=%%d"
    set "attributes=%%~ad"
    call :mark
)
if not %found%==1 goto end

rem From here on the folder is known to be ours. The file of a running program cannot be removed, so
rem its removal shows that the program has ended. Two minutes are for that and all the rest.
cd /d "%system%" 2>nul
set seconds=120
set status=3
:wait
del /f /q /a "%program%" >nul 2>nul
if not exist "%program%" goto remove
call :second
if %seconds% gtr 0 goto wait
goto end

rem Links go first, as links, so that none is left to be followed. "rd" follows none anyway, which
rem goes for those in hidden folders, too, where "for" does not look. As long as a link cannot be
rem removed, or a folder not be looked into, nothing else is. A program that is there again is a new
rem installation, and a folder that has become a link is not the one that was checked.
:remove
set status=0
if not exist "%folder%" goto end
set status=4
if exist "%program%" goto end
set "attributes="
for %%p in ("%folder%\.") do (
    set "entry=%%~nxp"
    set "attributes=%%~ap"
)
if not defined attributes goto end
if not "%attributes:l=%"=="%attributes%" goto end
cd /d "%folder%\.." 2>nul
set "kept="
call :unlink
cd /d "%system%" 2>nul
if not defined kept rd /s /q "%folder%" >nul 2>nul
if not exist "%folder%" goto remove
call :second
if %seconds% gtr 0 goto remove

rem A copy beside the program belongs to an installation and stays. The last line is read as a whole
rem before it is carried out: nothing is looked for in this file when it has gone.
:end
if exist "%here%UninstallUI.exe" exit %status%
del /f /q "%self%" >nul 2>nul & exit %status%

rem Ends all if the place is the folder to be removed, or is below it.
:stays
cd /d "%place%" 2>nul
:up
if /i "%CD%"=="%folder%" goto end
set "place=%CD%"
cd ..
if not "%CD%"=="%place%" goto up
exit /b

rem Counts the sub-folder that is looked at if it holds the mark: no links, and no folders as files.
:mark
if not defined attributes exit /b
if not "%attributes:l=%"=="%attributes%" exit /b
set "attributes="
for %%f in ("%entry%\UninstallUI.exe") do set "attributes=%%~af"
if not defined attributes exit /b
if not "%attributes:d=%"=="%attributes%" exit /b
if not "%attributes:l=%"=="%attributes%" exit /b
"%system%\fc.exe" /b "%self%" "%entry%\clearKTR.bat" >nul 2>nul
if errorlevel 1 exit /b
if not errorlevel 0 exit /b
set /a found+=1
set "program=%folder%\%entry%\UninstallUI.exe"
exit /b

rem Removes the entry of the current folder if it is a link, or else all links to folders below it.
rem This "rd" removes a link or an empty folder, never what is in it.
:unlink
if not defined attributes exit /b
if not "%attributes:l=%"=="%attributes%" goto link
set "above=%CD%"
cd "%entry%" 2>nul
if /i not "%CD%"=="%above%\%entry%" goto back
for /d %%d in (*) do (
    set "entry=%%d"
    set "attributes=%%~ad"
    call :unlink
)
cd ..
exit /b
:back
set kept=1
cd /d "%above%" 2>nul
exit /b
:link
rd "%entry%" >nul 2>nul
if exist "%entry%" set kept=1
exit /b

rem A second goes by.
:second
set /a seconds-=1
"%system%\ping.exe" -n 2 127.0.0.1 >nul 2>nul
exit /b
