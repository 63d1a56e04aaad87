; Installer for one user: no administrator is needed. The program goes to the user's own programs,
; the shop's files into a folder among the user's documents, where an upgrade leaves them alone.
;   makensis -DVERSION=1.2.3 -DPROGRAM=tezgah.exe -DICON=tezgah.ico -DPICTURE=kurulum.bmp \
;       -DLICENCES=lisanslar.txt -DOUTPUT=Tezgah-Kur.exe
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS Win10
RequestExecutionLevel user

!include MUI2.nsh
!include FileFunc.nsh
!include WinVer.nsh

!define NAME "Tezgâh"
!define REGISTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tezgah"
!define AUTOSTART "Software\Microsoft\Windows\CurrentVersion\Run"

Name "${NAME}"
BrandingText "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tezgah"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1055 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1055 "FileDescription" "${NAME} kurulumu"
VIAddVersionKey /LANG=1055 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1055 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1055 "LegalCopyright" ""

Var data ; the shop's folder

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION startProgram
; Our own words where those of the wizard are about other kinds of programs.
!define MUI_WELCOMEPAGE_TITLE "${NAME} kurulumuna hoş geldiniz"
!define MUI_WELCOMEPAGE_TEXT "Program kendi kullanıcınıza kurulur; yönetici parolası gerekmez.$\r$\n$\r$\n\
Dükkânın dosyaları Belgeler altındaki ${NAME} klasörüne konur. Yeni sürüm kuruyorsanız dosyalarınıza \
dokunulmaz.$\r$\n$\r$\nBaşlamak için Kur düğmesine basın."
!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_HEADER_TEXT "Kuruluyor"
!define MUI_PAGE_HEADER_SUBTEXT "${NAME} kuruluyor, lütfen bekleyin."
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "${NAME} kuruldu"
!define MUI_FINISHPAGE_TEXT "Program başlat menüsünde ${NAME} adıyla durur.$\r$\n$\r$\n\
Bitir düğmesine basınca açılır; ilk açılışta sunucuyu ve yazıcıları adım adım sorar."
!define MUI_FINISHPAGE_RUN_TEXT "${NAME} şimdi açılsın"
!insertmacro MUI_PAGE_FINISH
!define MUI_PAGE_HEADER_TEXT "${NAME} kaldırılacak"
!define MUI_PAGE_HEADER_SUBTEXT "Dükkânın dosyaları ayrıca sorulur."
!insertmacro MUI_UNPAGE_CONFIRM
!define MUI_PAGE_HEADER_TEXT "Kaldırılıyor"
!define MUI_PAGE_HEADER_SUBTEXT "${NAME} kaldırılıyor, lütfen bekleyin."
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Turkish"

; A running program keeps its file; the name is the one its single-instance guard uses.
!macro refuseWhileRunning
    System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "Global\tezgah") p .r0'
    ${If} $0 P<> 0
        System::Call 'kernel32::CloseHandle(p r0)'
        MessageBox MB_OK|MB_ICONEXCLAMATION \
            "${NAME} çalışıyor. Önce simgesinin menüsünden programı kapatın." /SD IDOK
        SetErrorLevel 3
        Abort
    ${EndIf}
!macroend

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONEXCLAMATION "${NAME} için Windows 10 ya da 11 gerekir." /SD IDOK
        SetErrorLevel 2
        Abort
    ${EndIf}
    !insertmacro refuseWhileRunning
FunctionEnd

Function un.onInit
    !insertmacro refuseWhileRunning
FunctionEnd

; An upgrade goes on with the folder the first installation made, also when the documents have been
; moved since (a backup into the cloud does so): else the shop would see the demo shop again.
Section
    ReadRegStr $data HKCU "${REGISTRY}" "DataFolder"
    StrCmp $data "" 0 +2
        StrCpy $data "$DOCUMENTS\${NAME}"
    ${IfNot} ${FileExists} "$data\data.dbs"
    ${AndIf} ${FileExists} "$DOCUMENTS\${NAME}\data.dbs"
        StrCpy $data "$DOCUMENTS\${NAME}"
    ${EndIf}
    SetOutPath "$INSTDIR"
    File /oname=tezgah.exe "${PROGRAM}"
    File "${LICENCES}"
    WriteUninstaller "$INSTDIR\kaldir.exe"

    SetOutPath "$data" ; also the folder the shortcut starts in
    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\tezgah.exe" '--directory "$data"'

    WriteRegStr HKCU "${REGISTRY}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${REGISTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${REGISTRY}" "DisplayIcon" "$INSTDIR\tezgah.exe"
    WriteRegStr HKCU "${REGISTRY}" "Publisher" "${NAME}"
    WriteRegStr HKCU "${REGISTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${REGISTRY}" "DataFolder" "$data"
    WriteRegStr HKCU "${REGISTRY}" "UninstallString" '"$INSTDIR\kaldir.exe"'
    WriteRegStr HKCU "${REGISTRY}" "QuietUninstallString" '"$INSTDIR\kaldir.exe" /S'
    WriteRegDWORD HKCU "${REGISTRY}" "NoModify" 1
    WriteRegDWORD HKCU "${REGISTRY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${REGISTRY}" "EstimatedSize" $0
SectionEnd

Function startProgram
    SetOutPath "$data"
    Exec '"$INSTDIR\tezgah.exe" --directory "$data"'
FunctionEnd

; Without a user to ask (/S) the shop's files stay.
Section "Uninstall"
    ReadRegStr $data HKCU "${REGISTRY}" "DataFolder"
    Delete "$INSTDIR\tezgah.exe"
    Delete "$INSTDIR\lisanslar.txt"
    Delete "$INSTDIR\kaldir.exe"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\${NAME}.lnk"
    DeleteRegValue HKCU "${AUTOSTART}" "Tezgah"
    DeleteRegKey HKCU "${REGISTRY}"
    StrCmp $data "" done
    RMDir "$data" ; when nothing was ever put into it
    IfFileExists "$data\*.*" 0 done
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
        "Ayarlar, etiket tasarımları ve çıktılar da silinsin mi?$\r$\n$\r$\n$data" \
        /SD IDNO IDNO done
    RMDir /r "$data"
done:
SectionEnd
