#define kPlInDialog 4036
