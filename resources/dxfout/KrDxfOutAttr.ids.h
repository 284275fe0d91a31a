#define kDxfOutAttrDialog 4064
