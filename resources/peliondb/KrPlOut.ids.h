// Drawings, to be written for Pelion.
#define kPlOutDialog 4041

#define kPlOutFileRadio 4000
#define kPlOutDatabaseRadio 4001  // the floppy, in the variant without a database
#define kPlOutFloppyRadio 4002
#define kPlOutNewRadio 4003
#define kPlOutAddRadio 4008
#define kPlOutFileEdit 4005
#define kPlOutRecentCombo 4084
#define kPlOutBrowseButton 4011
#define kPlOutCurrentModelRadio 4009
#define kPlOutByNameRadio 4016
#define kPlOutPatternEdit 4006
#define kPlOutModelsButton 4012
#define kPlOutDriveLabel 4064
#define kPlOutDriveEdit 4007
#define kPlOutDriveButton 4013
#define kPlOutGroupEdit 4010
#define kPlOutGroupButton 4014
#define kPlOutUserEdit 4035
#define kPlOutUserButton 4015
#define kPlOutDrawingEdit 4036
#define kPlOutPageRadio 4017
#define kPlOutPageCombo 4004
#define kPlOutCurrentRadio 4018
#define kPlOutCurrentEdit 4051
#define kPlOutCurrentItemsEdit 4052
#define kPlOutPictureRadio 4019
#define kPlOutPictureCombo 4034
#define kPlOutActiveRadio 4020
#define kPlOutActiveItemsEdit 4065
#define kPlOutParametersButton 4062
