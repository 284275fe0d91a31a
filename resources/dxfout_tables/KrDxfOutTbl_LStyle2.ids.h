// Line-type patterns and their dashes and gaps.
#define kDxfOutPatternGridDialog 4028
#define kPitchGrid 4060
