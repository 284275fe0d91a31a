#define kDxfInAttrDialog 4058

#define kLayerAutoRadio 4000
#define kLayerBothRadio 4001
#define kLayerTableRadio 4002
#define kLayerNewButton 4011
#define kLayerChangeButton 4012
#define kTargetClassRadio 4003
#define kTargetRevisionRadio 4008
#define kLayerNamesCheck 4028

#define kLineTypeAutoRadio 4009
#define kLineTypeBothRadio 4016
#define kLineTypeTableRadio 4017
#define kLineTypeChangeButton 4013

#define kLineWidthAuto1Radio 4018
#define kLineWidthAuto2Radio 4019
#define kLineWidthTableRadio 4020
#define kLineWidthChangeButton 4014

#define kColorAuto1Radio 4021
#define kColorAuto2Radio 4022
#define kColorTableRadio 4023
#define kColorNewButton 4029
#define kColorChangeButton 4015

#define kArrowAutoRadio 4024
#define kArrowTableRadio 4025
#define kArrowChangeButton 4062

#define kTextWidthAutoRadio 4026
#define kTextWidthTableRadio 4027
#define kTextWidthChangeButton 4073

#define kDefaultWeightCombo 4004
#define kKeepSettingsCheck 4080

// The labels "説明": where the mouse opens the explanation of a group.
#define kLayerHelpLabel 4076
#define kLineTypeHelpLabel 4077
#define kLineWidthHelpLabel 4078
#define kColorHelpLabel 4081
#define kArrowHelpLabel 4082
#define kTextWidthHelpLabel 4083
