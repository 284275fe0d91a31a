// Arrow heads and their marks.
#define kDxfInArrowDialog 4015
