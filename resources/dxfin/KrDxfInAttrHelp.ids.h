// The explanations of the attribute conversion's groups.
#define kLayerConversionHelp 4060
#define kLineTypeConversionHelp 4061
#define kLineWidthConversionHelp 4062
#define kColorConversionHelp 4063
#define kArrowConversionHelp 4059
#define kTextWidthConversionHelp 4071
