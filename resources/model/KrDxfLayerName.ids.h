#define kDxfLayerNameDialog 4057

#define kNamesFromZeroButton 4011
#define kNamesFromOneButton 4012
#define kRestoreLayerNamesButton 4013
