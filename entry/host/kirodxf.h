// kirodxf: the host's DXF/DWG library. One reader exists; it works on one file at a time. Paths: internal form.
#pragma once

#include "HostApi.h"
#include "ParamBlocks.h"
#include "TARNAINFO.h"

#if defined(KIRODXF_BUILD)
#define KIRODXF_API KIRO_HOST_EXPORT
#else
#define KIRODXF_API KIRO_HOST_IMPORT
#endif

// ---- Reading group code and value pairs ----

// What the reader knows of its input. Set both to 0 before a file is examined.
typedef struct DxfInputBlock {
    int32_t binary;     // not 0: the examined file is binary DXF
    int32_t wideCodes;  // not 0: a binary file with two-byte group codes
} DxfInputBlock;
KIRODXF_API DxfInputBlock* DxfKiroInp(void);

KIRODXF_API int DxfCheckBinary(const char* path);  // looks at the file's start; 0 when it could be read
KIRODXF_API int DxfGetBinary(void);                // not 0: the file examined last is binary DXF
KIRODXF_API int DxfOpenBinary(const char* path);   // 0 on success
KIRODXF_API int dxfxxopen(const char* path);       // opens a text file; 0 on success
KIRODXF_API void dxfxxclos(void);                  // closes whichever is open; nothing when none is

// Text files. dxfinread reads the next line (CR LF, LF or CR at its end, which is not part of it); 0 on success, not 0
// at the end or on a failure. dxfinctoi: the line as a group code, or -1 when it is no number (also for negative codes
// that have no meaning in a file, such as -5). A line of any length is read; DxfGetText gives as much of it as fits.
KIRODXF_API int dxfinread(void);
KIRODXF_API int dxfinctoi(void);

// Binary files: reads the next pair. The group code, or a negative number at the end or when the file breaks off or
// makes no sense; nothing more can be read then.
KIRODXF_API int dxfinbinary(void);

// The text of the line or value read last: the bytes of the file, up to a NUL, cut to size - 1 bytes. Of a longer text
// the first 4095 bytes are kept, while the length is that of the whole. The encoding is the file's. For a binary value
// that is not text: its decimal form.
KIRODXF_API int DxfGetText(char* out, int size);  // the length of the whole text

KIRODXF_API int dxfinAsciiTable(const char* path);

// ---- Converting drawings ----

// The functions below, and those for model files in kiromdl.h, return 0 or one of the error codes that
// DxfGetErrorMessage has a text for (EUC); KrUtility's GetMessageText has the same text (Shift-JIS) under the code
// without its sign. These are all of theirs.
KIRO_CONSTANT(kDxfNoFile, -1);
KIRO_CONSTANT(kDxfCannotOpen, -2);
KIRO_CONSTANT(kDxfFileInUse, -3);
KIRO_CONSTANT(kDxfCannotRead, -4);
KIRO_CONSTANT(kDxfCannotCreate, -5);  // no right, or a folder of that name
KIRO_CONSTANT(kDxfCannotWrite, -6);
KIRO_CONSTANT(kDxfWriteProtected, -7);
KIRO_CONSTANT(kDxfDiskFull, -8);
KIRO_CONSTANT(kDxfMediumNotReady, -9);
KIRO_CONSTANT(kDxfBadName, -10);  // no absolute path of a file
KIRO_CONSTANT(kDxfNoFolder, -11);
KIRO_CONSTANT(kDxfNoDrawing, -20);  // of an import: the file is no DXF
KIRO_CONSTANT(kDxfCutOff, -23);
KIRO_CONSTANT(kDxfBadPair, -24);
KIRO_CONSTANT(kDxfBroken, -25);   // also of a model file
KIRO_CONSTANT(kDxfNothing, -26);  // there is no item to be written
KIRO_CONSTANT(kDxfDwgDrawing, -29);
KIRO_CONSTANT(kDxfShape, -30);  // what the record's dataType wants
KIRO_CONSTANT(kDxfNoTable, -40);  // the layer table that was named cannot be read
KIRO_CONSTANT(kDxfTooManyItems, -60);
KIRO_CONSTANT(kDxfNoPicture, -61);
KIRO_CONSTANT(kDxfNoLayout, -62);
KIRO_CONSTANT(kDxfNoMemory, -80);
KIRO_CONSTANT(kDxfNoDwgWriter, -83);
KIRO_CONSTANT(kDxfNotThatVersion, -84);

