// The record through which the host and this library exchange the parameters of one command. It is a plain block of
// little-endian fields, owned by the host; the library keeps only the pointer, and only for the time of one dialog.
//
// The same bytes have three views, one per family of commands. Every offset and width is a binary contract with the
// host's own conversion libraries and is pinned below.
//
// Encoding: text that the host stores is EUC; file paths are in the host's internal form (KrUtility::InternalPathName),
// which is EUC too. The names of a database (drives, groups, users, drawings) are Shift-JIS, as they are shown. A text
// field may come without a NUL: read it with ReadFixedText.
#pragma once

#include "HostApi.h"

typedef struct DxfInParamBlock DxfInParamBlock;
typedef struct DxfOutParamBlock DxfOutParamBlock;

// DxfInputDlg and DxfInputPass.
typedef struct TarnaImportView {
    int32_t inputIsDwg;     // set by the host: 0 = DXF files, otherwise DWG files; never written here
    int32_t inputStatus;    // 0 after a confirmed import dialog
    int32_t addMode;        // 0 = new model, 1 = add to the current model
    int32_t dataType;       // 0 = drawing, 1 = shape
    int32_t pictureNumber;  // target picture: -256 to -1 or 1 to 256
    int32_t reserved20;
    int32_t pictureMatrix;  // 1 = the picture's matrix is applied, 0 = not
    int32_t reserved28;
    double scale;                  // above 1e-6 and below 1e6
    char inputFileName[257];       // internal path form
    char subModelName[257];        // EUC; at most 26 bytes as Shift-JIS
    char layerTableFileName[257];  // in: the table used last; out: the chosen one, internal form for "#DXF:TABLE#"
    char password[129];            // Shift-JIS, as typed, at most 128 bytes of text
    char reserved940[132];
    DxfInParamBlock* importParams;  // owned by the host
} TarnaImportView;

// DxfOutputDlg.
typedef struct TarnaExportView {
    int32_t outputIsDwg;  // set by the host: 0 = DXF file, otherwise DWG file
    int32_t mediaKind;    // 0 = disk, 1 = floppy
    int32_t pictureMode;  // 1 = one picture, 0 = one drawing layout
    int32_t reserved12;
    int32_t pictureNumber;  // 1 to 256; 0 for a drawing layout
    int32_t drawingNumber;  // 1 to 256; 0 for a picture
    char reserved24[16];
    char outputFileName[514];      // internal path form
    char layerTableFileName[526];  // in: shown; out: internal form for "#DXF:TABLE#"
    DxfOutParamBlock* exportParams;
} TarnaExportView;

// One drawing of a database, as the host lists it and the user chooses it.
typedef struct TarnaDrawing {
    int32_t selected;      // 1 = chosen
    char drawingName[41];  // Shift-JIS
    char modelName[35];    // input: Shift-JIS; output: EUC
} TarnaDrawing;

// Output has a pattern of model names in the second half of what is the file name of input.
typedef struct TarnaModelPatternSlot {
    char dbOutFileName[256];   // internal path form; "" when none is named
    char dbModelPattern[256];  // Shift-JIS, as typed
} TarnaModelPatternSlot;

