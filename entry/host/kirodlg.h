// kirodlg: the host's own choosers of pictures and drawing layouts.
#pragma once

#include "HostApi.h"

#if defined(KIRODLG_BUILD)
#define KIRODLG_API KIRO_HOST_EXPORT
#else
#define KIRODLG_API KIRO_HOST_IMPORT
#endif

// The chosen number, or 0 or less when cancelled. flags: 256 flags of the pictures that may be chosen, or null for all.
KIRODLG_API int PicLstDlg(int kind, int mode, KrWindow owner, const bool* flags);
// list: room for 256 chosen numbers, *count of them; both may be null.
KIRODLG_API int DrwLstDlg(int kind, int mode, KrWindow owner, int* list, int* count);
