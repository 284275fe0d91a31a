#define kVrOutDialog 4043