// Reads a drawing, text or binary DXF, into the active model, by the parameters and the layer table that were set last
// (setdxfinparam, setdxfintblnam; without them by the kept defaults, and automatically) and by "DXFKIRO_LINE" in the
// folder of "#DXF:TABLE#" where the parameters want it; a table that is not there counts as an empty one. A layer table
// that is named and cannot be read is an error, and so is a DWG (kDxfDwgDrawing). path: the drawing; the record's
// own file name plays no part. info: its addMode, pictureNumber and scale; null: a new model, picture 1, scale 1.
// After an error, also in the middle of the file, the active model is as it was. Otherwise it is modified; a new one
// replaces what it was, whether that was saved or not.
KIRODXF_API int dxfin(const char* path, const TARNAINFO* info);

// ---- Messages ----

// The text for an error code of a conversion, EUC. Unknown codes have a text too. Valid until the next call.
KIRODXF_API const char* DxfGetErrorMessage(int code);

// ---- Parameters and tables ----

KIRODXF_API void setdxfinparam(const DxfInParamBlock* params);  // of the next import; copied. Null: those before stay
// Keeps the parameters given last as the defaults, beyond the end of the program; 0 on success. Otherwise, and when
// none were given, the defaults kept before stay.
KIRODXF_API int DxfInWriteParam(void);
KIRODXF_API int DxfInReadParam(DxfInParamBlock* params);  // the kept defaults; 0 on success, or params is as before
// The same of the export: DxfOutParamBlock whole.
KIRODXF_API void setdxfotparam(const DxfOutParamBlock* params);
KIRODXF_API int DxfOutWriteParam(void);
KIRODXF_API int DxfOutReadParam(DxfOutParamBlock* params);
// The layer conversion table of the next import or export, internal form; copied. Null: the one before stays.
KIRODXF_API void setdxfintblnam(const char* name);
KIRODXF_API void setdxfottblnam(const char* name);
KIRODXF_API void setdxfdrawscl(double scale);
// Writes one file of the active model, text or binary DXF, of a layout (drawing above 0) with the pictures that it
// shows, or of a picture, by the parameters and the layer table that were set last, as dxfin does, and by
// "KIRODXF_LINE". A path that ends in ".dwg" or lies in the folder of "#DWG#" is refused (kDxfNoDwgWriter). The file is
// replaced in one step: after an error, and when the program is stopped, the old file is there, whole. floppy: the
// medium may be missing (kDxfMediumNotReady).
KIRODXF_API int DxfOutFloppy(bool floppy, const char* path, int drawing, int picture);
KIRODXF_API int DxfIsModelCheck(void);  // not 0: the model is to be checked before an export
KIRODXF_API void d161907cnsout(void);   // saves the host's settings

// The block names of arrow heads as DXF files have them, such as "_DOT"; Shift-JIS, null past the last.
KIRODXF_API const char* dxfinGetArrowName(int index);
KIRODXF_API const char* dxfotGetArrowName(int index);  // the same for the export
KIRODXF_API int dxfotCheckArrow(const char* name);     // not 0: one of the names for the export, byte for byte

// The colour numbers of DXF: 1 to 255, and as white 0 (by block) and 256 (by layer). Black for any other number. Values
// are 0 to 255; one that is not wanted may be null.
KIRODXF_API void DxfGetColorRGB(int color, int16_t* red, int16_t* green, int16_t* blue);
// Prepares the palette. It is constant here: nothing changes, and no call is needed.
KIRODXF_API void DxfSetColorRGB(void);

KIRO_CONSTANT(kDxfLineWidths, 24);
KIRODXF_API double DxfGetLineWidth(int index);    // the standard widths in mm, 0 to 23, ascending; -1 for another index
KIRODXF_API int DxfCheckLineWidth(double width);  // not 0: exactly a standard width

// The list of default widths has the line weights 1 to 16, in this order and each shown as its number.
KIRO_CONSTANT(kDxfLineWeights, 16);
KIRODXF_API int DxfGetLineWeight(int index);  // the weight for an index of that list; 0 for another index

// Byte for byte, letter case too; a null pointer is the empty text. A text's NUL ends the comparison: neither reads
// past it. 0: equal; otherwise less or more than 0 by the first bytes (as unsigned) that differ.
KIRODXF_API int dxfmemcmp(const char* line, const char* keyword, int count);  // at most the first count bytes
KIRODXF_API int dxfstrcmp(const char* left, const char* right);
