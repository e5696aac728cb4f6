// Resource ids of the AOL simulator.
#pragma once

#define IDD_FILE_ATTACH 100
#define IDC_FILE_NAME 1001
#define IDC_FILE_LABEL 1002
