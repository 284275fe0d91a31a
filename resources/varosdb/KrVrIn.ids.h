// Drawings of a Varos database, to be read.
#define kVrInDialog 4040

#define kVrInNewRadio 4000
#define kVrInAddRadio 4001
#define kVrInOverlayRadio 4002
#define kVrInViewEdit 4005
#define kVrInPictureCombo 4004
#define kVrInCharSpacingEdit 4006
#define kVrInLineSpacingEdit 4007
#define kVrInSubModelEdit 4010
#define kVrInFileEdit 4035
#define kVrInRecentCombo 4034
#define kVrInBrowseButton 4011
#define kVrInErrorsRadio 4003
#define kVrInNoErrorsRadio 4008
