// The explanations of the attribute conversion's groups.
#define kOutLayerConversionHelp 4065
#define kOutColorConversionHelp 4066
#define kOutLineConversionHelp 4067
#define kOutFontConversionHelp 4068
#define kOutArrowConversionHelp 4069
