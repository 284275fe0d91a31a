// Colours and the colours that they become.
#define kDxfOutColorGridDialog 4035
