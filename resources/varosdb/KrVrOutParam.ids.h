// The parameters of drawings that are written for Varos.
#define kVrOutParamDialog 4044

#define kVrExpandSymbolsRadio 4000
#define kVrKeepSymbolsRadio 4001
#define kVrNoFrameRadio 4002
#define kVrFrameRadio 4003
#define kVrTitleOnlyRadio 4008
#define kVrDetailsRadio 4009
#define kVrNoDetailsRadio 4016
#define kVrOverlaysRadio 4017
#define kVrNoOverlaysRadio 4018
#define kVrHiddenRadio 4019
#define kVrNoHiddenRadio 4020
#define kVrEachViewRadio 4021
#define kVrOneViewRadio 4022
#define kVrLabelEdit 4005
#define kVrGroupEdit 4006
#define kVrUserEdit 4007
#define kVrCapacityEdit 4010
#define kVrHeightRatioEdit 4035
#define kVrWidthRatioEdit 4036
#define kVrKeepParametersCheck 4028
