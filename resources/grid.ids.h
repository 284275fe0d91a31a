// What all grid editors have.

#define kGrid 4029

#define kGridMenu 4008
#define kAddRowCommand 32771
#define kInsertRowCommand 32772
#define kDeleteRowCommand 32773
