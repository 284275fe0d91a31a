// Marks and their arrow heads.
#define kDxfOutArrowDialog 4070
