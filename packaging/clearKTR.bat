@echo off
rem Removes what is left of the product after it was uninstalled, and nothing else.
rem
rem     clearKTR.bat "C:\Folder of\the product"
rem
rem The program copies this file to the temp directory. When the program ends, it runs that copy,
rem hidden, with the product folder as its one argument. The folder is ours if exactly one of its
rem direct sub-folders has the mark: both UninstallUI.exe and a clearKTR.bat equal to this file.
rem
rem The script prints nothing, asks nothing and deletes itself at the end. It ends the command
rem interpreter with one of these statuses:
rem
rem     0   the folder is gone
rem     2   refused, nothing was removed
rem     3   the program did not end in time, nothing was removed
rem     4   something is left: in use, out of our reach, a link that stays, installed again
rem
rem Five lines remove something: "del" of the program's file, "rd" of a link, "rd /s" of what is in
rem the folder, "rd" of the empty folder, and "del" of this file. Whatever is wrong before the first
rem of them leads to :end, or to an exit that removes nothing.
rem
rem Three rules keep the script safe:
rem - "cd" can fail: it is followed by a look at the current folder.
rem - No variable from outside stands in the body of a "for": there the interpreter takes a percent
rem   sign in a name, with the letter behind it, for a loop variable.
rem - Windows lets no program rename or replace the current folder or a folder above it. So the
rem   script stays in the product folder from the checks to the removal.
setlocal EnableExtensions DisableDelayedExpansion
set "self=%~f0"
set "name=%~nx0"
set "here=%~dp0"
set status=2

rem A copy beside a program belongs to an installation. It does nothing, and it stays.
if exist "%here%UninstallUI.exe" exit %status%

rem Variables of these names would hide the interpreter's own values and change what "dir" does.
set "CD="
set "RANDOM="
set "DIRCMD="

rem There is exactly one argument. It names something that exists, or it would have no attributes.
rem The attributes contain nothing of the argument, so the lines up to here are safe with any text.
set "attributes=%~a1"
if not defined attributes goto end
if not [%2]==[] goto end
set "folder=%~1"
if not defined folder goto end
set "folder=%folder:"=%"

rem Without these variables the script cannot know the folders of the system and of the user.
if not defined SystemRoot goto end
if not defined ProgramFiles goto end
if not defined USERPROFILE goto end
set "system=%SystemRoot:"=%\System32"
cd /d "%system%" >nul 2>nul
if /i not "%CD%"=="%system%" goto end
if not exist "%system%\fc.exe" goto end
if not exist "%system%\ping.exe" goto end

rem The interpreter opens this file again for each line and goes on where it stopped. Another start
rem of the program may meanwhile replace the copy in the temp directory, even by another version. So
rem this copy first takes a name of its own: nothing replaces it, and at the end it deletes itself
rem and no other copy. The interpreter reads the whole block before it runs it. Under a name that
rem begins with clearKTR- the script skips this step.
rem A virus scanner may hold the file for a moment, so there are ten attempts. Scripts that start in
rem the same second draw the same numbers, so only the status of "ren" tells who got the name. A
rem successful "ren" leaves an earlier status in place; "ver" clears it.
:draw
set "own=clearKTR-%RANDOM%-%RANDOM%.bat"
if exist "%here%%own%" goto draw
set "renamed="
if /i not "%name:~0,9%"=="clearKTR-" (
    for %%i in ("%self%") do for /l %%j in (1,1,10) do (
        ver >nul 2>nul
        if not defined renamed ren "%%~i" "%own%" >nul 2>nul
        if not errorlevel 1 if exist "%%~dpi%own%" set renamed=1
        if not defined renamed .\ping.exe -n 2 127.0.0.1 >nul 2>nul
    )
    if not defined renamed exit %status%
    "%here%%own%" "%folder%"
)

rem Another start may have replaced the copy before it was renamed. If that is another version,
rem the interpreter goes on in it near this offset, about 4 KB from its beginning. So no version may
rem remove anything before this line.

rem It is a folder and no link: the attributes of a link contain an l.
if /i not "%attributes:~0,1%"=="d" goto end
if not "%attributes:l=%"=="%attributes%" goto end

