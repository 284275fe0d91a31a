// The lists of drawings to be read, and of models to be written as drawings.
#define kPlInDraw1Dialog 4037
#define kPlInDraw2Dialog 4038
#define kPlOutDrawDialog 4045

#define kSelectAllButton 4011
#define kSelectNoneButton 4012
