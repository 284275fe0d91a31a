// kirodlg: the host's own choosers of pictures and drawing layouts.
#pragma once

#include "HostApi.h"

#if defined(KIRODLG_BUILD)
#define KIRODLG_API KIRO_HOST_EXPORT
#else
#define KIRODLG_API KIRO_HOST_IMPORT
#endif

// Both: the chosen number, or 0 or less when cancelled. kind and mode are the host's; exports give 5 and 1.
// flags: 256 flags of the pictures that may be chosen, or null for all that hold items.
KIRODLG_API int PicLstDlg(int kind, int mode, KrWindow owner, const bool* flags);
// list: room for 256 chosen numbers, *count of them; both may be null, for a choice of one.
KIRODLG_API int DrwLstDlg(int kind, int mode, KrWindow owner, int* list, int* count);
