// Line widths and their line weights.
#define kDxfInLineWidthGridDialog 4012
