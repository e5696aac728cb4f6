// Resource ids of the program's dialogs, by kind: IDD_ templates, IDC_
// controls. Each dialog has its own range of a hundred.
#pragma once

// frmMsg: 100-199
#define IDD_MSG 100
#define IDC_MSG_AREA 101
#define IDC_MSG_CMD0 110
#define IDC_MSG_CMD1 111
#define IDC_MSG_CMD2 112

// frmErrorReport: 200-299
#define IDD_ERRORREPORT 200
#define IDC_ERR_ICON 201
#define IDC_ERR_HEADING 202
#define IDC_ERR_DETAILS 203
#define IDC_ERR_ABORT 210
#define IDC_ERR_RETRY 211
#define IDC_ERR_IGNORE 212

// frmSetColors: 300-399
#define IDD_SETCOLORS 300
#define IDC_SC_LABEL1 301
#define IDC_SC_LABEL2 302
#define IDC_SC_LABEL3 303
#define IDC_SC_LABEL4 304
#define IDC_SC_FRAME1 305
#define IDC_SC_WNDCLR 310
#define IDC_SC_BTNFC 311
#define IDC_SC_BTNHL 312
#define IDC_SC_BTNTC 313
#define IDC_SC_SAMPLE 314
#define IDC_SC_EXIT 315

// frmChatTools: 400-499 (its controls are made in code)
#define IDD_CHATTOOLS 400
#define IDC_CT_SCHEMES 401
#define IDC_CT_COLOR1 410  // to 415
#define IDC_CT_FADE1 420   // to 425
#define IDC_CT_WAVY 430
#define IDC_CT_BOLD 431
#define IDC_CT_ITALIC 432
#define IDC_CT_ULINE 433
#define IDC_CT_SOLID 434
#define IDC_CT_ON 440
#define IDC_CT_OFF 441
#define IDC_CT_PREVIEW 450
#define IDC_CT_SAVE 460
#define IDC_CT_EMAIL 461
#define IDC_CT_DEL 462
#define IDC_CT_REFRESH 463
#define IDC_CT_MIN 470
#define IDC_CT_EXIT 471
#define IDC_CT_LINE1 472

// frmCMDialog: 500-599
#define IDD_CMDIALOG 500
#define IDC_CM_LABEL3 501
#define IDC_CM_DRIVE1 502
#define IDC_CM_LABEL2 503
#define IDC_CM_DIR1 504
#define IDC_CM_FILE1 505
#define IDC_CM_LABEL1 506
#define IDC_CM_TXTPATH 507
#define IDC_CM_LBLPATH 508
#define IDC_CM_HINT 509
#define IDC_CM_COMMAND1 510
#define IDC_CM_COMMAND2 511

// frmMain (the loading window): 600-699
#define IDD_LOADING 600
#define IDC_LD_TITLE 601
#define IDC_LD_BAR 602

// The program's input box: 700-799
#define IDD_INPUTBOX 700
#define IDC_IB_PROMPT 701
#define IDC_IB_TEXT 702
#define IDC_IB_OK 703
#define IDC_IB_CANCEL 704

// frmMultiline: 800-899
#define IDD_MULTILINE 800
#define IDC_ML_CHAT 801      // txtChat
#define IDC_ML_HIDDEN 802    // txtHidden
#define IDC_ML_PROGRESS 803  // SSPanel1, made in code
#define IDC_ML_INSERT 810
#define IDC_ML_SEND 811
#define IDC_ML_CLOSE 812

// frmEFade (the e-mail fader toolbar): 900-999
#define IDD_EFADE 900
#define IDC_EF_LABEL1 901  // the strip the toolbar is dragged by
#define IDC_EF_FADE 910
#define IDC_EF_UNDO 911
#define IDC_EF_CP 912
#define IDC_EF_EXIT 913

// frmFadeMsg (please wait while a mail is faded): 1000-1099
#define IDD_FADEMSG 1000
#define IDC_FM_LABEL1 1001
#define IDC_FM_MSG 1002
#define IDC_FM_LABEL3 1003

// frmEMailFade (mailing Fade Schemes): 1100-1199
#define IDD_EMAILFADE 1100
#define IDC_EM_SCHEMES 1101
#define IDC_EM_LABEL 1102
#define IDC_EM_EMAIL 1110
#define IDC_EM_EXIT 1111

