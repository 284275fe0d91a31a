// What the other libraries of this host ask of the model beyond what commands may ask (see entry/host/kiromdl.h).
#pragma once

#include "entry/host/kiromdl.h"

class ByteSink;
class ByteSource;
namespace convert {
struct ExportSettings;
struct ImportSettings;
}  // namespace convert

KIROMDL_API int KiroModelIsChecked();  // not 0: the model is to be checked before an export

struct KiroModelFault {
    int item;
    const char* text;  // Shift-JIS; lives as long as the model
};
KIROMDL_API int KiroModelGetFault(int picture, int index, KiroModelFault* fault);  // 0: there are no more

// What the writer answers to a layout (above 0) or else to a picture; 0: it takes it.
KIROMDL_API int KiroModelWriterError(int layout, int picture);

// A drawing becomes the active model or, with add, part of it; a layout (above 0) or else a picture of it becomes a
// drawing. 0, or an error code (entry/host/kirodxf.h); after one the model is as it was. The settings' characters are
// set here.
KIROMDL_API int KiroModelImport(ByteSource* source, convert::ImportSettings* settings, int add);
KIROMDL_API int KiroModelExport(ByteSink* sink, convert::ExportSettings* settings, int layout, int picture);
KIROMDL_API int KiroModelInit(int option);  // of SxfModelInit

// The model's own wording of a host message, Shift-JIS; null when it has none.
KIROMDL_API const char* KiroModelMessageText(int number);
