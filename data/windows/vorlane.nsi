; The Windows installer: vorlane.exe and vorlane-cli.exe, a Start menu entry, the .npc file type
; (its icon, the verb "Open with Vorlane", a double click opens the file), an entry under the
; installed programs, and the uninstaller that takes all of it away again.
;
; For the current user (the default: no administrator rights, %LOCALAPPDATA%\Programs\Vorlane,
; HKCU) or for all users (Program Files, HKLM), chosen on the first page or on the command line:
;   vorlane-VERSION-setup.exe [/S] [/CURRENTUSER | /ALLUSERS] [/D=FOLDER]
;   uninstall.exe [/S]
; /S runs without a window, for scripts; /D= (last, no quotes) sets the folder. An install for all
; users started without administrator rights asks for them (UAC) and starts anew with them; a
; silent one fails with exit code 740 instead. Exit code 0 is success.
;
; scripts/package runs makensis with -DVERSION= (the project's version), -DPROGRAMS= (the folder
; of the two programs), -DDATA= (the folder of the icon) and -DOUTFILE=.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include nsDialogs.nsh
!include Integration.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vorlane"
!define PROGID "Vorlane.npc"
!define USER_PROGRAM_FILES "{5CD7AEE2-2219-4A67-B85D-6C9CE15660CB}" ; FOLDERID_UserProgramFiles
!define ERROR_ELEVATION_REQUIRED 740
!define ERROR_CANCELLED 1223

Name "Vorlane"
OutFile "${OUTFILE}"
BrandingText "Vorlane ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"

!define MUI_ICON "${DATA}\vorlane.ico"
!define MUI_UNICON "${DATA}\vorlane.ico"
!define MUI_ABORTWARNING

Var AllUsers      ; 1: for all users, 0: for the current user
Var ModeGiven     ; 1 when /ALLUSERS or /CURRENTUSER chose the mode
Var FolderGiven   ; 1 when /D= chose the folder
Var Admin         ; 1 when this process has administrator rights
Var ModePage.AllUsers

Page custom Mode_Page Mode_Page_Leave
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\vorlane.exe"
!define MUI_PAGE_CUSTOMFUNCTION_SHOW Finish_Page_Show
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; English, and Russian on a Windows whose language is Russian.
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Russian"

!macro Version_Keys LANGUAGE
  VIAddVersionKey /LANG=${LANGUAGE} "ProductName" "Vorlane"
  VIAddVersionKey /LANG=${LANGUAGE} "CompanyName" "Vorlane"
  VIAddVersionKey /LANG=${LANGUAGE} "FileDescription" "Vorlane ${VERSION} Setup"
  VIAddVersionKey /LANG=${LANGUAGE} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} "ProductVersion" "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} "OriginalFilename" "vorlane-${VERSION}-setup.exe"
  VIAddVersionKey /LANG=${LANGUAGE} "LegalCopyright" "Copyright 2026 The Vorlane developers"
!macroend
!insertmacro Version_Keys ${LANG_ENGLISH}
!insertmacro Version_Keys ${LANG_RUSSIAN}

