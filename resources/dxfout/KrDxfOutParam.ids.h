// The export parameters.
#define kDxfOutParamDialog 4021

#define kGx3Radio 4002
#define kR13Radio 4003
#define kR14Radio 4008
#define k2000Radio 4009
#define k2004Radio 4066
#define k2007Radio 4071
#define k2010Radio 4074
#define k2013Radio 4085
#define kAsciiRadio 4000
#define kBinaryRadio 4001
#define kPaperCoordinatesRadio 4016
#define kModelCoordinatesRadio 4017
#define kSjisRadio 4018
#define kEucRadio 4019
#define kUtf8Radio 4072
#define kAngleRadio 4024
#define kTwoPointsRadio 4025
#define kPolylineRadio 4037
#define kCurveElementsRadio 4038
#define kHiddenConvertedRadio 4022
#define kHiddenSkippedRadio 4023
#define kPerLineRadio 4020
#define kPerCharacterRadio 4021
#define kDivisionEdit 4005
#define kPidGroup 4111
#define kPidOffRadio 4057
#define kPidOnRadio 4058

// A row each: as a block, expanded, the block's name.
#define kSubmodelBlockRadio 4026
#define kSubmodelExpandRadio 4027
#define kSubmodelNameEdit 4006
#define kSymbolBlockRadio 4039
#define kSymbolExpandRadio 4040
#define kSymbolNameEdit 4007
#define kUseSymbolNameRadio 4053
#define kMarkBlockRadio 4041
#define kMarkExpandRadio 4042
#define kMarkNameEdit 4010
#define kFcsBlockRadio 4043
#define kFcsExpandRadio 4044
#define kFcsNameEdit 4035
#define kCompositeBlockRadio 4045
#define kCompositeExpandRadio 4046
#define kCompositeNameEdit 4036
#define kHatchBlockRadio 4047
#define kHatchExpandRadio 4048
#define kHatchNameEdit 4051
#define kDimensionBlockRadio 4049
#define kDimensionExpandRadio 4050
#define kDimensionNameEdit 4052

#define kKeepParametersCheck 4028
