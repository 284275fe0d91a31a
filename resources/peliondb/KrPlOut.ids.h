#define kPlOutDialog 4041
