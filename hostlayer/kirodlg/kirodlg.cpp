// The host's choosers of pictures and drawing layouts. Their lists are not part of this host yet: every call is
// cancelled.
#include "entry/host/kirodlg.h"

int PicLstDlg(int, int, KrWindow, const bool*) { return 0; }

int DrwLstDlg(int, int, KrWindow, int*, int*) { return 0; }
