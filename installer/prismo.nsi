; Prismo's setup program and its uninstaller. Setup puts prismo.exe, its hook
; library and its help file into one folder, writes the shipped Fade Schemes
; the user does not have yet, and adds Start-menu shortcuts and an entry to
; Add/Remove Programs. Both refuse while Prismo runs, and ask for AOL to be
; closed while AOL may still hold the hook library.
;
; Built by makensis with:
;   /DPRISMO_TARGET=x86-ansi|amd64-unicode   the stub (x86-ansi is what ships)
;   /DPRISMO_FILES=folder                    where prismo.exe, prismosbc.dll and prismo.hlp are
;   /DPRISMO_VERSION=major.minor.revision
;   /DPRISMO_OUTFILE=path of the setup program to write
;
; Exit codes of a silent run (/S) that refuses: 3 while Prismo runs, 4 while
; AOL may hold the hook library.

!macro PRISMO_NEEDS NAME
  !ifndef ${NAME}
    !error "prismo.nsi needs /D${NAME}=..."
  !endif
!macroend
!insertmacro PRISMO_NEEDS PRISMO_TARGET
!insertmacro PRISMO_NEEDS PRISMO_FILES
!insertmacro PRISMO_NEEDS PRISMO_VERSION
!insertmacro PRISMO_NEEDS PRISMO_OUTFILE

Target ${PRISMO_TARGET}
SetCompressor /SOLID lzma

!include nsDialogs.nsh
; makensis runs in this script's folder: the shipped schemes are in ../data/schemes.
!addincludedir "../data/schemes"

!define PRODUCT "Prismo"
!define SETTINGS_KEY "Software\Zun Software\Prismo"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Prismo"
; Prismo holds this mutex while it runs (the same name it uses to refuse a
; second start of itself).
!define PRISMO_MUTEX "Zun Software Prismo"
; AOL's main window: while it is open, AOL may have the hook library loaded.
!define AOL_FRAME "AOL Frame25"
!define EXIT_PRISMO_RUNNING 3
!define EXIT_AOL_HOLDS_HOOK 4

Name "${PRODUCT}"
Caption "${PRODUCT} ${PRISMO_VERSION} Setup"
UninstallCaption "${PRODUCT} Uninstall"
# A diskette's installer is called setup.exe, as Windows 95 and 98 users
# expect; the compatibility shims makensis warns of for that name belong to
# later Windows.
!pragma warning disable 9000
OutFile "${PRISMO_OUTFILE}"
InstallDir "$PROGRAMFILES\Prismo"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel admin
; The plain look of Windows 95's own setup programs.
XPStyle off
BrandingText "${PRODUCT} ${PRISMO_VERSION}"
ShowInstDetails show
ShowUninstDetails show
DirText "Setup will install ${PRODUCT} in the following folder.$\r$\n$\r$\nTo install in a different folder, press Browse and choose another one." \
  "Destination Folder" "B&rowse..."
UninstallText "This will remove ${PRODUCT} from your computer."

VIProductVersion "${PRISMO_VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "CompanyName" "Zun Software"
VIAddVersionKey "FileDescription" "${PRODUCT} Setup"
VIAddVersionKey "FileVersion" "${PRISMO_VERSION}"
VIAddVersionKey "ProductVersion" "${PRISMO_VERSION}"
VIAddVersionKey "LegalCopyright" "Zun Software"

Page directory "" "" DirectoryLeave
Page instfiles
Page custom FinishedShow

UninstPage uninstConfirm
UninstPage instfiles

Var FinishedDialog

; The checks Setup and the uninstaller share; UN is "" or "un.".
!macro PRISMO_CHECKS UN
  ; Asks the user to end Prismo until it has ended or the user gives up;
  ; a silent run gives up at once.
  Function ${UN}RefuseWhilePrismoRuns
    retry:
      System::Call 'kernel32::OpenMutex(i 0x00100000, i 0, t "${PRISMO_MUTEX}") p .r0'
      StrCmp $0 0 done
      System::Call 'kernel32::CloseHandle(p r0)'
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
        "${PRODUCT} is running.$\r$\n$\r$\nPlease end it first (Exit Prismo, on its menu in AOL), then press Retry." \
        /SD IDCANCEL IDRETRY retry
      SetErrorLevel ${EXIT_PRISMO_RUNNING}
      Quit
    done:
  FunctionEnd

  ; Windows does not let a library that a program has loaded be replaced or
  ; removed. AOL loads prismosbc.dll while Prismo works with it, and may
  ; keep it until AOL itself ends; so while AOL's main window is open, or
  ; while the file cannot be opened for writing, the user is asked to close
  ; AOL. Nothing to ask when the folder has no hook library yet.
  Function ${UN}RefuseWhileAOLHoldsHook
    retry:
      IfFileExists "$INSTDIR\prismosbc.dll" 0 done
      FindWindow $0 "${AOL_FRAME}"
      StrCmp $0 0 0 held
      ClearErrors
      FileOpen $0 "$INSTDIR\prismosbc.dll" a
      IfErrors held
      FileClose $0
      Goto done
    held:
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
        "AOL may still be using the file$\r$\n$\r$\n$INSTDIR\prismosbc.dll$\r$\n$\r$\nPlease close AOL, then press Retry." \
        /SD IDCANCEL IDRETRY retry
      SetErrorLevel ${EXIT_AOL_HOLDS_HOOK}
      Quit
    done:
  FunctionEnd
