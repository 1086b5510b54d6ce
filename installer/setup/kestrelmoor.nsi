; The set-up program for one computer. build_setup.py gives its names as defines and writes FILES_SCRIPT, the
; macros that go over the program's files. /LANG=1031 speaks the language of that number instead of the user's,
; /D=C:\Folder (last, without quotes) names another folder, /S asks nothing. The exit code is then
;   0  done                        5  no administrator
;   1  broken off by the user     32  Moorlink.exe runs: end it, or install when nobody is logged on
;   2  broken off by an error     any other: what msiexec said when the package for fleets could not be removed
Unicode true
SetCompressor /SOLID lzma
SetDateSave off
AllowSkipFiles off
ManifestSupportedOS all
ManifestDPIAware true
RequestExecutionLevel admin

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include ${FILES_SCRIPT}

Name "${NAME}"
BrandingText "${NAME} ${VERSION_TEXT}"
OutFile "${OUT_FILE}"
InstallDir "$PROGRAMFILES32\${NAME}"
InstallDirRegKey HKLM "${RECORD_KEY}" "InstallLocation"

!define UNINSTALLER "${NAME}-uninstall.exe"
!define MENU_FOLDER "$SMPROGRAMS\${NAME}"
!define BROKEN_OFF 2
!define IN_USE 32
!define NO_ADMINISTRATOR 5
!define DONE_AFTER_RESTART 3010

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!include texts.nsh

VIProductVersion "${VERSION_RECORD}"
VIFileVersion "${VERSION_RECORD}"
VIAddVersionKey /LANG=1033 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=1033 "FileDescription" "Installs ${NAME}"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION_TEXT}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "Free software under the MIT licence, without any warranty"
VIAddVersionKey /LANG=1033 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION_TEXT}"

!ifdef SIGN_COMMAND
  !uninstfinalize '"${SIGN_COMMAND}" "%1"'
!endif

; A program that runs can't be opened for writing, in whichever session it runs.
!macro REFUSE_WHILE_OPEN PROGRAM
  ${Do}
    ${IfNot} ${FileExists} "${PROGRAM}"
      ${ExitDo}
    ${EndIf}
    ClearErrors
    FileOpen $0 "${PROGRAM}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(PROGRAM_IS_OPEN)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel ${IN_USE}
      Abort
    ${EndIf}
  ${Loop}
!macroend

; Before Windows Vista nobody asks for the rights that RequestExecutionLevel names.
!macro REFUSE_OTHERS_THAN_ADMINISTRATORS
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 != "Admin"
  ${AndIf} $0 != ""
    MessageBox MB_OK|MB_ICONSTOP "$(NEEDS_ADMINISTRATOR)" /SD IDOK
    SetErrorLevel ${NO_ADMINISTRATOR}
    Quit
  ${EndIf}
!macroend

!macro BREAK_OFF_UNLESS_ZERO CODE
  ${If} ${CODE} != 0
    SetErrorLevel ${CODE}
    Abort
  ${EndIf}
!macroend

!macro BREAK_OFF_AT_ERRORS
  ${If} ${Errors}
    SetErrorLevel ${BROKEN_OFF}
    Abort
  ${EndIf}
!macroend

!macro SPEAK_LANGUAGE_ASKED_FOR
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/LANG=" $1
  ${IfNot} ${Errors}
    StrCpy $LANGUAGE $1
  ${EndIf}
!macroend

Function .onInit
  !insertmacro SPEAK_LANGUAGE_ASKED_FOR
  !insertmacro REFUSE_OTHERS_THAN_ADMINISTRATORS
FunctionEnd

Function un.onInit
  !insertmacro SPEAK_LANGUAGE_ASKED_FOR
  !insertmacro REFUSE_OTHERS_THAN_ADMINISTRATORS
FunctionEnd

; The one installed, by whichever way, and the one in whose place this one would go.
Function RefuseWhileOpen
  ReadRegStr $1 HKLM "${RECORD_KEY}" "InstallLocation"
  ${If} $1 != ""
    !insertmacro REFUSE_WHILE_OPEN "$1\${EXECUTABLE}"
  ${EndIf}
  !insertmacro REFUSE_WHILE_OPEN "$INSTDIR\${EXECUTABLE}"
FunctionEnd

; The package for fleets, of whichever version.
Function RemovePackages
  ${Do}
    StrCpy $1 ""
    System::Call 'msi::MsiEnumRelatedProductsW(w "${UPGRADE_CODE}", i 0, i 0, w .r1) i .r2'
    ${If} $2 != 0
      ${ExitDo}
    ${EndIf}
    ExecWait '"$SYSDIR\msiexec.exe" /x $1 /qn /norestart' $0
    ${If} $0 == ${DONE_AFTER_RESTART}
      StrCpy $0 0
    ${EndIf}
    !insertmacro BREAK_OFF_UNLESS_ZERO $0
  ${Loop}
