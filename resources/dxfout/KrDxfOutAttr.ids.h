#define kDxfOutAttrDialog 4064

#define kOutLayerAutoRadio 4000
#define kOutLayerTableRadio 4001
#define kOutLayerNewButton 4011
#define kOutLayerChangeButton 4012

#define kOutLineAutoRadio 4009
#define kOutLineTableRadio 4016
#define kOutLineChangeButton 4013

#define kOutFontAutoRadio 4018
#define kOutFontTableRadio 4019
#define kOutFontChangeButton 4014

#define kOutArrowAutoRadio 4024
#define kOutArrowTableRadio 4025
#define kOutArrowChangeButton 4062

#define kOutKeepSettingsCheck 4080

// The labels "説明": where the mouse opens the explanation of a group.
#define kOutLayerHelpLabel 4076
#define kOutColorHelpLabel 4077
#define kOutLineHelpLabel 4078
#define kOutFontHelpLabel 4081
#define kOutArrowHelpLabel 4082
