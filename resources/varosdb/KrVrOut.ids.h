// Drawings, to be written for Varos.
#define kVrOutDialog 4043

#define kVrOutNewRadio 4000
#define kVrOutAddRadio 4001
#define kVrOutFileEdit 4005
#define kVrOutRecentCombo 4084
#define kVrOutBrowseButton 4011
#define kVrOutCurrentModelRadio 4002
#define kVrOutByNameRadio 4003
#define kVrOutPatternEdit 4006
#define kVrOutModelsButton 4012
#define kVrOutGroupEdit 4007
#define kVrOutGroupButton 4013  // hidden, without a function
#define kVrOutUserEdit 4010
#define kVrOutUserButton 4014  // the same
#define kVrOutDrawingEdit 4035
#define kVrOutPageRadio 4008
#define kVrOutPageCombo 4004
#define kVrOutCurrentRadio 4009
#define kVrOutCurrentEdit 4036
#define kVrOutCurrentItemsEdit 4051
#define kVrOutPictureRadio 4016
#define kVrOutPictureCombo 4034
#define kVrOutActiveRadio 4017
#define kVrOutActiveItemsEdit 4052
#define kVrOutParametersButton 4015
