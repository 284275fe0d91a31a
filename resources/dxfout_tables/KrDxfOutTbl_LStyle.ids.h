// Line fonts and their line types, line weights and their colours and widths.
#define kDxfOutLineTypeGridDialog 4027
#define kWeightGrid 4060
#define kCustomizeButton 4011
