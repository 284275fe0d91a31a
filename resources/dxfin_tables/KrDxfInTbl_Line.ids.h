#define kLineTableDialog 4034

#define kPolylinesOnRadio 4000
#define kPolylinesOffRadio 4001
#define kColorsOnRadio 4002
#define kColorsOffRadio 4003
#define kWidthsOnRadio 4008
#define kWidthsOffRadio 4009
#define kLineTypesButton 4011
#define kPolylineWidthsButton 4012
#define kColorWidthsButton 4013
#define kLineWidthsButton 4014