LangString Mode_Title ${LANG_ENGLISH} "Choose Users"
LangString Mode_Title ${LANG_RUSSIAN} "Выбор пользователей"
LangString Mode_Subtitle ${LANG_ENGLISH} "Choose for whom to install Vorlane."
LangString Mode_Subtitle ${LANG_RUSSIAN} "Выберите, для кого установить Vorlane."
LangString Mode_Text ${LANG_ENGLISH} "Vorlane can be installed for you alone, without administrator rights, or for everyone who uses this computer, which needs them."
LangString Mode_Text ${LANG_RUSSIAN} "Vorlane можно установить только для вас, без прав администратора, или для всех пользователей этого компьютера: для этого нужны права администратора."
LangString Mode_Current ${LANG_ENGLISH} "Only for &me"
LangString Mode_Current ${LANG_RUSSIAN} "Только для &меня"
LangString Mode_All ${LANG_ENGLISH} "For &all users of this computer (administrator rights)"
LangString Mode_All ${LANG_RUSSIAN} "Для &всех пользователей компьютера (права администратора)"
LangString Refused ${LANG_ENGLISH} "Vorlane can't be installed for all users without administrator rights. Install it only for you, or allow the change when Windows asks."
LangString Refused ${LANG_RUSSIAN} "Без прав администратора Vorlane нельзя установить для всех пользователей. Установите его только для себя или разрешите изменения, когда Windows спросит."
LangString Both_Modes ${LANG_ENGLISH} "/ALLUSERS and /CURRENTUSER exclude each other: give one of them."
LangString Both_Modes ${LANG_RUSSIAN} "/ALLUSERS и /CURRENTUSER исключают друг друга: укажите один из них."
LangString Type_Name ${LANG_ENGLISH} "JA2 NPC script"
LangString Type_Name ${LANG_RUSSIAN} "Сценарий НПЦ JA2"
LangString Open_Verb ${LANG_ENGLISH} "Open with Vorlane"
LangString Open_Verb ${LANG_RUSSIAN} "Открыть в Vorlane"
LangString Shortcut_Text ${LANG_ENGLISH} "Read and edit the NPC script files of Jagged Alliance 2 and Unfinished Business"
LangString Shortcut_Text ${LANG_RUSSIAN} "Чтение и правка файлов сценариев НПЦ игр Jagged Alliance 2 и Unfinished Business"

; The mode from /ALLUSERS or /CURRENTUSER, whether this process has administrator rights, and an
; install for all users without them: started anew with them, or refused when silent.
!macro Read_Command_Line UN
  ${${UN}GetParameters} $R0
  StrCpy $ModeGiven 0
  ClearErrors
  ${${UN}GetOptions} $R0 "/ALLUSERS" $R1
  ${IfNot} ${Errors}
    StrCpy $AllUsers 1
    StrCpy $ModeGiven 1
  ${EndIf}
  ClearErrors
  ${${UN}GetOptions} $R0 "/CURRENTUSER" $R1
  ${IfNot} ${Errors}
    ${If} $ModeGiven == 1
      MessageBox MB_ICONSTOP|MB_OK "$(Both_Modes)" /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    StrCpy $AllUsers 0
    StrCpy $ModeGiven 1
  ${EndIf}
  UserInfo::GetAccountType
  Pop $R1
  ${If} $R1 == "Admin"
    StrCpy $Admin 1
  ${Else}
    StrCpy $Admin 0
  ${EndIf}
!macroend

; Starts this program anew with administrator rights, for all users, and ends this one. Where the
; rights are refused, the caller goes on.
!macro Restart_As_Admin PARAMETERS
  ClearErrors
  ExecShell "runas" "$EXEPATH" "${PARAMETERS}"
  ${IfNot} ${Errors}
    Quit
  ${EndIf}
  MessageBox MB_ICONEXCLAMATION|MB_OK "$(Refused)" /SD IDOK
!macroend

; The folders and registry root of the mode, and the folder to install to: the one of an earlier
; install in this mode, else the mode's own, unless /D= chose it.
Function Set_Mode
  ${If} $AllUsers == 1
    SetShellVarContext all
    StrCpy $R0 "$PROGRAMFILES64\Vorlane"
  ${Else}
    SetShellVarContext current
    GetKnownFolderPath $R0 ${USER_PROGRAM_FILES}
    ${If} $R0 == ""
      StrCpy $R0 "$LOCALAPPDATA\Programs"
    ${EndIf}
    StrCpy $R0 "$R0\Vorlane"
  ${EndIf}
  ReadRegStr $R1 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $R1 != ""
    StrCpy $R0 $R1
  ${EndIf}
  ${If} $FolderGiven == 0
    StrCpy $INSTDIR $R0
  ${EndIf}
FunctionEnd

