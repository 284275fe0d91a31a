// Classes or revisions and their layers.
#define kDxfOutClassGridDialog 4024

// What an item in a composite item goes by.
#define kByModelRadio 4000
#define kByCompositeRadio 4001
#define kByItemRadio 4002