// PlInputDlg, PlOutputDlg, VrInputDlg and VrOutputDlg.
typedef struct TarnaDatabaseView {
    union {
        char dbFileName[512];               // input: Pelion's real path, EUC; Varos's internal form
        TarnaModelPatternSlot patternSlot;  // output
    };
    char dbSubModelName[128];  // Pelion: EUC; Varos: Shift-JIS, as typed
    char dbInputView[3];       // 1 or 2 characters, Shift-JIS; "0" = all views
    char reserved643[5];
    int32_t plDriveKnown;         // not 0 = preselect plDrive
    int32_t plGroupKnown;         // not 0 = preselect plGroup
    int32_t plSelectSettingMode;  // not 0 = the selection dialogs end the choice instead of going on
    char plDrive[2];
    char reserved662[2];
    char plGroup[6];
    char reserved670[2];
    char plUser[8];
    char reserved680[4];
    char dbDrawingName[24];
    char reserved708[16];
    int32_t plwVariant;        // not 0 = the PL/W variant
    int32_t vrFacom;           // 0 = IBM, otherwise FACOM
    int32_t dbSource;          // 0, 1, 2: the source choice
    int32_t dbMode;            // input: 0 new, 1 add, 2 overlay; output: 0 new file, 1 add
    int32_t dbModelByName;     // 0 = current model, 1 = models by name
    int32_t dbOutPage;         // page to write, 0 = not by page
    int32_t dbPicture;         // input: 0 to 256; output: current picture in, picture to write out
    int32_t plSymbolMode;      // 0 expand, 1 existing symbol, 2 create symbol
    int32_t dbFromActiveList;  // 1 = write the items of the active list
    int32_t dbActiveListCount;
    int32_t dbNoErrorOutput;  // 0 = write error output, 1 = not
    double vrCharSpacing;     // 0.1 to 10, ratio to text height
    double vrLineSpacing;     // 0.1 to 10, ratio to text height
    void* dbOutParams;        // PlOutParamBlock or VrOutParamBlock, owned by the host
    char reserved792[4];
    int32_t dbPageCounts[256];
    char dbPageNames[257][257];  // EUC, by page number; slot 0 unused
    char reserved67869[7];
    int32_t dbPictureCounts[256];
    char dbPictureNames[257][257];  // EUC, by picture number; slot 0 unused
    char reserved134949[3];
    int32_t plFloppyGroupCount;
    char plFloppyGroups[512][6];  // padded with blanks
    int32_t plFloppyUserCount;
    char plFloppyUsers[512][8];
    int32_t dbDrawingCount;
    int32_t dbOutModelCount;
    int32_t dbSelectAllAllowed;
    // dbDrawingCount entries, or dbOutModelCount; the host allocates the record as large as they need. The dialogs list
    // kMostDatabaseDrawings at most.
    TarnaDrawing dbDrawings[1];
} TarnaDatabaseView;
KIRO_CONSTANT(kMostDatabaseDrawings, 10000);

// In the export view the file name reaches over the import view's subModelName: after an export that field means
// nothing.
typedef union TARNAINFO {
    TarnaImportView input;
    TarnaExportView output;
    TarnaDatabaseView database;
} TARNAINFO;

// CatiaInputDlg. The host allocates as much room for fileName as its paths need; the library writes at most
// kCatiaFileNameSize bytes, the NUL included.
typedef struct CATIAINFO {
    int32_t addMode;        // 1 = add to the current model, 0 = new model
    int32_t pictureNumber;  // 1 to 256
    int32_t convertHidden;  // 1 = hidden items are converted
    char fileName[257];     // internal path form
} CATIAINFO;
KIRO_CONSTANT(kCatiaFileNameSize, 257);

KIRO_PIN(TarnaImportView, inputIsDwg, 0, 4);
KIRO_PIN(TarnaImportView, inputStatus, 4, 4);
KIRO_PIN(TarnaImportView, addMode, 8, 4);
KIRO_PIN(TarnaImportView, dataType, 12, 4);
KIRO_PIN(TarnaImportView, pictureNumber, 16, 4);
KIRO_PIN(TarnaImportView, pictureMatrix, 24, 4);
KIRO_PIN(TarnaImportView, scale, 32, 8);
KIRO_PIN(TarnaImportView, inputFileName, 40, 257);
KIRO_PIN(TarnaImportView, subModelName, 297, 257);
KIRO_PIN(TarnaImportView, layerTableFileName, 554, 257);
KIRO_PIN(TarnaImportView, password, 811, 129);
KIRO_PIN(TarnaImportView, importParams, 1072, 8);

KIRO_PIN(TarnaExportView, outputIsDwg, 0, 4);
KIRO_PIN(TarnaExportView, mediaKind, 4, 4);
KIRO_PIN(TarnaExportView, pictureMode, 8, 4);
KIRO_PIN(TarnaExportView, pictureNumber, 16, 4);
KIRO_PIN(TarnaExportView, drawingNumber, 20, 4);
KIRO_PIN(TarnaExportView, outputFileName, 40, 514);
KIRO_PIN(TarnaExportView, layerTableFileName, 554, 526);
KIRO_PIN(TarnaExportView, exportParams, 1080, 8);

