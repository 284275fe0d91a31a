// What the values of a text style mean.
#define kDxfOutTextFontHelpDialog 4049
#define kOutTextFontFigure 4049
