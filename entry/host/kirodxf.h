// kirodxf: the host's DXF/DWG library. One reader exists; it works on one file at a time. Paths: internal form.
#pragma once

#include "HostApi.h"
#include "ParamBlocks.h"

#if defined(KIRODXF_BUILD)
#define KIRODXF_API KIRO_HOST_EXPORT
#else
#define KIRODXF_API KIRO_HOST_IMPORT
#endif

// ---- Reading group code and value pairs ----

// What the reader knows of its input. Set both to 0 before a file is examined.
struct DxfInputBlock {
    std::int32_t binary;     // not 0: the examined file is binary DXF
    std::int32_t wideCodes;  // not 0: a binary file with two-byte group codes
};
KIRODXF_API DxfInputBlock* DxfKiroInp();

KIRODXF_API int DxfCheckBinary(const char* path);  // looks at the file's start; 0 when it could be read
KIRODXF_API int DxfGetBinary();                    // not 0: the file examined last is binary DXF
KIRODXF_API int DxfOpenBinary(const char* path);   // 0 on success
KIRODXF_API int dxfxxopen(const char* path);       // opens a text file; 0 on success
KIRODXF_API void dxfxxclos();                      // closes whichever is open; nothing when none is

// Text files. dxfinread reads the next line (CR LF, LF or CR at its end, which is not part of it); 0 on success, not 0
// at the end or on a failure. dxfinctoi: the line as a group code, or -1 when it is no number (also for negative codes
// that have no meaning in a file, such as -5). A line of any length is read; DxfGetText gives as much of it as fits.
KIRODXF_API int dxfinread();
KIRODXF_API int dxfinctoi();

// Binary files: reads the next pair. The group code, or a negative number at the end or when the file breaks off or
// makes no sense; nothing more can be read then.
KIRODXF_API int dxfinbinary();

// The text of the line or value read last: the bytes of the file, up to a NUL, cut to size - 1 bytes. Of a longer text
// the first 4095 bytes are kept, while the length is that of the whole. The encoding is the file's. For a binary value
// that is not text: its decimal form.
KIRODXF_API int DxfGetText(char* out, int size);  // the length of the whole text

KIRODXF_API int dxfinAsciiTable(const char* path);
KIRODXF_API int dxfin(const char* path);

// ---- Messages ----

// The text for an error code of a conversion, EUC. Unknown codes have a text too. Valid until the next call.
KIRODXF_API const char* DxfGetErrorMessage(int code);

// ---- Parameters and tables ----

KIRODXF_API void setdxfinparam(const DxfInParamBlock* params);  // the parameters of the next import
KIRODXF_API int DxfInWriteParam();                              // keeps them as the defaults; 0 on success
KIRODXF_API void setdxfotparam(const DxfOutParamBlock* params);
KIRODXF_API int DxfOutWriteParam();
KIRODXF_API void setdxfintblnam(const char* name);
KIRODXF_API void setdxfottblnam(const char* name);
KIRODXF_API void setdxfdrawscl(double scale);
KIRODXF_API int DxfOutFloppy(bool floppy, const char* path, int drawing, int picture);  // 0, or a negative error code
KIRODXF_API int DxfIsModelCheck();  // not 0: the model is to be checked before an export
KIRODXF_API void d161907cnsout();   // saves the host's settings

KIRODXF_API const char* dxfinGetArrowName(int index);  // Shift-JIS; null past the last
KIRODXF_API const char* dxfotGetArrowName(int index);  // the same for the export
KIRODXF_API int dxfotCheckArrow(const char* name);     // not 0: known
KIRODXF_API void DxfSetColorRGB();                     // prepares the palette
KIRODXF_API void DxfGetColorRGB(int color, std::int16_t* red, std::int16_t* green, std::int16_t* blue);  // 0 to 256
KIRODXF_API double DxfGetLineWidth(int index);    // the standard widths in mm, 0 to 23, ascending
KIRODXF_API int DxfCheckLineWidth(double width);  // not 0: a standard width
KIRODXF_API int DxfGetLineWeight(int index);      // the weight for an index of the list of default widths
KIRODXF_API int dxfmemcmp(const char* line, const char* keyword, int count);  // 0: the first count bytes are equal
KIRODXF_API int dxfstrcmp(const char* left, const char* right);               // 0: equal, byte for byte
