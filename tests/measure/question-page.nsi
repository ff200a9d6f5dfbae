; The program's first page as an installer system's own: the question, the reasons, two buttons.
; Nothing is uninstalled.
Unicode true
Target amd64-unicode
Name "Dravik Uninstall"
Caption "Dravik Uninstall"
OutFile "${OUT}"
RequestExecutionLevel user
ManifestDPIAware true
XPStyle on
InstallButtonText "Uninstall"
BrandingText " "

!include nsDialogs.nsh

Page custom AskForTheReason
Page instfiles

Function AskForTheReason
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 24u "Please tell us why you want to uninstall Dravik:"
  Pop $0
  ${NSD_CreateRadioButton} 0 40u 100% 12u "The price is too expensive"
  Pop $0
  ${NSD_CreateRadioButton} 0 56u 100% 12u "The product has solved my problem"
  Pop $0
  ${NSD_CreateRadioButton} 0 72u 100% 12u "The product doesn't solve my problem"
  Pop $0
  ${NSD_CreateRadioButton} 0 88u 100% 12u "I have other reasons"
  Pop $0
  ; Painted last, in a colour that nothing else has: it tells that the page is painted.
  ${NSD_CreateLabel} 0 -4u 100% 4u ""
  Pop $0
  SetCtlColors $0 "" 0x1F6FFF
  nsDialogs::Show
FunctionEnd

Section
SectionEnd
