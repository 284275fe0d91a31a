#define kLayerTableDialog 4033

#define kLayersToClassesRadio 4000
#define kLayersToRevisionsRadio 4001
#define kLayerClassButton 4011
#define kColorRevisionButton 4012
#define kColorClassButton 4013
#define kLayerRevisionButton 4014
