#define kDxfInAllDialog 4002
