// The parameter blocks that hang on a record. The host owns them; they outlive the call. All integers are little-endian
// and signed; every offset and width is a binary contract and is pinned below.
#pragma once

#include "TARNAINFO.h"

// Import parameters: 32 words. Words 0 to 19 belong to the parameter dialog, 22 to 31 to the attribute conversion.
struct DxfInParamBlock {
    int32_t kanjiCode;            // 0: 0 Shift-JIS, otherwise EUC
    int32_t fill;                 // 1: 0 string, otherwise fill
    int32_t dimension;            // 2: 0 dimension line, otherwise composite item
    int32_t textAngle;            // 3: 0 angle, otherwise two points
    int32_t dimensionAngle;       // 4: 0 to 3
    int32_t splitItemCount;       // 5
    int32_t maxItemCount;         // 6
    int32_t reserved7;            // 7: passed through
    int32_t roundingDigits;       // 8: 0 to 7
    int32_t angleDigits;          // 9: 0 to 7
    int32_t convertHidden;        // 10: 0 no, otherwise yes
    int32_t viewZone;             // 11: 0 no, otherwise yes
    int32_t singleRounding;       // 12: 0 no, 1 significant digits, otherwise given digits
    int32_t blockData;            // 13: 0 composite item, 1 symbol, 2 submodel
    int32_t symbolOverwrite;      // 14: 0 no, 1 yes
    int32_t reserved15[3];        // 15 to 17
    int32_t paperSpaceTarget;     // 18: 0 ordinary picture, otherwise layout picture
    int32_t lineBreaks;           // 19: 0 no, otherwise yes
    int32_t reserved20[2];        // 20, 21
    int32_t layerConversion;      // 22: 0 automatic, 1 table and automatic, 2 table
    int32_t convertLayerNames;    // 23: 0, 1
    int32_t lineTypeConversion;   // 24: 0 automatic, 1 table and automatic, 2 table
    int32_t lineWidthConversion;  // 25: 0, 1 automatic, 2 table
    int32_t defaultLineWeight;    // 26: a weight of DxfGetLineWeight
    int32_t colorConversion;      // 27: 0, 1 automatic, 2 table
    int32_t arrowConversion;      // 28: 0 automatic, 2 table
    int32_t fontTablePresent;     // 29: not 0 when "DXFFONTTABLE.DAT" exists; read only
    int32_t textWidthConversion;  // 30: 0 automatic, 2 table
    int32_t layerTarget;          // 31: 0 class, 1 revision
};
KIRO_CONSTANT(kDxfInParamWords, 32);
KIRO_STATIC_ASSERT(sizeof(DxfInParamBlock) == kDxfInParamWords * 4, "DxfInParamBlock has its words and nothing else");

#define KIRO_PIN_WORD(field, word) KIRO_PIN(DxfInParamBlock, field, (word)*4, 4)
KIRO_PIN_WORD(kanjiCode, 0);
KIRO_PIN_WORD(fill, 1);
KIRO_PIN_WORD(dimension, 2);
KIRO_PIN_WORD(textAngle, 3);
KIRO_PIN_WORD(dimensionAngle, 4);
KIRO_PIN_WORD(splitItemCount, 5);
KIRO_PIN_WORD(maxItemCount, 6);
KIRO_PIN_WORD(reserved7, 7);
KIRO_PIN_WORD(roundingDigits, 8);
KIRO_PIN_WORD(angleDigits, 9);
KIRO_PIN_WORD(convertHidden, 10);
KIRO_PIN_WORD(viewZone, 11);
KIRO_PIN_WORD(singleRounding, 12);
KIRO_PIN_WORD(blockData, 13);
KIRO_PIN_WORD(symbolOverwrite, 14);
KIRO_PIN_WORD(paperSpaceTarget, 18);
KIRO_PIN_WORD(lineBreaks, 19);
KIRO_PIN_WORD(layerConversion, 22);
KIRO_PIN_WORD(convertLayerNames, 23);
KIRO_PIN_WORD(lineTypeConversion, 24);
KIRO_PIN_WORD(lineWidthConversion, 25);
KIRO_PIN_WORD(defaultLineWeight, 26);
KIRO_PIN_WORD(colorConversion, 27);
KIRO_PIN_WORD(arrowConversion, 28);
KIRO_PIN_WORD(fontTablePresent, 29);
KIRO_PIN_WORD(textWidthConversion, 30);
KIRO_PIN_WORD(layerTarget, 31);
#undef KIRO_PIN_WORD

