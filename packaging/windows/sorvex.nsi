; SPDX-License-Identifier: MIT
; The installer for Windows, into the player's own program folder, which needs no rights: docs/installing.md. The game keeps
; its times there, beside its themes.
;
; All files of a version have one time. So a file whose time is neither that of the program which is already there nor that
; of the new one was changed by the player, and stays.
Target ${TARGET}
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

Name "Sorvex"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Sorvex"
RequestExecutionLevel user
SetCompressor /SOLID lzma
SetDateSave on
ManifestDPIAware true
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Sorvex"
VIAddVersionKey FileDescription "Sorvex Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "The Sorvex authors, MIT license"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Sorvex"
!define MUI_ICON "../icons/sorvex.ico"
!define MUI_UNICON "../icons/sorvex.ico"
!define MUI_WELCOMEPAGE_TEXT "Sorvex will be installed for you alone. Your best times, and themes that you changed or \
added, stay as they are.$\r$\n$\r$\n$_CLICK"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Sorvex.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var OldTime  ; of the version that is there, as high and low word
Var NewTime
Var Players  ; 1: the player's own

!macro TimeOf variable file
  ClearErrors
  GetFileTime "${file}" $R1 $R2
  ${If} ${Errors}
    StrCpy ${variable} ""
  ${Else}
    StrCpy ${variable} "$R1:$R2"
  ${EndIf}
!macroend

; Whether a file that is there is the player's.
!macro Look file
  ${If} ${FileExists} "${file}"
    !insertmacro TimeOf $R3 "${file}"
    ${If} $R3 != $OldTime
    ${AndIf} $R3 != $NewTime
      StrCpy $Players 1
    ${EndIf}
  ${EndIf}
!macroend

; A file that stands for itself: a sound, or the table of times, which is the player's from the first one.
!macro Single theme name
  StrCpy $Players 0
  !insertmacro Look "$OUTDIR\${name}"
  ${If} $Players = 0
    File "${FOLDER}/${theme}/${name}"
  ${EndIf}
!macroend

; Pictures and texts of a theme fit each other: a change in one makes all of them the player's.
!macro Theme theme
  SetOutPath "$INSTDIR\${theme}"
  StrCpy $Players 0
  FindFirst $R0 $R4 "$OUTDIR\*.*"
  ${DoWhile} $R4 != ""
    ${GetFileExt} $R4 $R5
    ${If} $R4 != "HighScores.ini"
    ${AndIf} $R5 != "wav"
    ${AndIf} $R5 != ""
    ${AndIf} $R4 != "."
    ${AndIf} $R4 != ".."
      !insertmacro Look "$OUTDIR\$R4"
    ${EndIf}
    FindNext $R0 $R4
  ${Loop}
  FindClose $R0
  ${If} $Players = 0
    File /x HighScores.ini /x *.wav "${FOLDER}/${theme}/*"
  ${EndIf}
  !insertmacro Single "${theme}" HitTube.wav
  !insertmacro Single "${theme}" LetGo.wav
  !insertmacro Single "${theme}" Pickup.wav
  !insertmacro Single "${theme}" PutInCont.wav
  !insertmacro Single "${theme}" HighScores.ini
!macroend

; A program that runs cannot be replaced.
!macro AwaitEnd
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\Sorvex.exe"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $R0 "$INSTDIR\Sorvex.exe" a
    ${IfNot} ${Errors}
      FileClose $R0
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Sorvex is running. Please close it first." /SD IDCANCEL IDRETRY +3
    SetErrorLevel 3
    Quit
  ${Loop}
!macroend

Section
  !insertmacro AwaitEnd
  InitPluginsDir
  File "/oname=$PLUGINSDIR\Sorvex.exe" "${FOLDER}/Sorvex.exe"
  !insertmacro TimeOf $NewTime "$PLUGINSDIR\Sorvex.exe"
  !insertmacro TimeOf $OldTime "$INSTDIR\Sorvex.exe"
  !include "${THEMES}"
  SetOutPath "$INSTDIR"
  File "${FOLDER}/sorvex-theme.exe"
  File "${FOLDER}/LICENSE.txt"
  ; Last: an installation that is interrupted continues with the next.
  File "${FOLDER}/Sorvex.exe"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Sorvex.lnk" "$INSTDIR\Sorvex.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "Sorvex"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "The Sorvex authors"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\Sorvex.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
SectionEnd

; Removes what has the program's time, and so no table with times; those go only on request (/TIMES in silent mode).
Section Uninstall
  !insertmacro AwaitEnd
  StrCpy $Players 1
  ${GetParameters} $R6
  ClearErrors
  ${GetOptions} $R6 "/TIMES" $R7
  ${IfNot} ${Errors}
    StrCpy $Players 0
  ${EndIf}
  MessageBox MB_YESNO|MB_DEFBUTTON2 "Remove your best times, too?" /SD IDNO IDNO +2
  StrCpy $Players 0
  !insertmacro TimeOf $OldTime "$INSTDIR\Sorvex.exe"
  FindFirst $R0 $R4 "$INSTDIR\*.*"
  ${DoWhile} $R4 != ""
    ${If} $R4 != "."
    ${AndIf} $R4 != ".."
    ${AndIf} ${FileExists} "$INSTDIR\$R4\*.*"
      FindFirst $R8 $R9 "$INSTDIR\$R4\*.*"
      ${DoWhile} $R9 != ""
        !insertmacro TimeOf $R3 "$INSTDIR\$R4\$R9"
        ${If} $R3 == $OldTime
          Delete "$INSTDIR\$R4\$R9"
        ${EndIf}
        FindNext $R8 $R9
      ${Loop}
      FindClose $R8
      ${If} $Players = 0
        Delete "$INSTDIR\$R4\HighScores.ini"
      ${EndIf}
      RMDir "$INSTDIR\$R4"
    ${EndIf}
    FindNext $R0 $R4
  ${Loop}
  FindClose $R0
  Delete "$INSTDIR\Sorvex.exe"
  Delete "$INSTDIR\sorvex-theme.exe"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Sorvex.lnk"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
