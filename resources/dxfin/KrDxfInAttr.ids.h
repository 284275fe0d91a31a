#define kDxfInAttrDialog 4058
