; The set-up for Windows; scripts/package-windows.sh runs it. For the user alone unless "all users" is chosen (/AllUsers on
; the command line; /S installs silently, /D=FOLDER names the folder). What the user has made, documents, backups and
; settings, is not touched by removing the program.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

Name "Tabrix"
OutFile "${OUTPUT}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "Tabrix"
VIAddVersionKey /LANG=1033 "FileDescription" "Tabrix set-up"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "Tabrix developers"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "Tabrix"
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "Software\Tabrix\Set-up"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "Folder"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tabrix"
!define KIND "Tabrix.Parameters"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"

LangString FileKind ${LANG_ENGLISH} "Inverter parameter file"
LangString FileKind ${LANG_JAPANESE} "インバータパラメータファイル"

Function .onInit
    !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

; The kind of file that an extension had before is put back when the program is removed.
!macro TakeExtension EXTENSION
    ReadRegStr $0 SHCTX "Software\Classes\${EXTENSION}" ""
    ${If} $0 != ""
    ${AndIf} $0 != "${KIND}"
        WriteRegStr SHCTX "Software\Tabrix\Set-up" "Before ${EXTENSION}" $0
    ${EndIf}
    WriteRegStr SHCTX "Software\Classes\${EXTENSION}" "" "${KIND}"
    WriteRegStr SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids" "${KIND}" ""
!macroend

!macro GiveBackExtension EXTENSION
    ReadRegStr $0 SHCTX "Software\Classes\${EXTENSION}" ""
    ${If} $0 == "${KIND}"
        ReadRegStr $1 SHCTX "Software\Tabrix\Set-up" "Before ${EXTENSION}"
        ${If} $1 == ""
            DeleteRegValue SHCTX "Software\Classes\${EXTENSION}" ""
        ${Else}
            WriteRegStr SHCTX "Software\Classes\${EXTENSION}" "" $1
        ${EndIf}
    ${EndIf}
    DeleteRegValue SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids" "${KIND}"
    DeleteRegKey /ifempty SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids"
    DeleteRegKey /ifempty SHCTX "Software\Classes\${EXTENSION}"
!macroend

Section "Tabrix"
    SetOutPath "$INSTDIR"
    File /r "${FOLDER}\*"
    CreateShortcut "$SMPROGRAMS\Tabrix.lnk" "$INSTDIR\tabrix.exe"

    WriteRegStr SHCTX "Software\Classes\${KIND}" "" "$(FileKind)"
    WriteRegStr SHCTX "Software\Classes\${KIND}\DefaultIcon" "" "$INSTDIR\tabrix.exe,0"
    ; Without quotes: the program takes all that follows its name for one file name, spaces included.
    WriteRegStr SHCTX "Software\Classes\${KIND}\shell\open\command" "" '"$INSTDIR\tabrix.exe" %1'
    !insertmacro TakeExtension ".inv"
    !insertmacro TakeExtension ".ine"
    ${RefreshShellIcons}

    WriteRegStr SHCTX "Software\Tabrix\Set-up" "Folder" "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "Tabrix"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\tabrix.exe,0"
    WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "Tabrix developers"
    WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    !include "${REMOVE}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Tabrix.lnk"

    !insertmacro GiveBackExtension ".inv"
    !insertmacro GiveBackExtension ".ine"
    DeleteRegKey SHCTX "Software\Classes\${KIND}"
    DeleteRegKey SHCTX "Software\Tabrix\Set-up"
    DeleteRegKey /ifempty SHCTX "Software\Tabrix"
    DeleteRegKey SHCTX "${UNINSTALL}"
    ${RefreshShellIcons}
SectionEnd
