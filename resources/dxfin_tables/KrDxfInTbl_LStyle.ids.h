// Line types and their line fonts and weights.
#define kDxfInLineTypeGridDialog 4009
#define kTwoByteRadio 4000
#define kOneByteRadio 4001
