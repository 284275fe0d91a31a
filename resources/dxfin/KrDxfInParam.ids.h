#define kDxfInParamDialog 4001
