; The installer of one word size, for all users of a machine. pack.sh defines:
;   ARCH          x64 or x86
;   VERSION       as users read it, 2.1.5
;   FILE_VERSION  as the system reads it, 2.1.0.5
;   FILES         a script with the macros InstallFiles, RemoveFiles and RemoveFolders
;   SIZE          of all files together, in KiB
;   OUTPUT        the installer to make
; Exit codes: 0 done, 1 cancelled, 2 not done, 3 the program is running, 4 done but the settings' key is not open to users.

Unicode true
!if ${ARCH} == x64
    Target amd64-unicode
    !define PRODUCT "Ventlock"
    !define PROGRAMS $PROGRAMFILES64
!else
    Target x86-unicode
    !define PRODUCT "Ventlock (32-bit)"
    !define PROGRAMS $PROGRAMFILES32
!endif

!include MUI2.nsh
!include LogicLib.nsh

; Each word size has its own view of these keys: they stand beside each other on one machine.
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Ventlock"
!define SETTINGS_KEY "SOFTWARE\Halvard Systems\TAVToolkit\Ventlock"

; HKEY_LOCAL_MACHINE as a handle of either word size.
!define MACHINE_ROOT -2147483646

; Administrators and the system have full access; users read, write, make keys and links, and inherit that below. Links are
; in it because the program asks for the right to make them whenever it opens a key.
!define SETTINGS_ACCESS "D:P(A;CI;KA;;;BA)(A;CI;KA;;;SY)(A;CI;0x2003f;;;BU)"

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "Halvard Systems"
RequestExecutionLevel admin
ManifestDPIAware true
SetCompressor /SOLID lzma
AllowSkipFiles off
InstallDir "${PROGRAMS}\Ventlock"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"

!define MUI_ICON "ventlock.ico"
!define MUI_UNICON "ventlock.ico"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"

VIProductVersion "${FILE_VERSION}"
VIFileVersion "${FILE_VERSION}"
!macro VersionTexts language
    VIAddVersionKey /LANG=${language} "CompanyName" "Halvard Systems"
    VIAddVersionKey /LANG=${language} "FileDescription" "${PRODUCT} setup"
    VIAddVersionKey /LANG=${language} "FileVersion" "${FILE_VERSION}"
    VIAddVersionKey /LANG=${language} "LegalCopyright" "Copyright Halvard Systems"
    VIAddVersionKey /LANG=${language} "ProductName" "Ventlock"
    VIAddVersionKey /LANG=${language} "ProductVersion" "${VERSION}"
!macroend
!insertmacro VersionTexts ${LANG_ENGLISH}
!insertmacro VersionTexts ${LANG_GERMAN}

LangString Running ${LANG_ENGLISH} "Ventlock is running: $1 is in use. Close it and try again."
LangString Running ${LANG_GERMAN} "Ventlock läuft: $1 wird gerade benutzt. Beenden Sie das Programm und versuchen Sie es noch einmal."
LangString NotRemoved ${LANG_ENGLISH} "The version in $0 could not be removed (code $1). Nothing was installed."
LangString NotRemoved ${LANG_GERMAN} "Die Version in $0 konnte nicht entfernt werden (Code $1). Es wurde nichts installiert."
LangString NotOpened ${LANG_ENGLISH} "Ventlock is installed, but users may not store its settings: the access to $0 could not be changed (error $1)."
LangString NotOpened ${LANG_GERMAN} "Ventlock ist installiert, aber Benutzer können die Einstellungen nicht speichern: Der Zugriff auf $0 konnte nicht geändert werden (Fehler $1)."
LangString NotDeleted ${LANG_ENGLISH} "Some files of Ventlock in $INSTDIR could not be removed."
LangString NotDeleted ${LANG_GERMAN} "Einige Dateien von Ventlock in $INSTDIR konnten nicht entfernt werden."

!include "${FILES}"

