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
