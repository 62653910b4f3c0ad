; setup.exe. packaging/make-packages runs it and gives VERSION, OUT, FILES_NSH and TEXTS_NSH (made of files.txt and
; of texts/), ICON, CLASS_ID, UPGRADE_CODE, and SIGN, a command for what is made here.
;
; setup.exe [/S] [/ALLUSERS | /CURRENTUSER] [/CACHE[=no]] [/LANG=n] [/D=folder]      docs/installation.md

Unicode true
ManifestDPIAware true
RequestExecutionLevel highest
SetCompressor /SOLID lzma
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include TextFunc.nsh
!include WordFunc.nsh
!include nsDialogs.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Norvane Outlook driver"
!define INSTALL_KEY "Software\Norvane\7316\Install"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define RUN_NAME "Tessaria contact cache"
!define SERVER_KEY "Software\Classes\CLSID\${CLASS_ID}\InprocServer32"
!define DRIVER "$INSTDIR\zelbar00.dll"

!define STATUS_FAILED 2
!define STATUS_NO_RIGHTS 3
!define STATUS_NOT_WRITTEN 4
!define STATUS_NOT_REGISTERED 5
!define STATUS_OTHER_VERSION 6
!define STATUS_IN_USE 3010 ; what deployment systems know as "done, to be seen after a restart"

Name "Tessaria Outlook driver"
BrandingText "Norvane"
OutFile "${OUT}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 ProductName "Tessaria"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileDescription "Installs the Outlook contacts driver of Tessaria"
VIAddVersionKey /LANG=0 CompanyName "Norvane"
VIAddVersionKey /LANG=0 LegalCopyright ""
!ifdef SIGN
    !finalize '${SIGN} "%1"'
    !uninstfinalize '${SIGN} "%1"'
!endif

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC ; the parts' names need the width of the page
Page custom askForWhom takeForWhom
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!include "${TEXTS_NSH}"

Var ForAll       ; 1: for everyone
Var IsAdmin      ; 1: this process may do that
Var AllButton
Var Stage        ; where the new files are unpacked, as long as nothing has been given up
Var Aside        ; where the old ones wait until all is done
Var HadOld       ; 1: there was an installation in the folder

; ---- what both halves need ---------------------------------------------------------------------------------

!macro both un
; Says the sentence on the stack: in a box, or in silence on the standard output if there is one.
Function ${un}say
    Exch $R9
    Push $R8
    DetailPrint $R9
    ${If} ${Silent}
        System::Call 'kernel32::AttachConsole(i -1)'
        System::Call 'kernel32::GetStdHandle(i -11) p .R8'
        FileWrite $R8 "$R9$\r$\n"
    ${Else}
        MessageBox MB_OK|MB_ICONINFORMATION $R9
    ${EndIf}
    Pop $R8
    Pop $R9
FunctionEnd

; DllInstall of the driver in the folder, for whom it is; on the stack 1 to register. Gives back its result, 0
; when all is well.
Function ${un}install
    Exch $R0
    Push $R1
    Push $R2
    Push $R3
    StrCpy $R1 "${DRIVER}"
    System::Call 'kernel32::LoadLibraryExW(w R1, p 0, i 8) p .R2'
    System::Call 'kernel32::GetProcAddress(p R2, m "DllInstall") p .R3'
    ${If} $R3 P= 0
        StrCpy $R0 0x8007007E ; the module is not there, or is none
    ${ElseIf} $ForAll = 1
        System::Call '::$R3(i R0, p 0) i .R0'
    ${Else}
        System::Call '::$R3(i R0, w "user") i .R0'
    ${EndIf}
    System::Call 'kernel32::FreeLibrary(p R2)'
    ${If} $R0 <> 0
        IntFmt $R0 "0x%08X" $R0
    ${EndIf}
    Pop $R3
    Pop $R2
    Pop $R1
    Exch $R0
FunctionEnd

