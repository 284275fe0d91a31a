// Text fonts and their text styles.
#define kDxfOutTextFontDialog 4031
#define kTwoToOneCheck 4028
#define kOutExplainButton 4011