// frmoptions: 1200-1299
#define IDD_OPTIONS 1200
#define IDC_OP_OPENFADE 1201  // chkOpenFade
#define IDC_OP_CHATKW 1202
#define IDC_OP_EFADE 1203
#define IDC_OP_LABEL2 1204
#define IDC_OP_MULTILINE 1205
#define IDC_OP_LABEL4 1206
#define IDC_OP_BURSTSECS 1207
#define IDC_OP_LABEL5 1208
#define IDC_OP_LINETITLE 1209
#define IDC_OP_LINES 1210
#define IDC_OP_LABEL6 1211
#define IDC_OP_LABEL7 1212
#define IDC_OP_LABEL1 1213
#define IDC_OP_ALIAS 1214     // chkAlias
#define IDC_OP_LBLALIAS 1215
#define IDC_OP_TXTALIAS 1216
#define IDC_OP_FADESAMPLE 1217
#define IDC_OP_LABEL3 1218
#define IDC_OP_UISTD 1220
#define IDC_OP_UIENH 1221
#define IDC_OP_UIUSER 1222
#define IDC_OP_SETCOLORS 1230
#define IDC_OP_HELP 1231
#define IDC_OP_EXIT 1232

// frmAbout: 1300-1399
#define IDD_ABOUT 1300
#define IDC_AB_PICTURE1 1301  // with the title, Label10, painted on it
#define IDC_AB_LBLCOLOR 1302
#define IDC_AB_LABEL2 1303
#define IDC_AB_VERSION 1304
#define IDC_AB_LABEL3 1305
#define IDC_AB_RELEASE 1306
#define IDC_AB_UPDATES 1310
#define IDC_AB_HELP 1311
#define IDC_AB_OK 1312

// frmVerCheck (the upgrade check's wait window): 1400-1499
#define IDD_VERCHECK 1400
#define IDC_VC_LABEL2 1401
#define IDC_VC_MSG 1402  // lblMsg
#define IDC_VC_CANCEL 1410

// frmUpdate (the upgrade check's answer): 1500-1599
#define IDD_UPDATE 1500
#define IDC_UP_MSG 1501     // lblMsg
#define IDC_UP_LABEL2 1502
#define IDC_UP_CURVER 1503  // lblCurVer
#define IDC_UP_LABEL3 1504
#define IDC_UP_REPORT 1505  // lblReport
#define IDC_UP_YES 1510
#define IDC_UP_OK 1511

// frmWizard (the Import/Export wizard): 1600-1699; its pages are child
// dialogs of their own, so a page's controls are found inside the page.
#define IDD_WIZARD 1600
#define IDC_WZ_BACK 1601
#define IDC_WZ_NEXT 1602
#define IDC_WZ_FINISH 1603
#define IDC_WZ_CANCEL 1604
#define IDC_WZ_HELP 1605
#define IDD_WZ_ONE 1610  // fraOne
#define IDC_WZ_LABEL1 1611
#define IDC_WZ_LABEL2 1612
#define IDC_WZ_OPTIMPORT 1613
#define IDC_WZ_LABEL4 1614
#define IDC_WZ_OPTEXPORT 1615
#define IDC_WZ_LABEL3 1616
#define IDD_WZ_TWO 1620  // fraTwo
#define IDC_WZ_LBLDRIVE 1621
#define IDC_WZ_OPTONE 1622  // optOne to optSeven: 1622-1628
#define IDC_WZ_LABEL5 1630
#define IDC_WZ_LBLPATH 1631
#define IDC_WZ_SUBFOLDER 1632
#define IDC_WZ_LBLDRVFORMAT 1633
#define IDD_WZ_IMPORT 1640  // fraImport
#define IDC_WZ_LABEL12 1641
#define IDC_WZ_LABEL13 1642
#define IDC_WZ_LABEL14 1643
#define IDC_WZ_LOCATEKEY 1644
#define IDC_WZ_LABEL15 1645
#define IDC_WZ_LBLIMPORT 1646
#define IDD_WZ_THREE 1650  // fraThree
#define IDC_WZ_LBLFROM 1651
#define IDC_WZ_TXTFILES 1652
#define IDC_WZ_LSTSCHEMES 1653
#define IDD_WZ_FOUR 1660  // fraFour
#define IDC_WZ_LBLACTION 1661
#define IDC_WZ_LBLSAVE 1662
#define IDC_WZ_LBLSAVETO 1663
#define IDC_WZ_LABEL8 1664
#define IDC_WZ_LBLDRVTYPE 1665
#define IDC_WZ_LBLMSG 1666
#define IDD_WZ_BACKUP 1670  // fraBackup
#define IDC_WZ_FRAME 1671   // its "Overall Progress" frame
#define IDC_WZ_PRGSTATUS 1672
#define IDC_WZ_CANCELPROGRESS 1673
#define IDD_WZ_FINISH 1680  // fraFinish
#define IDC_WZ_LABEL9 1681
#define IDC_WZ_LABEL10 1682
#define IDC_WZ_LABEL11 1683
