; An uninstaller of the kind that works where it lies: it runs until everything is gone.
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
