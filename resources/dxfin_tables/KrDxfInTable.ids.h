#define kInTableDialog 4005

#define kNewLayerTableButton 4011
#define kChangeLayerTableButton 4015
#define kLineTableButton 4012
#define kFontTableButton 4013
#define kArrowTableButton 4014