KIRO_PIN(TarnaDatabaseView, dbFileName, 0, 512);
KIRO_PIN(TarnaDatabaseView, patternSlot, 0, 512);
KIRO_PIN(TarnaModelPatternSlot, dbOutFileName, 0, 256);
KIRO_PIN(TarnaModelPatternSlot, dbModelPattern, 256, 256);
KIRO_PIN(TarnaDatabaseView, dbSubModelName, 512, 128);
KIRO_PIN(TarnaDatabaseView, dbInputView, 640, 3);
KIRO_PIN(TarnaDatabaseView, plDriveKnown, 648, 4);
KIRO_PIN(TarnaDatabaseView, plGroupKnown, 652, 4);
KIRO_PIN(TarnaDatabaseView, plSelectSettingMode, 656, 4);
KIRO_PIN(TarnaDatabaseView, plDrive, 660, 2);
KIRO_PIN(TarnaDatabaseView, plGroup, 664, 6);
KIRO_PIN(TarnaDatabaseView, plUser, 672, 8);
KIRO_PIN(TarnaDatabaseView, dbDrawingName, 684, 24);
KIRO_PIN(TarnaDatabaseView, plwVariant, 724, 4);
KIRO_PIN(TarnaDatabaseView, vrFacom, 728, 4);
KIRO_PIN(TarnaDatabaseView, dbSource, 732, 4);
KIRO_PIN(TarnaDatabaseView, dbMode, 736, 4);
KIRO_PIN(TarnaDatabaseView, dbModelByName, 740, 4);
KIRO_PIN(TarnaDatabaseView, dbOutPage, 744, 4);
KIRO_PIN(TarnaDatabaseView, dbPicture, 748, 4);
KIRO_PIN(TarnaDatabaseView, plSymbolMode, 752, 4);
KIRO_PIN(TarnaDatabaseView, dbFromActiveList, 756, 4);
KIRO_PIN(TarnaDatabaseView, dbActiveListCount, 760, 4);
KIRO_PIN(TarnaDatabaseView, dbNoErrorOutput, 764, 4);
KIRO_PIN(TarnaDatabaseView, vrCharSpacing, 768, 8);
KIRO_PIN(TarnaDatabaseView, vrLineSpacing, 776, 8);
KIRO_PIN(TarnaDatabaseView, dbOutParams, 784, 8);
KIRO_PIN(TarnaDatabaseView, dbPageCounts, 796, 1024);
KIRO_PIN(TarnaDatabaseView, dbPageNames, 1820, 66049);
KIRO_PIN(TarnaDatabaseView, dbPictureCounts, 67876, 1024);
KIRO_PIN(TarnaDatabaseView, dbPictureNames, 68900, 66049);
KIRO_PIN(TarnaDatabaseView, plFloppyGroupCount, 134952, 4);
KIRO_PIN(TarnaDatabaseView, plFloppyGroups, 134956, 3072);
KIRO_PIN(TarnaDatabaseView, plFloppyUserCount, 138028, 4);
KIRO_PIN(TarnaDatabaseView, plFloppyUsers, 138032, 4096);
KIRO_PIN(TarnaDatabaseView, dbDrawingCount, 142128, 4);
KIRO_PIN(TarnaDatabaseView, dbOutModelCount, 142132, 4);
KIRO_PIN(TarnaDatabaseView, dbSelectAllAllowed, 142136, 4);
KIRO_PIN(TarnaDatabaseView, dbDrawings, 142140, 80);
KIRO_PIN(TarnaDrawing, drawingName, 4, 41);
KIRO_PIN(TarnaDrawing, modelName, 45, 35);

KIRO_PIN(CATIAINFO, addMode, 0, 4);
KIRO_PIN(CATIAINFO, pictureNumber, 4, 4);
KIRO_PIN(CATIAINFO, convertHidden, 8, 4);
KIRO_PIN(CATIAINFO, fileName, 12, kCatiaFileNameSize);
