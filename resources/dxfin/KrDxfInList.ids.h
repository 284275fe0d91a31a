// The list of drawings of a batch, and what it asks when one of them fails.
#define kDxfInListDialog 4004
#define kDxfInGoOnDialog 4090

#define kDrawingCount 4005
#define kMarkAllButton 4011
#define kMarkNoneButton 4012
#define kNamesFromFilesButton 4013

#define kGoOnIcon 4000
#define kGoOnText 4001
#define kGoOnForAllCheck 4002
