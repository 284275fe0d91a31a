#define kOutTableDialog 4022

#define kNewOutLayerTableButton 4011
#define kChangeOutLayerTableButton 4014
#define kOutLineTableButton 4012
#define kOutFontTableButton 4013
