#define kDxfOutDialog 4017