; Where the things of all users, or of this one, lie.
Function ${un}useContext
    ${If} $ForAll = 1
        SetShellVarContext all
    ${Else}
        SetShellVarContext current
    ${EndIf}
FunctionEnd

; Removes what earlier runs had to leave because it was in use.
Function ${un}removeAside
    Push $R0
    Push $R1
    FindFirst $R0 $R1 "$INSTDIR\~old*"
    ${DoWhile} $R1 != ""
        RMDir /r "$INSTDIR\$R1"
        FindNext $R0 $R1
    ${Loop}
    FindClose $R0
    Pop $R1
    Pop $R0
FunctionEnd

; The installation's folder and the company's, if nothing is left in them.
Function ${un}removeFolder
    RMDir $INSTDIR
    ${GetParent} $INSTDIR $R1
    RMDir $R1
FunctionEnd

; A folder of that kind that is not there yet, in $Aside.
Function ${un}makeAside
    Push $R0
    StrCpy $R0 0
    ${Do}
        IntOp $R0 $R0 + 1
        StrCpy $Aside "$INSTDIR\~old$R0"
    ${LoopWhile} ${FileExists} "$Aside\*.*"
    CreateDirectory $Aside
    Pop $R0
FunctionEnd
!macroend
!insertmacro both ""
!insertmacro both "un."

!macro Say text
    Push "${text}"
    Call say
!macroend
!macro Fail text status
    !insertmacro Say "${text}"
    SetErrorLevel ${status}
!macroend

!include "${FILES_NSH}"

; ---- before anything is done -------------------------------------------------------------------------------

Function .onInit
    Push $R0
    Push $R1
    UserInfo::GetAccountType
    Pop $R0
    StrCpy $IsAdmin 0
    ${If} $R0 == "Admin"
        StrCpy $IsAdmin 1
    ${EndIf}
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/LANG=" $R1
    ${IfNot} ${Errors}
        StrCpy $LANGUAGE $R1
    ${EndIf}
    Call chooseForWhom
    Call refuseFolder
    Call chooseFolder
    Call chooseCache
    Pop $R1
    Pop $R0
FunctionEnd

; A folder that there cannot be, as one below a file, comes here as none; it must not become another one.
Function refuseFolder
    System::Call 'kernel32::GetCommandLineW() w .R0' ; $CMDLINE lacks the switch
    ClearErrors
    ${GetOptions} $R0 "/D=" $R1
    ${IfNot} ${Errors}
    ${AndIf} $INSTDIR == ""
        StrCpy $INSTDIR $R1
        !insertmacro Fail "$(NotWritten)" ${STATUS_NOT_WRITTEN}
        Quit
    ${EndIf}
FunctionEnd

; By the switch, else as it is installed already, else for everyone if that can be.
Function chooseForWhom
    ${GetParameters} $R0
    StrCpy $ForAll $IsAdmin
    ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" InstallLocation
    ReadRegStr $R2 HKLM "${UNINSTALL_KEY}" InstallLocation
    ${If} $R1 != ""
    ${AndIf} $R2 == ""
        StrCpy $ForAll 0
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/CURRENTUSER" $R1
    ${IfNot} ${Errors}
        StrCpy $ForAll 0
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/ALLUSERS" $R1
    ${IfNot} ${Errors}
        ${If} $IsAdmin = 0
            !insertmacro Fail "$(NeedsRights)" ${STATUS_NO_RIGHTS}
            Quit
        ${EndIf}
        StrCpy $ForAll 1
    ${EndIf}
FunctionEnd

Function chooseFolder
    Call useContext
    ${If} $INSTDIR == "" ; no /D
        ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" InstallLocation
    ${EndIf}
    ${If} $INSTDIR == ""
        ${If} $ForAll = 1
            StrCpy $INSTDIR "$PROGRAMFILES32\Norvane\Outlook driver"
        ${Else}
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Norvane\Outlook driver"
        ${EndIf}
    ${EndIf}
FunctionEnd

