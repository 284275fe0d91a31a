// The library exists so that programs which import it can be linked and loaded. Its choosers of pictures and drawing
// layouts are not part of this host yet.
#include "entry/host/kirodlg.h"