// Export parameters.
struct DxfOutParamBlock {
    int32_t pidAvailable;      // not 0 when the P&ID option is offered
    int32_t pidConvert;        // 0, 1
    int32_t outputVersion;     // 0 GX-3, 1 R13, 2 R14, 3 2000, 4 2004, 5 2007, 6 2010, 7 2013
    int32_t binaryFormat;      // 0 ASCII, 1 binary
    int32_t kanjiCode;         // 0 Shift-JIS, 1 EUC, 2 UTF-8
    int32_t modelCoordinates;  // 0 paper, 1 model
    int32_t curveExpand;
    int32_t hiddenSkip;
    int32_t textTwoPoints;
    int32_t annotationPerChar;
    int32_t curveDivision;  // 4 to 20
    // The attribute conversion: 0 automatic, 1 by the table. No other dialog uses these four.
    int32_t layerConversion;  // layers and colours, by the layer table that the record names
    int32_t lineConversion;   // line types and line widths, by "KIRODXF_LINE"
    int32_t fontConversion;   // text fonts, by "KIRODXF_STYLE"
    int32_t arrowConversion;  // arrows, by "KIRODXF_ARROW"
    int32_t submodelExpand;
    int32_t symbolExpand;
    int32_t useSymbolName;
    int32_t markExpand;
    int32_t fcsExpand;
    int32_t compositeExpand;
    int32_t hatchExpand;
    int32_t dimensionExpand;
    char submodelBlock[65];  // block names, Shift-JIS
    char symbolBlock[65];
    char markBlock[65];
    char fcsBlock[65];
    char compositeBlock[65];
    char hatchBlock[65];
    char dimensionBlock[65];
};
KIRO_PIN(DxfOutParamBlock, pidAvailable, 0, 4);
KIRO_PIN(DxfOutParamBlock, pidConvert, 4, 4);
KIRO_PIN(DxfOutParamBlock, outputVersion, 8, 4);
KIRO_PIN(DxfOutParamBlock, binaryFormat, 12, 4);
KIRO_PIN(DxfOutParamBlock, kanjiCode, 16, 4);
KIRO_PIN(DxfOutParamBlock, modelCoordinates, 20, 4);
KIRO_PIN(DxfOutParamBlock, curveExpand, 24, 4);
KIRO_PIN(DxfOutParamBlock, hiddenSkip, 28, 4);
KIRO_PIN(DxfOutParamBlock, textTwoPoints, 32, 4);
KIRO_PIN(DxfOutParamBlock, annotationPerChar, 36, 4);
KIRO_PIN(DxfOutParamBlock, curveDivision, 40, 4);
KIRO_PIN(DxfOutParamBlock, layerConversion, 44, 4);
KIRO_PIN(DxfOutParamBlock, lineConversion, 48, 4);
KIRO_PIN(DxfOutParamBlock, fontConversion, 52, 4);
KIRO_PIN(DxfOutParamBlock, arrowConversion, 56, 4);
KIRO_PIN(DxfOutParamBlock, submodelExpand, 60, 4);
KIRO_PIN(DxfOutParamBlock, symbolExpand, 64, 4);
KIRO_PIN(DxfOutParamBlock, useSymbolName, 68, 4);
KIRO_PIN(DxfOutParamBlock, markExpand, 72, 4);
KIRO_PIN(DxfOutParamBlock, fcsExpand, 76, 4);
KIRO_PIN(DxfOutParamBlock, compositeExpand, 80, 4);
KIRO_PIN(DxfOutParamBlock, hatchExpand, 84, 4);
KIRO_PIN(DxfOutParamBlock, dimensionExpand, 88, 4);
KIRO_PIN(DxfOutParamBlock, submodelBlock, 92, 65);
KIRO_PIN(DxfOutParamBlock, symbolBlock, 157, 65);
KIRO_PIN(DxfOutParamBlock, markBlock, 222, 65);
KIRO_PIN(DxfOutParamBlock, fcsBlock, 287, 65);
KIRO_PIN(DxfOutParamBlock, compositeBlock, 352, 65);
KIRO_PIN(DxfOutParamBlock, hatchBlock, 417, 65);
KIRO_PIN(DxfOutParamBlock, dimensionBlock, 482, 65);

