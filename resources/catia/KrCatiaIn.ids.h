// The import of CATIA models.
#define kCatiaInDialog 4047

#define kCatiaFileEdit 4005
#define kCatiaRecentCombo 4034
#define kCatiaBrowseButton 4011
#define kCatiaNewRadio 4000
#define kCatiaAddRadio 4001
#define kCatiaPictureCombo 4004
#define kCatiaHiddenOffRadio 4002
#define kCatiaHiddenOnRadio 4003