rem The path begins with a drive and a backslash, so it is neither relative nor on another machine.
rem It contains nothing that gives one folder two names: no wildcard, stream or slash, no tilde of a
rem short name, no level that ends with a space, no dots to resolve, no doubled backslash.
if not "%folder:~1,2%"==":\" goto end
if not "%folder: \=%"=="%folder%" goto end
set "part="
for /f "tokens=2 delims=*?<>|/:~" %%i in ("x%folder:~2%x") do set "part=%%i"
if defined part goto end
for %%i in ("%folder%\.") do set "part=%%~fi"
if /i not "%part%"=="%folder%" goto end

rem It has two levels at least.
set "part="
for /f "tokens=3 delims=\" %%i in ("%folder%") do set "part=%%i"
if not defined part goto end

rem It is none of the folders that must stay, and neither they nor this file lie in it. These
rem variables are not trusted: the script removes their quotation marks, so that none ends a quoted
rem string. A missing one becomes a root, which is harmless.
for %%i in (TEMP TMP PUBLIC OneDrive APPDATA LOCALAPPDATA) do if not defined %%i set "%%i=\."
for %%i in (ProgramData ALLUSERSPROFILE ProgramW6432) do if not defined %%i set "%%i=\."
for %%i in (CommonProgramFiles CommonProgramW6432) do if not defined %%i set "%%i=\."
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

rem No folder above it is a link either: through a link, a folder that must stay has another path.
rem From here to the removal the script stays in the folder.
cd /d "%folder%" >nul 2>nul
if /i not "%CD%"=="%folder%" goto end
set "place=%folder%"
:above
set "attributes="
for %%i in ("%place%\.") do set "attributes=%%~ai"
if not defined attributes goto end
if not "%attributes:l=%"=="%attributes%" goto end
for %%i in ("%place%\..") do set "place=%%~fi"
if not "%place:~3%"=="" goto above

rem It contains no entry that is typical of a folder that must stay. This check uses no path, so it
rem also recognises such a folder under another drive letter. In this order: a profile or a folder
rem of the shell, the folder of this file, the one above it, application data, AppData, the
rem profiles, the programs' folders, the system's folders, a whole drive. Names that a product may
rem use itself, such as Temp or Windows, are not in the list.
for %%i in (ntuser.dat desktop.ini) do if exist "%%i" goto end
if exist "%name%" goto end
if exist "Temp\%name%" goto end
for %%i in (Microsoft LocalLow "All Users") do if exist "%%~i" goto end
for %%i in ("Common Files" "microsoft shared") do if exist "%%~i" goto end
for %%i in (System32 kernel32.dll "Program Files") do if exist "%%~i" goto end

rem Nor is it the Programs folder of application data, which lies beside Microsoft.
for %%i in (.) do if /i "%%~nxi"=="Programs" if exist "..\Microsoft" goto end

rem It has the mark. "for" does not show hidden sub-folders, so with one of them there is no count.
dir /b /adh >nul 2>nul
if not errorlevel 1 goto end
set found=0
for /d %%i in (*) do (
    set "entry=%%i"
    set "attributes=%%~ai"
    call :mark
)
if not %found%==1 goto end

rem The folder is ours. The script waits in the program directory: from there nothing but the file
rem itself can be exchanged.
cd "%program%" >nul 2>nul
if /i not "%CD%"=="%folder%\%program%" goto end
call :look

rem Windows deletes no file of a running program, so the deletion shows that the program has ended.
rem "del" would delete all files of a folder of that name, even through a link. So the script looks
rem before each attempt, and with a wildcard "del" never takes a name for that of a folder. A file
rem that cannot be looked at is in use. Two minutes are for this wait and for all that follows.
set seconds=120
:wait
set "attributes="
for %%i in (UninstallUI.exe) do set "attributes=%%~ai"
if not defined attributes if not exist "UninstallUI.exe" goto ended
if not defined attributes goto busy
if not "%attributes:d=%"=="%attributes%" goto end
if not "%attributes:l=%"=="%attributes%" goto end
del /f /q /a "UninstallUI.ex?" >nul 2>nul
if not exist "UninstallUI.exe" goto ended
:busy
call :second
if %seconds% gtr 0 goto wait
set status=3
goto end

