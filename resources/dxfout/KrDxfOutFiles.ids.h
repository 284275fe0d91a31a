// The lists of drawing pages and of pictures, each with a file to be written.
#define kDxfOutPictureDialog 4019
#define kDxfOutPageDialog 4020

#define kCommonNameEdit 4005
#define kCommonNameButton 4011