// Pelion output parameters.
typedef struct PlOutParamBlock {
    int32_t version;           // 0 version 2, 1 version 3
    int32_t doublePrecision;   // 0 single, 1 double (always 1 for version 3)
    int32_t symbolsAsSymbols;  // 0 expanded, 1 symbols
    int32_t frameMode;         // 0 none, 1 frame, 2 title only
    int32_t detailMode;        // 0 no, 1 yes, 4 yes with composite items
    int32_t convertOverlays;   // 0 no, 1 yes
    int32_t skipHiddenItems;   // 0 converted, 1 not
    int32_t mergeViews;        // 0 each, 1 one
    int32_t drawingCapacity;   // in K: 10 to 64 for version 2, 10 to 9999 for version 3
    char reserved36[4];
    double textHeightRatio;  // 0.1 to 10
    double textWidthRatio;   // 0.1 to 10
    char reserved56[40];
    char drive[4];
    char group[8];
    char user[8];
} PlOutParamBlock;
KIRO_PIN(PlOutParamBlock, version, 0, 4);
KIRO_PIN(PlOutParamBlock, doublePrecision, 4, 4);
KIRO_PIN(PlOutParamBlock, symbolsAsSymbols, 8, 4);
KIRO_PIN(PlOutParamBlock, frameMode, 12, 4);
KIRO_PIN(PlOutParamBlock, detailMode, 16, 4);
KIRO_PIN(PlOutParamBlock, convertOverlays, 20, 4);
KIRO_PIN(PlOutParamBlock, skipHiddenItems, 24, 4);
KIRO_PIN(PlOutParamBlock, mergeViews, 28, 4);
KIRO_PIN(PlOutParamBlock, drawingCapacity, 32, 4);
KIRO_PIN(PlOutParamBlock, textHeightRatio, 40, 8);
KIRO_PIN(PlOutParamBlock, textWidthRatio, 48, 8);
KIRO_PIN(PlOutParamBlock, drive, 96, 4);
KIRO_PIN(PlOutParamBlock, group, 100, 8);
KIRO_PIN(PlOutParamBlock, user, 108, 8);

// Varos output parameters: the layout of the Pelion block from offset 8 on. Details and overlays count the other way
// round here (1 = not converted); that is the host's rule for this block.
typedef struct VrOutParamBlock {
    char reserved0[8];
    int32_t symbolsAsSymbols;  // 1 = symbols
    int32_t frameMode;         // 0 none, 1 frame, 2 title only
    int32_t skipDetails;       // 0 converted, 1 not
    int32_t skipOverlays;      // 0 converted, 1 not
    int32_t skipHiddenItems;   // 0 converted, 1 not
    int32_t mergeViews;        // 0 each, 1 one
    int32_t drawingCapacity;   // in K: 10 to 64
    char reserved36[4];
    double textHeightRatio;
    double textWidthRatio;
    char labelName[40];
    char reserved96[4];
    char group[8];
    char user[8];
} VrOutParamBlock;
KIRO_PIN(VrOutParamBlock, symbolsAsSymbols, 8, 4);
KIRO_PIN(VrOutParamBlock, frameMode, 12, 4);
KIRO_PIN(VrOutParamBlock, skipDetails, 16, 4);
KIRO_PIN(VrOutParamBlock, skipOverlays, 20, 4);
KIRO_PIN(VrOutParamBlock, skipHiddenItems, 24, 4);
KIRO_PIN(VrOutParamBlock, mergeViews, 28, 4);
KIRO_PIN(VrOutParamBlock, drawingCapacity, 32, 4);
KIRO_PIN(VrOutParamBlock, textHeightRatio, 40, 8);
KIRO_PIN(VrOutParamBlock, textWidthRatio, 48, 8);
KIRO_PIN(VrOutParamBlock, labelName, 56, 40);
KIRO_PIN(VrOutParamBlock, group, 100, 8);
KIRO_PIN(VrOutParamBlock, user, 108, 8);
