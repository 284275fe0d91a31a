// The password dialog.
#define kDxfPassDialog 4048
#define kProtectedFileEdit 4070
#define kPasswordEdit 4069