!macroend
!insertmacro PRISMO_CHECKS ""
!insertmacro PRISMO_CHECKS "un."

Function .onInit
  Call RefuseWhilePrismoRuns
  ; A silent run has no folder page: its folder is known now.
  IfSilent 0 +2
    Call RefuseWhileAOLHoldsHook
FunctionEnd

; The folder is chosen: the one Setup writes to must be free.
Function DirectoryLeave
  Call RefuseWhilePrismoRuns
  Call RefuseWhileAOLHoldsHook
FunctionEnd

Section "Prismo"
  SetOutPath "$INSTDIR"
  File "${PRISMO_FILES}/prismo.exe"
  File "${PRISMO_FILES}/prismosbc.dll"
  File "${PRISMO_FILES}/prismo.hlp"
  ; WinHelp's index of the help file it replaces.
  Delete "$INSTDIR\prismo.gid"
  Delete "$INSTDIR\prismo.fts"
  Delete "$INSTDIR\prismo.ftg"
  CreateDirectory "$INSTDIR\incoming"
  CreateDirectory "$INSTDIR\outgoing"

  DetailPrint "Adding the Fade Schemes"
  !include Schemes.nsh
  !insertmacro PRISMO_WRITE_SCHEMES

  WriteUninstaller "$INSTDIR\uninstall.exe"

  CreateDirectory "$SMPROGRAMS\Prismo"
  CreateShortCut "$SMPROGRAMS\Prismo\Prismo.lnk" "$INSTDIR\prismo.exe"
  CreateShortCut "$SMPROGRAMS\Prismo\Prismo Help.lnk" "$INSTDIR\prismo.hlp"
  CreateShortCut "$SMPROGRAMS\Prismo\Choose AOL Folder.lnk" "$INSTDIR\prismo.exe" "CHANGEAOL"
  CreateShortCut "$SMPROGRAMS\Prismo\Uninstall.lnk" "$INSTDIR\uninstall.exe"

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT} ${PRISMO_VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\prismo.exe,0"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${PRISMO_VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Zun Software"
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; The last page: where to find Prismo now.
Function FinishedShow
  nsDialogs::Create 1018
  Pop $FinishedDialog
  StrCmp $FinishedDialog error 0 +2
    Abort
  ${NSD_CreateLabel} 0 0 100% 20u "${PRODUCT} is installed in $INSTDIR."
  Pop $0
  ${NSD_CreateLabel} 0 24u 100% 60u \
    "To start it, choose Programs, then Prismo, then Prismo on the Start menu: it opens AOL as well when AOL is not running. Choose AOL Folder, on the same menu, tells Prismo where AOL is installed.$\r$\n$\r$\nPress Close to end Setup."
  Pop $0
  GetDlgItem $0 $HWNDPARENT 2
  EnableWindow $0 0
  nsDialogs::Show
FunctionEnd

Function un.onInit
  Call un.RefuseWhilePrismoRuns
  Call un.RefuseWhileAOLHoldsHook
FunctionEnd

Section "Uninstall"
  ; The settings hold the user's own schemes: they go only when the user
  ; says so, and a silent uninstall keeps them.
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
    "Remove your Prismo settings and Fade Schemes as well?$\r$\n$\r$\nChoose No to keep them for a later installation." \
    /SD IDNO IDNO keep_settings
    DeleteRegKey HKCU "${SETTINGS_KEY}"
  keep_settings:

  Delete "$INSTDIR\prismo.exe"
  Delete "$INSTDIR\prismosbc.dll"
  Delete "$INSTDIR\prismo.hlp"
  Delete "$INSTDIR\prismo.gid"
  Delete "$INSTDIR\prismo.fts"
  Delete "$INSTDIR\prismo.ftg"
  Delete "$INSTDIR\uninstall.exe"
  ; Scheme files still waiting in these folders are the user's: a folder
  ; goes only when it is empty.
  RMDir "$INSTDIR\incoming"
  RMDir "$INSTDIR\outgoing"
  RMDir "$INSTDIR"

  Delete "$SMPROGRAMS\Prismo\Prismo.lnk"
  Delete "$SMPROGRAMS\Prismo\Prismo Help.lnk"
  Delete "$SMPROGRAMS\Prismo\Choose AOL Folder.lnk"
  Delete "$SMPROGRAMS\Prismo\Uninstall.lnk"
  RMDir "$SMPROGRAMS\Prismo"

  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
