#define kVrInDialog 4040
