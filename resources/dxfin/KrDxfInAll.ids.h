#define kDxfInAllDialog 4002

#define kBatchNewRadio 4000
#define kBatchAddRadio 4001
#define kBatchPictureCombo 4004
#define kBatchDiskRadio 4067
#define kBatchFloppyRadio 4068
#define kPatternEdit 4005
#define kListButton 4011
#define kBatchTableEdit 4006
#define kBatchTableBrowseButton 4012
#define kBatchParametersButton 4013
#define kBatchAttributesButton 4014
