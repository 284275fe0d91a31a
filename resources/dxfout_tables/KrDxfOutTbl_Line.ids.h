#define kDxfOutLineTableDialog 4026

#define kToPolylinesRadio 4000
#define kToLineWidthsRadio 4001
#define kFontLineTypesButton 4011
#define kWeightLineWidthsButton 4012