:ended
set status=4
if exist "UninstallUI.exe" goto end
cd .. >nul 2>nul
if /i not "%CD%"=="%folder%" goto end

rem Links go first, as links, so that nothing can follow them. "rd /s" follows none on Windows, also
rem in hidden folders, which "for" does not show. As long as a link stays, or the script cannot look
rem into a folder, it removes nothing else. A program that is there again is a new installation.
rem No program can replace the current folder, but an empty one can become a link where it stands.
:remove
call :look
if exist "%program%\UninstallUI.exe" goto end
set "kept="
for /d %%i in (*) do (
    set "entry=%%i"
    set "attributes=%%~ai"
    call :unlink
)
if /i not "%CD%"=="%folder%" goto end
call :look
if not defined kept rd /s /q "." >nul 2>nul

rem The script leaves the folder only when no file and no folder is left in it.
dir /b /a-d >nul 2>nul
if not errorlevel 1 goto again
for /d %%i in (*) do goto again
for %%i in ("%folder%\.") do set "entry=%%~nxi"
cd .. >nul 2>nul
if /i not "%CD%\%entry%"=="%folder%" goto end

rem This "rd" removes an empty folder or a link, never what is in them.
:leave
rd "%entry%" >nul 2>nul
if not exist "%entry%" goto gone
call :second
if %seconds% gtr 0 goto leave
goto end
:gone
set status=0
goto end

:again
call :second
if %seconds% gtr 0 goto remove

rem The interpreter reads the last line as a whole before it runs it, so it needs nothing from this
rem file when the file is gone.
:end
del /f /q "%self%" >nul 2>nul & exit %status%

rem Ends the script if the place is the folder, or lies in it.
:stays
cd /d "%place%" >nul 2>nul
:up
if /i "%CD%"=="%folder%" goto end
set "place=%CD%"
cd .. >nul 2>nul
if not "%CD%"=="%place%" goto up
exit /b

rem Ends the script if the current folder has become a link, or cannot be looked at.
:look
set "attributes="
for %%i in (.) do set "attributes=%%~ai"
if not defined attributes goto end
if not "%attributes:l=%"=="%attributes%" goto end
exit /b

rem Counts the sub-folder if it has the mark. A link does not count, nor a folder named like a file.
:mark
if not defined attributes exit /b
if not "%attributes:l=%"=="%attributes%" exit /b
set "attributes="
for %%i in ("%entry%\UninstallUI.exe") do set "attributes=%%~ai"
if not defined attributes exit /b
if not "%attributes:d=%"=="%attributes%" exit /b
if not "%attributes:l=%"=="%attributes%" exit /b
"%system%\fc.exe" /b "%self%" "%entry%\clearKTR.bat" >nul 2>nul
if errorlevel 1 exit /b
if not errorlevel 0 exit /b
set /a found+=1
set "program=%entry%"
exit /b

rem Removes the entry of the current folder if it is a link, else all links to folders below it. An
rem entry without readable attributes stays, and everything with it. The second look at the
rem attributes comes from within the entry, which no program can replace any more.
:unlink
if defined kept exit /b
if /i not "%attributes:~0,1%"=="d" goto keep
if not "%attributes:l=%"=="%attributes%" goto link
set "above=%CD%"
cd "%entry%" >nul 2>nul
if /i not "%CD%"=="%above%\%entry%" goto back
set "attributes="
for %%i in (.) do set "attributes=%%~ai"
if not defined attributes goto back
if not "%attributes:l=%"=="%attributes%" goto back
for /d %%i in (*) do (
    set "entry=%%i"
    set "attributes=%%~ai"
    call :unlink
)
cd .. >nul 2>nul
exit /b
:link
rd "%entry%" >nul 2>nul
if not exist "%entry%" exit /b
goto keep
:back
cd /d "%above%" >nul 2>nul
:keep
set kept=1
exit /b

rem A second goes by.
:second
set /a seconds-=1
"%system%\ping.exe" -n 2 127.0.0.1 >nul 2>nul
exit /b
