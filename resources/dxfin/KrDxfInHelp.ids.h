// The explanations of the import dialog's groups.
#define kDataTypeHelp 4073
#define kModeHelp 4074
#define kPictureHelp 4075
#define kMatrixHelp 4076
#define kScaleHelp 4077