; Ends with code 3 while a program in $INSTDIR runs: the system lets nobody write to the file of a running program.
!macro RefuseWhileRunning
    Push "ventlock.exe"
    Push "ventlock-cli.exe"
    ${For} $2 1 2
        Pop $1
        ${DoWhile} ${FileExists} "$INSTDIR\$1"
            ClearErrors
            FileOpen $0 "$INSTDIR\$1" a
            ${IfNot} ${Errors}
                FileClose $0
                ${Break}
            ${EndIf}
            ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(Running)" /SD IDCANCEL IDCANCEL`
                SetErrorLevel 3
                Quit
            ${EndIf}
        ${Loop}
    ${Next}
!macroend

; What an earlier setup has put on this machine goes first, wherever it stands, so that no file of an old version stays.
Function RemoveEarlierVersion
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == ""
    ${OrIfNot} ${FileExists} "$0\uninstall.exe"
        Return
    ${EndIf}
    ClearErrors
    ExecWait '"$0\uninstall.exe" /S _?=$0' $1
    ${If} ${Errors}
        StrCpy $1 2
    ${EndIf}
    ${If} $1 <> 0
        SetErrorLevel $1
        ${If} $1 == 3
            StrCpy $1 "$0"
            MessageBox MB_OK|MB_ICONSTOP "$(Running)" /SD IDOK
        ${Else}
            MessageBox MB_OK|MB_ICONSTOP "$(NotRemoved)" /SD IDOK
        ${EndIf}
        Quit
    ${EndIf}
    Delete "$0\uninstall.exe"
    RMDir "$0"
FunctionEnd

; Gives the key named in $0 the access of the settings; a link itself, never what it leads to. $1: 0 or the system's error.
Function OpenToUsers
    System::Call 'advapi32::RegOpenKeyExW(p ${MACHINE_ROOT}, w r0, i 8, i 0x60000, *p .r3) i .r1'
    ${If} $1 <> 0
        Return
    ${EndIf}
    System::Call 'advapi32::ConvertStringSecurityDescriptorToSecurityDescriptorW(w "${SETTINGS_ACCESS}", i 1, *p .r4, p 0) i .r5 ? e'
    Pop $1
    ${If} $5 <> 0
        System::Call 'advapi32::RegSetKeySecurity(p r3, i 4, p r4) i .r1'
        System::Call 'kernel32::LocalFree(p r4)'
    ${EndIf}
    System::Call 'advapi32::RegCloseKey(p r3)'
FunctionEnd

; The settings are in the machine's part of the registry, where users may not write: the own key is opened to them, and
; the keys that stand in it already.
Function OpenSettings
    StrCpy $0 "${SETTINGS_KEY}"
    System::Call 'advapi32::RegCreateKeyExW(p ${MACHINE_ROOT}, w r0, i 0, p 0, i 0, i 0x20019, p 0, *p .r3, p 0) i .r1'
    ${If} $1 = 0
        System::Call 'advapi32::RegCloseKey(p r3)'
        Call OpenToUsers
    ${EndIf}
    StrCpy $2 0
    ${DoWhile} $1 = 0
        EnumRegKey $0 HKLM "${SETTINGS_KEY}" $2
        ${If} $0 == ""
            ${Break}
        ${EndIf}
        StrCpy $0 "${SETTINGS_KEY}\$0"
        Call OpenToUsers
        IntOp $2 $2 + 1
    ${Loop}
    ${If} $1 <> 0
        SetErrorLevel 4
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(NotOpened)" /SD IDOK
    ${EndIf}
FunctionEnd

Section
    SetShellVarContext all
    !insertmacro RefuseWhileRunning
    Call RemoveEarlierVersion
    !insertmacro InstallFiles
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\ventlock.exe"

    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Halvard Systems"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\ventlock.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    Call OpenSettings
SectionEnd

; Takes away what the section above has put there and nothing else: settings, logs and files of the user's own stay.
Section Uninstall
    SetShellVarContext all
    !insertmacro RefuseWhileRunning
    ClearErrors
    !insertmacro RemoveFiles
    ${If} ${Errors}
        SetErrorLevel 2
        MessageBox MB_OK|MB_ICONSTOP "$(NotDeleted)" /SD IDOK
        Quit
    ${EndIf}
    !insertmacro RemoveFolders
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
SectionEnd
