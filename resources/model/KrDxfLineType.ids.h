#define kDxfLineTypeDialog 4054
