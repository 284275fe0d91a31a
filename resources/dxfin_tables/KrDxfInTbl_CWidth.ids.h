// Colours and their line weights.
#define kDxfInColorWidthGridDialog 4011
