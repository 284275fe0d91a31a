// Pictures and their layers.
#define kDxfOutPictureGridDialog 4023
