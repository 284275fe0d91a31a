#define kDxfOutAllDialog 4018

#define kOutByPictureButton 4011
#define kOutByPageButton 4012
#define kOutAllDiskRadio 4067
#define kOutAllFloppyRadio 4068
