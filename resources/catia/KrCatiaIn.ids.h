#define kCatiaInDialog 4047
