#define kDxfLineTypeDialog 4054

#define kFixedPatternRadio 4002
#define kScaledPatternRadio 4003
#define kPitchFactorEdit 4005
#define kMultiplyPitchesButton 4011
#define kNameLineTypesButton 4013
#define kRestoreLineNamesButton 4014
#define kPitchFactorLabel 4076
#define kPitchFactorEndLabel 4077
#define kPatternDisplayBox 4081
