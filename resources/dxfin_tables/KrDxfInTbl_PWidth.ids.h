// Polyline widths and their line weights.
#define kDxfInPolyWidthGridDialog 4010
