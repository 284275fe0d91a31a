// What the factors of a text style mean.
#define kDxfInTextFontHelpDialog 4052
#define kTextFontFigure 4050
#define kFigureBox 4000