; A newer version, or one that a package of the administrator's has brought, is not written over.
Function refuseOthers
    ReadRegStr $R0 SHCTX "${UNINSTALL_KEY}" DisplayVersion
    ${If} $R0 != ""
        ${VersionCompare} $R0 ${VERSION} $R1
        ${If} $R1 = 1
            !insertmacro Fail "$(Newer)" ${STATUS_OTHER_VERSION}
            Abort
        ${EndIf}
    ${EndIf}
    System::Call 'msi::MsiEnumRelatedProductsW(w "${UPGRADE_CODE}", i 0, i 0, w .R0) i .R1'
    ${If} $R1 = 0
        !insertmacro Fail "$(MsiThere)" ${STATUS_OTHER_VERSION}
        Abort
    ${EndIf}
FunctionEnd

; ---- the page that asks for whom ---------------------------------------------------------------------------

Function askForWhom
    ${If} $IsAdmin = 0
        Abort ; nothing to choose
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "$(ForWhomTitle)" "$(ForWhomText)"
    nsDialogs::Create 1018
    Pop $R0
    ${NSD_CreateRadioButton} 0 20u 100% 12u "$(ForEveryone)"
    Pop $AllButton
    ${NSD_CreateRadioButton} 0 40u 100% 12u "$(ForMe)"
    Pop $R0
    ${If} $ForAll = 1
        ${NSD_Check} $AllButton
    ${Else}
        ${NSD_Check} $R0
    ${EndIf}
    nsDialogs::Show
FunctionEnd

Function takeForWhom
    StrCpy $R1 $ForAll
    ${NSD_GetState} $AllButton $ForAll
    ${If} $R1 <> $ForAll
        StrCpy $INSTDIR ""
        Call chooseFolder
        Call chooseCache
    ${EndIf}
FunctionEnd

; ---- the files ---------------------------------------------------------------------------------------------

; Calls a function for every line of an installed.txt, with the file's name in $R0.
!macro EachInstalled list function
    FileOpen $R5 "${list}" r
    ${Do}
        ClearErrors
        FileRead $R5 $R0
        ${If} ${Errors}
            ${ExitDo}
        ${EndIf}
        ${TrimNewLines} $R0 $R0
        Call ${function}
    ${Loop}
    FileClose $R5
    ClearErrors
!macroend

; Unpacks into a folder beside the installation: until all is there, nothing has been changed.
Function stage
    StrCpy $HadOld 0
    ${If} ${FileExists} "$INSTDIR\installed.txt"
        StrCpy $HadOld 1
    ${EndIf}
    StrCpy $Stage "$INSTDIR\~new"
    RMDir /r $Stage
    ClearErrors
    CreateDirectory $Stage
    ${If} ${Errors}
        Call giveUpFiles
        Abort
    ${EndIf}
    !insertmacro StageFiles
    WriteUninstaller "$Stage\uninstall.exe"
    SetOutPath "$INSTDIR" ; lets go of the last folder
    ${If} ${Errors}
        Call giveUpFiles
        Abort
    ${EndIf}
FunctionEnd

Function giveUpFiles
    SetOutPath $TEMP
    RMDir /r $Stage
    StrCpy $Stage ""
    Call removeFolder
    !insertmacro Fail "$(NotWritten)" ${STATUS_NOT_WRITTEN}
FunctionEnd

; What cannot be written ends the section by itself; nothing has been put in place then.
Function .onInstFailed
    ${If} $Stage != ""
        Call giveUpFiles
    ${EndIf}
FunctionEnd

; Moves a file of the installation aside. A library in use can be moved, not written over.
Function moveAside
    ${If} ${FileExists} "$INSTDIR\$R0"
        ${GetParent} "$Aside\$R0" $R1
        CreateDirectory $R1
        Rename "$INSTDIR\$R0" "$Aside\$R0"
    ${EndIf}
FunctionEnd
Function moveBack
    ${If} ${FileExists} "$Aside\$R0"
        Delete "$INSTDIR\$R0"
        Rename "$Aside\$R0" "$INSTDIR\$R0"
    ${EndIf}
