// The import dialog.
#define kDxfInDialog 4000

#define kDrawingRadio 4000
#define kShapeRadio 4001
#define kNewRadio 4002
#define kAddRadio 4003
#define kPictureEdit 4035
#define kPictureCombo 4004
#define kMatrixOnRadio 4008
#define kMatrixOffRadio 4009
#define kScaleEdit 4005
#define kScaleCombo 4034
#define kDiskRadio 4067
#define kFloppyRadio 4068
#define kFileNameLabel 4087
#define kFileNameEdit 4010
#define kRecentCombo 4084
#define kBrowseButton 4011
#define kVersionText 4076
#define kSubModelEdit 4006
#define kTableEdit 4007
#define kTableBrowseButton 4012
#define kParametersButton 4013
#define kAttributesButton 4014
#define kBatchButton 4015

// Hidden statics: where the mouse opens the explanation of a group.
#define kDataTypeZone 4077
#define kModeZone 4081
#define kPictureZone 4078
#define kMatrixZone 4082
#define kScaleZone 4083
