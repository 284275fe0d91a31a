#define kDxfLineWidthDialog 4055
