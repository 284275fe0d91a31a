// Line weights and their line widths.
#define kDxfOutLineWidthGridDialog 4030
