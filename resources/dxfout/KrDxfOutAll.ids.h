#define kDxfOutAllDialog 4018
