#define kOutLayerTableDialog 4025

// When drawing pages are converted.
#define kPagesByPictureRadio 4000
#define kPagesByClassRadio 4001
#define kPagesByRevisionRadio 4002
// When pictures are converted.
#define kPicturesByClassRadio 4003
#define kPicturesByRevisionRadio 4008

#define kPictureLayersButton 4011
#define kClassLayersButton 4012
#define kRevisionLayersButton 4013
#define kOutColorsButton 4014
