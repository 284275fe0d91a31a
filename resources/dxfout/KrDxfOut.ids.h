// The export dialog.
#define kDxfOutDialog 4017

#define kOutLayoutRadio 4000
#define kOutLayoutCombo 4004
#define kOutLayoutListButton 4062
#define kOutCurrentRadio 4001
#define kOutCurrentEdit 4005
#define kOutCurrentItemsEdit 4006
#define kOutPictureRadio 4002
#define kOutPictureEdit 4007
#define kOutPictureCombo 4034
#define kOutPictureItemsEdit 4010
#define kOutPictureListButton 4073
#define kOutDiskRadio 4067
#define kOutFloppyRadio 4068
#define kOutFileNameLabel 4087
#define kOutFileNameEdit 4035
#define kOutRecentCombo 4084
#define kOutBrowseButton 4011
#define kOutTableEdit 4036
#define kOutTableBrowseButton 4012
#define kOutParametersButton 4013
#define kOutAttributesButton 4014
#define kOutBatchButton 4015