Function .onInit
  ; /D= sets INSTDIR before this runs; no InstallDir leaves it empty otherwise.
  ${If} $INSTDIR == ""
    StrCpy $FolderGiven 0
  ${Else}
    StrCpy $FolderGiven 1
  ${EndIf}
  StrCpy $AllUsers 0
  !insertmacro Read_Command_Line ""
  ${If} $AllUsers == 1
  ${AndIf} $Admin == 0
    ${If} ${Silent}
      SetErrorLevel ${ERROR_ELEVATION_REQUIRED}
      Quit
    ${EndIf}
    ${If} $FolderGiven == 1
      !insertmacro Restart_As_Admin "/ALLUSERS /D=$INSTDIR"
    ${Else}
      !insertmacro Restart_As_Admin "/ALLUSERS"
    ${EndIf}
    SetErrorLevel ${ERROR_CANCELLED}
    Quit
  ${EndIf}
  Call Set_Mode
FunctionEnd

Function Mode_Page
  ${If} $ModeGiven == 1
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "$(Mode_Title)" "$(Mode_Subtitle)"
  nsDialogs::Create 1018
  Pop $R0
  ${NSD_CreateLabel} 0 0 100% 36u "$(Mode_Text)"
  Pop $R0
  ${NSD_CreateRadioButton} 10u 44u -10u 12u "$(Mode_Current)"
  Pop $R1
  ${NSD_AddStyle} $R1 ${WS_GROUP}
  ${NSD_CreateRadioButton} 10u 60u -10u 12u "$(Mode_All)"
  Pop $ModePage.AllUsers
  ${If} $AllUsers == 1
    ${NSD_Check} $ModePage.AllUsers
  ${Else}
    ${NSD_Check} $R1
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function Mode_Page_Leave
  ${NSD_GetState} $ModePage.AllUsers $R0
  ${If} $R0 == ${BST_CHECKED}
    ${If} $Admin == 0
      ${If} $FolderGiven == 1
        !insertmacro Restart_As_Admin "/ALLUSERS /D=$INSTDIR"
      ${Else}
        !insertmacro Restart_As_Admin "/ALLUSERS"
      ${EndIf}
      Abort
    ${EndIf}
    StrCpy $AllUsers 1
  ${Else}
    StrCpy $AllUsers 0
  ${EndIf}
  Call Set_Mode
FunctionEnd

; The editor is offered to start once installed, but not by an install for all users: that one
; may have been given administrator rights, and the editor would run with them.
Function Finish_Page_Show
  ${If} $AllUsers == 1
    ${NSD_Uncheck} $mui.FinishPage.Run
    ShowWindow $mui.FinishPage.Run ${SW_HIDE}
  ${EndIf}
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  File "${PROGRAMS}\vorlane.exe"
  File "${PROGRAMS}\vorlane-cli.exe"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Vorlane.lnk" "$INSTDIR\vorlane.exe" "" "$INSTDIR\vorlane.exe" 0 \
    SW_SHOWNORMAL "" "$(Shortcut_Text)"

  ; Windows has both parent keys from the start; wine makes them when first written to. The
  ; uninstaller removes them only where this install made them.
  StrCpy $R1 0
  StrCpy $R2 0
  ClearErrors
  EnumRegKey $R0 SHCTX "Software\Classes" 0
  ${If} ${Errors}
    StrCpy $R1 1
  ${EndIf}
  ClearErrors
  EnumRegKey $R0 SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall" 0
  ${If} ${Errors}
    StrCpy $R2 1
  ${EndIf}
  ${If} $R1 == 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "MadeClassesKey" 1
  ${EndIf}
  ${If} $R2 == 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "MadeUninstallKey" 1
  ${EndIf}

  ; The type of .npc files. Another program's type that was the default is kept, to be the default
  ; again when Vorlane goes.
  ReadRegStr $R0 SHCTX "Software\Classes\.npc" ""
  ${If} $R0 != ""
  ${AndIf} $R0 != "${PROGID}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "NpcTypeBefore" $R0
  ${EndIf}
  WriteRegStr SHCTX "Software\Classes\.npc" "" "${PROGID}"
  WriteRegStr SHCTX "Software\Classes\.npc\OpenWithProgids" "${PROGID}" ""
  WriteRegStr SHCTX "Software\Classes\${PROGID}" "" "$(Type_Name)"
  WriteRegStr SHCTX "Software\Classes\${PROGID}\DefaultIcon" "" "$INSTDIR\vorlane.exe,0"
  WriteRegStr SHCTX "Software\Classes\${PROGID}\shell" "" "open"
  WriteRegStr SHCTX "Software\Classes\${PROGID}\shell\open" "" "$(Open_Verb)"
  WriteRegStr SHCTX "Software\Classes\${PROGID}\shell\open\command" "" '"$INSTDIR\vorlane.exe" "%1"'

  ; The entry under the installed programs.
  ${If} $AllUsers == 1
    StrCpy $R0 "/ALLUSERS"
  ${Else}
    StrCpy $R0 "/CURRENTUSER"
  ${EndIf}
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Vorlane"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Vorlane"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\vorlane.exe,0"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" $R0'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" $R0 /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K /G=0" $R1 $R2 $R3
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $R1

  ${NotifyShell_AssocChanged}