FunctionEnd

; By its own removal, which knows the files that it brought.
Function RemoveEarlierSetup
  ReadRegStr $1 HKLM "${RECORD_KEY}" "SetupUninstaller"
  ${If} $1 != ""
  ${AndIf} ${FileExists} $1
    ${GetParent} $1 $2
    ExecWait '"$1" /S _?=$2' $0
    !insertmacro BREAK_OFF_UNLESS_ZERO $0
    Delete $1
    RMDir $2
  ${EndIf}
FunctionEnd

!macro WRITE_RECORD NAME DATA
  WriteRegStr HKLM "${RECORD_KEY}" "${NAME}" `${DATA}`
!macroend

Function WriteRecord
  !insertmacro WRITE_RECORD DisplayName "${NAME}"
  !insertmacro WRITE_RECORD DisplayVersion "${VERSION_TEXT}"
  !insertmacro WRITE_RECORD DisplayIcon "$INSTDIR\${EXECUTABLE},0"
  !insertmacro WRITE_RECORD Publisher "${PUBLISHER}"
  !insertmacro WRITE_RECORD UrlInfoAbout "${WEB_ADDRESS}"
  !insertmacro WRITE_RECORD InstallLocation "$INSTDIR"
  !insertmacro WRITE_RECORD UninstallString '"$INSTDIR\${UNINSTALLER}"'
  !insertmacro WRITE_RECORD QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /S'
  !insertmacro WRITE_RECORD SetupUninstaller "$INSTDIR\${UNINSTALLER}"
  WriteRegDWORD HKLM "${RECORD_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKLM "${RECORD_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${RECORD_KEY}" "NoRepair" 1
FunctionEnd

; A link's working folder is the folder of SetOutPath. The set-up program's Spanish has another number than ours.
Function AddToStartMenu
  SetShellVarContext all
  SetOutPath "$INSTDIR"
  CreateDirectory "${MENU_FOLDER}"
  CreateShortcut "${MENU_FOLDER}\${NAME}.lnk" "$INSTDIR\${EXECUTABLE}" "${WINDOW_SWITCH}"
  StrCpy $0 "Help-$LANGUAGE.html"
  ${If} $LANGUAGE == 1034
    StrCpy $0 "Help-3082.html"
  ${EndIf}
  ${IfNot} ${FileExists} "$INSTDIR\$0"
    StrCpy $0 "Help-1033.html"
  ${EndIf}
  ${If} ${FileExists} "$INSTDIR\$0"
    CreateShortcut "${MENU_FOLDER}\${NAME} Help.lnk" "$INSTDIR\$0"
  ${EndIf}
FunctionEnd

Section
  Call RefuseWhileOpen
  Call RemovePackages
  Call RemoveEarlierSetup
  ClearErrors
  SetOutPath "$INSTDIR"
  !insertmacro INSTALL_FILES
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  !insertmacro WRITE_LANGUAGES
  Call AddToStartMenu
  Call WriteRecord
  !insertmacro BREAK_OFF_AT_ERRORS
SectionEnd

; What users have set for themselves stays, as does what somebody else has put beside the program. Where a file
; can't be deleted the record stays too. The first entry of the libraries stays as long as there are entries of
; others: the program can't bear a list of one.
Section Uninstall
  !insertmacro REFUSE_WHILE_OPEN "$INSTDIR\${EXECUTABLE}"
  SetShellVarContext all
  Delete "${MENU_FOLDER}\${NAME}.lnk"
  Delete "${MENU_FOLDER}\${NAME} Help.lnk"
  RMDir "${MENU_FOLDER}"
  ClearErrors
  !insertmacro DELETE_FILES
  !insertmacro BREAK_OFF_AT_ERRORS
  Delete "$INSTDIR\${UNINSTALLER}"
  RMDir "$INSTDIR"
  !insertmacro DELETE_LANGUAGES
  EnumRegValue $0 HKLM "${LANGUAGES_KEY}" 1
  ${If} $0 == ""
    DeleteRegValue HKLM "${LANGUAGES_KEY}" "${FIRST_LANGUAGE}"
  ${EndIf}
  DeleteRegKey /ifempty HKLM "${LANGUAGES_KEY}"
  DeleteRegKey /ifempty HKLM "${SETTINGS_KEY}"
  DeleteRegKey /ifempty HKLM "${PUBLISHER_KEY}"
  DeleteRegKey HKLM "${RECORD_KEY}"
SectionEnd
