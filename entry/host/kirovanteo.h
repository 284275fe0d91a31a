// The commands of kirovanteo.dll, as a host program calls them.
//
// Every function runs one command's dialog, modally, over the host's main window (Grgetwin(-1)) and returns when it is
// closed. Call them on the thread that owns that window, one at a time. No argument may be null. Text in the records is
// EUC unless TARNAINFO.h says otherwise.
//
// C11 and C++17.
#pragma once

#include "HostApi.h"
#include "ParamBlocks.h"
#include "TARNAINFO.h"

#if defined(KIROVANTEO_BUILD)
#define KIROVANTEO_API KIRO_HOST_EXPORT
#else
#define KIROVANTEO_API KIRO_HOST_IMPORT
#endif

// Command dialogs: 0 when the user confirmed; the record then holds the choices. 1 when the user cancelled or the
// dialog could not be shown.
KIROVANTEO_API int DxfInputDlg(TARNAINFO* info);
KIROVANTEO_API int DxfOutputDlg(TARNAINFO* info);
KIROVANTEO_API int DxfInputPass(TARNAINFO* info);  // fills info->input.password
KIROVANTEO_API int PlInputDlg(TARNAINFO* info);
KIROVANTEO_API int PlOutputDlg(TARNAINFO* info);
KIROVANTEO_API int VrInputDlg(TARNAINFO* info);
KIROVANTEO_API int VrOutputDlg(TARNAINFO* info);
KIROVANTEO_API int CatiaInputDlg(CATIAINFO* info);

// Model settings: true when the user confirmed, false otherwise. (The opposite sense of the command dialogs; the host
// relies on both.) The arrays are read only; what was set is in the active model. Element 0 of each is a state word,
// the others are 1 for each layer, line type or line width that is used; any other value: not used.
//
// layerNames: 257 elements. State 0: the user is asked first; any other: is refused. mode 0: names of classes, for an
// export to DXF; 1: of revisions, to DXF; 2: of classes, to DWG; any other: of revisions, to DWG.
KIROVANTEO_API bool DxfLayerNameDialog(int32_t mode, int32_t* layerNames);
// lineTypes: 64 elements. State 0: names and patterns are edited at once; 1: an export to DXF asks first, for the names
// alone; any other above 0: an export to DWG does; below 0: the user is refused.
KIROVANTEO_API bool DxfLineTypeDialog(int32_t* lineTypes);
// lineWidths: 17 elements, the state as above. mode 0: standard widths alone (DxfGetLineWidth); any other: 0 to 10.
KIROVANTEO_API bool DxfLineWidthDialog(int32_t mode, int32_t* lineWidths);
// kind 1 asks; every other kind shows nothing and gives false.
KIROVANTEO_API bool DxfWarningDialog(int32_t kind);

// Reports of a running conversion. Both return when the user has pressed OK.
KIROVANTEO_API void ErrorMessageBox(int32_t errorCode);  // the text of DxfGetErrorMessage
// message, caption: EUC. What is longer than 127 bytes of Shift-JIS is cut at a character's end.
KIROVANTEO_API void WarningMessageBox(const char* message, const char* caption);
