// kirogr: the host's windows and drawn line patterns.
#pragma once

#include "HostApi.h"

#if defined(KIROGR_BUILD)
#define KIROGR_API KIRO_HOST_EXPORT
#else
#define KIROGR_API KIRO_HOST_IMPORT
#endif

typedef struct HxLineStyle HxLineStyle;

KIROGR_API KrWindow Grgetwin(int number);  // -1: the main window; null when there is none
KIROGR_API void lftpattern(HxLineStyle* style, double draftingScale);
KIROGR_API void clearUserPen(void);
