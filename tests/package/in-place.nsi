; An uninstaller that runs from its own place until everything is removed.
Unicode true
Target amd64-unicode
Name "Dravik"
OutFile "${OUT}"
RequestExecutionLevel user
SilentInstall silent

Section
  FileOpen $0 "$EXEDIR\uninstall.began" w
  FileClose $0
  Sleep 4000
  Delete "$EXEDIR\KTRUI.exe"
  RMDir /r "$EXEDIR\data"
  FileOpen $0 "$EXEDIR\uninstall.ended" w
  FileClose $0
SectionEnd