FunctionEnd
Function putInPlace
    Call moveAside
    ${GetParent} "$INSTDIR\$R0" $R1
    CreateDirectory $R1
    ClearErrors
    Rename "$Stage\$R0" "$INSTDIR\$R0"
    ${If} ${Errors}
        StrCpy $R6 1
    ${EndIf}
FunctionEnd
Function removeInstalled
    Delete "$INSTDIR\$R0"
    ${GetParent} "$INSTDIR\$R0" $R1
    RMDir $R1
    ${GetParent} $R1 $R1 ; a folder of folders
    RMDir $R1
FunctionEnd

Function place
    Call removeAside
    Call makeAside
    StrCpy $R6 0
    ; Copies, for the lists are among the files that move.
    CopyFiles /SILENT "$Stage\installed.txt" "$PLUGINSDIR\new.txt"
    ${If} $HadOld = 1
        CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\old.txt"
        !insertmacro EachInstalled "$PLUGINSDIR\old.txt" moveAside
    ${EndIf}
    !insertmacro EachInstalled "$PLUGINSDIR\new.txt" putInPlace
    ${If} $R6 = 1
        Call undo
        !insertmacro Fail "$(NotWritten)" ${STATUS_NOT_WRITTEN}
        Abort
    ${EndIf}
FunctionEnd

; Everything as it was.
Function undo
    SetOutPath $TEMP
    !insertmacro EachInstalled "$PLUGINSDIR\new.txt" removeInstalled
    ${If} $HadOld = 1
        !insertmacro EachInstalled "$PLUGINSDIR\old.txt" moveBack
        Push 1
        Call install
        Pop $R0
    ${EndIf}
    RMDir /r $Stage
    StrCpy $Stage ""
    RMDir /r $Aside
    Call removeFolder
FunctionEnd

; ---- the installation --------------------------------------------------------------------------------------

Section "$(DriverPart)" DRIVER_PART
    SectionIn RO
    AddSize ${SIZE_KB}
    InitPluginsDir
    Call useContext
    Call refuseOthers
    Call stage
    Call place
    Push 1
    Call install
    Pop $R0
    ${If} $R0 <> 0
        StrCpy $0 $R0
        Call undo
        !insertmacro Fail "$(NotRegistered)" ${STATUS_NOT_REGISTERED}
        Abort
    ${EndIf}
    RMDir /r $Stage
    ClearErrors
    RMDir /r $Aside
    ${If} ${FileExists} "$Aside\*.*"
        RMDir /r /REBOOTOK $Aside
        !insertmacro Say "$(InUse)"
        SetErrorLevel ${STATUS_IN_USE}
    ${EndIf}
    Call writeKeys
SectionEnd

Function writeKeys
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayName "Tessaria Outlook driver"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" Publisher "Norvane"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\pimcall.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" EstimatedSize ${SIZE_KB}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoModify 1
    ${If} $ForAll = 1
        ReadRegStr $R0 HKLM "${INSTALL_KEY}" MultiUser
        ${If} $R0 == "" ; what an administrator has set stays
            WriteRegStr HKLM "${INSTALL_KEY}" MultiUser "yes"
            WriteRegDWORD HKLM "${UNINSTALL_KEY}" WroteMultiUser 1
        ${EndIf}
    ${EndIf}
FunctionEnd

Section /o "$(CachePart)" CACHE_PART
    ; Minimised: what runs at logon is no window that somebody has asked for.
    WriteRegStr SHCTX "${RUN_KEY}" "${RUN_NAME}" \
        '"$SYSDIR\cmd.exe" /c start "" /min "$INSTDIR\fillcache.exe" --quiet'
SectionEnd

Section
    ${IfNot} ${SectionIsSelected} ${CACHE_PART}
        DeleteRegValue SHCTX "${RUN_KEY}" "${RUN_NAME}"
    ${EndIf}
SectionEnd

