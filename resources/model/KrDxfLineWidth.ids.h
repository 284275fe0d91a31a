#define kDxfLineWidthDialog 4055

#define kNoDisplayRadio 4000
#define kDisplayByNumberRadio 4001
#define kRealDisplayRadio 4002
#define kNoWidthsButton 4011
#define kWidthsFromPitchButton 4012
#define kRestoreWidthsButton 4013
#define kSaveWidthsButton 4014
#define kWidthDisplayBox 4076