SectionEnd

; The uninstaller takes its mode from the command line that the entry under the installed
; programs holds, or else from where the entry for all users points.
Function un.onInit
  StrCpy $AllUsers 0
  !insertmacro Read_Command_Line "un."
  ${If} $ModeGiven == 0
    ReadRegStr $R0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $R0 == $INSTDIR
      StrCpy $AllUsers 1
    ${EndIf}
  ${EndIf}
  ${If} $AllUsers == 1
  ${AndIf} $Admin == 0
    ${If} ${Silent}
      SetErrorLevel ${ERROR_ELEVATION_REQUIRED}
      Quit
    ${EndIf}
    !insertmacro Restart_As_Admin "/ALLUSERS _?=$INSTDIR"
    SetErrorLevel ${ERROR_CANCELLED}
    Quit
  ${EndIf}
  ${If} $AllUsers == 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
FunctionEnd

Section Uninstall
  Delete "$INSTDIR\vorlane.exe"
  Delete "$INSTDIR\vorlane-cli.exe"
  Delete "$INSTDIR\uninstall.exe"
  ; The folder goes once empty: files that someone else put there stay.
  RMDir "$INSTDIR"
  ; The folder of per-user programs that holds it, when nothing else is in it.
  ${If} $AllUsers == 0
    GetKnownFolderPath $R0 ${USER_PROGRAM_FILES}
    ${If} $R0 == ""
      StrCpy $R0 "$LOCALAPPDATA\Programs"
    ${EndIf}
    ${GetParent} "$INSTDIR" $R1
    ${If} $R1 == $R0
      RMDir "$R0"
    ${EndIf}
  ${EndIf}
  ${UnpinShortcut} "$SMPROGRAMS\Vorlane.lnk"
  Delete "$SMPROGRAMS\Vorlane.lnk"

  DeleteRegKey SHCTX "Software\Classes\${PROGID}"
  DeleteRegValue SHCTX "Software\Classes\.npc\OpenWithProgids" "${PROGID}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.npc\OpenWithProgids"
  ; The default of .npc is given back to the type it had before, unless another program has taken
  ; it since.
  ReadRegStr $R0 SHCTX "Software\Classes\.npc" ""
  ${If} $R0 == "${PROGID}"
    ReadRegStr $R1 SHCTX "${UNINSTALL_KEY}" "NpcTypeBefore"
    ${If} $R1 != ""
      WriteRegStr SHCTX "Software\Classes\.npc" "" $R1
    ${Else}
      DeleteRegValue SHCTX "Software\Classes\.npc" ""
    ${EndIf}
  ${EndIf}
  DeleteRegKey /ifempty SHCTX "Software\Classes\.npc"
  ReadRegDWORD $R0 SHCTX "${UNINSTALL_KEY}" "MadeClassesKey"
  ReadRegDWORD $R1 SHCTX "${UNINSTALL_KEY}" "MadeUninstallKey"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  ${If} $R0 == 1
    DeleteRegKey /ifempty SHCTX "Software\Classes"
  ${EndIf}
  ${If} $R1 == 1
    DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall"
  ${EndIf}

  ${NotifyShell_AssocChanged}
SectionEnd