; As it was chosen at the last installation, unless the switch says otherwise.
Function chooseCache
    ${GetParameters} $R0
    ReadRegStr $R1 SHCTX "${RUN_KEY}" "${RUN_NAME}"
    ${If} $R1 == ""
        !insertmacro UnselectSection ${CACHE_PART}
    ${Else}
        !insertmacro SelectSection ${CACHE_PART}
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/CACHE" $R1
    ${IfNot} ${Errors}
        ${If} $R1 == "=no"
            !insertmacro UnselectSection ${CACHE_PART}
        ${Else}
            !insertmacro SelectSection ${CACHE_PART}
        ${EndIf}
    ${EndIf}
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${DRIVER_PART} "$(DriverPartText)"
    !insertmacro MUI_DESCRIPTION_TEXT ${CACHE_PART} "$(CachePartText)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; ---- the removal -------------------------------------------------------------------------------------------

Function un.onInit
    StrCpy $ForAll 0
    ReadRegStr $R0 HKLM "${UNINSTALL_KEY}" InstallLocation
    ${If} $R0 == $INSTDIR
        StrCpy $ForAll 1
        UserInfo::GetAccountType
        Pop $R0
        ${If} $R0 != "Admin"
            Push "$(RemovalNeedsRights)"
            Call un.say
            SetErrorLevel ${STATUS_NO_RIGHTS}
            Quit
        ${EndIf}
    ${EndIf}
    Call un.useContext
FunctionEnd

Function un.deleteFile
    Pop $R0
    Delete "$INSTDIR\$R0"
    ${If} ${FileExists} "$INSTDIR\$R0" ; in use: it may be moved, and goes with the next start of Windows
        ${GetFileName} $R0 $R1
        Rename "$INSTDIR\$R0" "$Aside\$R1"
        StrCpy $R6 1
    ${EndIf}
    ${GetParent} "$INSTDIR\$R0" $R1
    RMDir $R1
    ${GetParent} $R1 $R1 ; a folder of folders
    RMDir $R1
FunctionEnd

Section Uninstall
    ReadRegStr $R0 SHCTX "${SERVER_KEY}" ""
    ${If} $R0 == "${DRIVER}"
        Push 0
        Call un.install
        Pop $R0
    ${ElseIf} $R0 != ""
        Push "$(OtherCopy)"
        Call un.say
    ${EndIf}
    StrCpy $R6 0
    Call un.removeAside
    Call un.makeAside
    !insertmacro EachFile un.deleteFile
    Delete "$INSTDIR\uninstall.exe"
    Delete "$INSTDIR\zelbar00.log" ; the driver's own trace holds calls in clear
    Delete "$INSTDIR\zelbar00_o.log"
    RMDir /r /REBOOTOK "$Aside"
    SetOutPath $TEMP
    ${If} $R6 = 1
        RMDir /REBOOTOK "$INSTDIR"
        SetErrorLevel ${STATUS_IN_USE}
        Push "$(InUseRemoved)"
        Call un.say
    ${Else}
        Call un.removeFolder
    ${EndIf}
    Call un.removeKeys
    StrCpy $0 "$APPDATA"
    Push "$(Left)"
    Call un.say
SectionEnd

Function un.removeKeys
    ReadRegDWORD $R0 HKLM "${UNINSTALL_KEY}" WroteMultiUser
    ReadRegStr $R1 HKLM "${INSTALL_KEY}" MultiUser
    ${If} $ForAll = 1
    ${AndIf} $R0 = 1
    ${AndIf} $R1 == "yes"
        DeleteRegValue HKLM "${INSTALL_KEY}" MultiUser
        DeleteRegKey /ifempty HKLM "${INSTALL_KEY}"
        DeleteRegKey /ifempty HKLM "Software\Norvane\7316"
        DeleteRegKey /ifempty HKLM "Software\Norvane"
    ${EndIf}
    DeleteRegValue SHCTX "${RUN_KEY}" "${RUN_NAME}"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    SetShellVarContext current
FunctionEnd
