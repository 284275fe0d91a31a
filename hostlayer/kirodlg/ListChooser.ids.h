#define kListChooserDialog 1
#define kChooserPrompt 1001
#define kChooserList 1002
