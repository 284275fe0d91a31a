#define kDxfLayerNameDialog 4057
