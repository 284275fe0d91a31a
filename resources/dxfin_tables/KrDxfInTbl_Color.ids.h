// Colours and their revisions or classes.
#define kDxfInColorGridDialog 4007
