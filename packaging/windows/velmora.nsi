; The installer, for one user and without an administrator. build.sh says what is what:
;   makensis -DVERSION=... -DFILES=<folder> -DREMOVE=<list> -DICON=<icon> -DOUTPUT=<installer>
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
!include MUI2.nsh

Name "Velmora"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Velmora"
InstallDirRegKey HKCU "Software\Velmora" "Carpeta"
BrandingText "Velmora ${VERSION}"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\velmora.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_SPANISH} "ProductName" "Velmora"
VIAddVersionKey /LANG=${LANG_SPANISH} "CompanyName" "Velmora developers"
VIAddVersionKey /LANG=${LANG_SPANISH} "FileDescription" "Instalador de Velmora"
VIAddVersionKey /LANG=${LANG_SPANISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_SPANISH} "LegalCopyright" "Velmora developers"

Section
    SetOutPath "$INSTDIR"
    File /r "${FILES}/*"
    WriteUninstaller "$INSTDIR\desinstalar.exe"
    WriteRegStr HKCU "Software\Velmora" "Carpeta" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Velmora"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Velmora developers"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\velmora.exe"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\desinstalar.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    ; A shortcut's working folder is where SetOutPath stands.
    CreateDirectory "$SMPROGRAMS\Velmora"
    CreateShortcut "$SMPROGRAMS\Velmora\Velmora.lnk" "$INSTDIR\velmora.exe"
    CreateShortcut "$SMPROGRAMS\Velmora\Informes de Velmora.lnk" "$INSTDIR\velmora-informe.exe"
    CreateShortcut "$SMPROGRAMS\Velmora\Guía de Velmora.lnk" "$INSTDIR\guia.html"
SectionEnd

Section Uninstall
    !include "${REMOVE}"
    Delete "$INSTDIR\desinstalar.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Velmora\Velmora.lnk"
    Delete "$SMPROGRAMS\Velmora\Informes de Velmora.lnk"
    Delete "$SMPROGRAMS\Velmora\Guía de Velmora.lnk"
    RMDir "$SMPROGRAMS\Velmora"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Velmora"
SectionEnd
