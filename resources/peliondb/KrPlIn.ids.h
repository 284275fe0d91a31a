// Drawings of a Pelion database, to be read.
#define kPlInDialog 4036

#define kPlInNewRadio 4000
#define kPlInAddRadio 4001
#define kPlInOverlayRadio 4002
#define kPlInViewEdit 4005
#define kPlInPictureCombo 4004
#define kPlInSubModelEdit 4006
#define kPlInExpandRadio 4003
#define kPlInExistingSymbolRadio 4008
#define kPlInNewSymbolRadio 4009
#define kPlInFirstSourceRadio 4016   // what the two are
#define kPlInSecondSourceRadio 4017  // is the variant's
#define kPlInFloppyRadio 4018
#define kPlInFileEdit 4007
#define kPlInRecentCombo 4034
#define kPlInBrowseButton 4011
#define kPlInErrorsRadio 4019
#define kPlInNoErrorsRadio 4020
