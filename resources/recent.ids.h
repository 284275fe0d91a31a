// The menu of the label "ファイル名".
#define kRecentMenu 4079
#define kClearRecentCommand 32774
