// Drive, group and user of a Pelion database: on the drives of the computer, or on a floppy.
#define kPlInDriveDialog 4039
#define kPlInDrive1Dialog 4046

// In the place of "次へ" where the choice is all that is wanted.
#define kPlSetButton 4011

// The lists of the drives: drives, groups, users. Those of the floppy: groups, users.
#define kPlFirstList 4029
#define kPlSecondList 4060
#define kPlThirdList 4061
