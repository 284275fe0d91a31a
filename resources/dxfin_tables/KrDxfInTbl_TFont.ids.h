// Text styles and their text fonts.
#define kDxfInTextFontDialog 4013
#define kExplainButton 4011
