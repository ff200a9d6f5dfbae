; Writes an uninstaller beside itself. The uninstaller starts a copy of itself in the temp
; directory, so that its own file can be removed, and ends at once.
Unicode true
Target amd64-unicode
Name "Dravik"
OutFile "${OUT}"
RequestExecutionLevel user
SilentInstall silent
SilentUnInstall silent

Section
  WriteUninstaller "$EXEDIR\uninstall.exe"
SectionEnd

Section "Uninstall"
  FileOpen $0 "$INSTDIR\uninstall.began" w
  FileClose $0
  Sleep 4000
  Delete "$INSTDIR\KTRUI.exe"
  RMDir /r "$INSTDIR\data"
  FileOpen $0 "$INSTDIR\uninstall.ended" w
  FileClose $0
SectionEnd
