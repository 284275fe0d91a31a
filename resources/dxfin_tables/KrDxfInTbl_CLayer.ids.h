// Layers and their classes or revisions.
#define kDxfInLayerGridDialog 4006
