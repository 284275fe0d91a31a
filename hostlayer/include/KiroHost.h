// What a program does to act as the host: the stand-alone host layer is set up through these functions before a command
// is called. They are the layer's own and are not part of what the commands see. C11 and C++17.
#pragma once

#include "entry/host/HostApi.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kirogr.h"
#include "entry/host/kiromdl.h"

// kirobc: the home folder, under which every file-type key has its folder. Default: %KIRO_HOME%, else
// %LOCALAPPDATA%\Kiro. It is made when it is first used.
KIROBC_API void KiroHostSetHome(const wchar_t* folder);
// The folder of a key with no "\" at its end, made if it is missing and can be made. Size and result count wide
// characters: the result is the length of the whole path; 0 when the key is malformed.
KIROBC_API size_t KiroHostGetFolder(const char* key, wchar_t* out, size_t size);

// kirobc: how many dbDrawings the records have that this program hands to the database commands, 1 to
// kMostDatabaseDrawings. Default: 1, which every record has.
KIROBC_API void KiroHostSetDrawingRoom(size_t drawings);

// kirogr: the window that Grgetwin(-1) gives.
KIROGR_API void KiroHostSetMainWindow(KrWindow window);

// kiromdl: the active model from a JSON file, such as
//   {"modified": true, "baseScale": 1.0, "maxItemCount": 100000, "maxSplitCount": 10000, "currentPicture": 1,
//    "checkBeforeExport": true,
//    "pictures": [{"number": 1, "scale": 0.5, "itemCount": 40, "faults": [{"item": 7, "text": "no length"}]}],
//    "layouts": [{"number": 1, "name": "A", "windows": [1], "writerError": -8,
//                 "frame": {"valid": true, "kind": 1, "name": "A3", "width": 420, "height": 297}}],
//    "lineStyle": {"patterns": [{"number": 2, "name": "DASHED", "pitches": [6, 2]}], "widths": [0, 0.25],
//                  "weightPitch": 0.1, "weightEnabled": true, "realWeight": false, "scaledFont": false},
//    "classNames": [{"number": 1, "name": "A"}], "revisionNames": [], "draftingScale": 0.5,
//    "messages": [{"number": 8, "text": "disk full"}]}
// Every member but "number" and "item" may be missing. Null: an empty, unmodified model. 0 on success; otherwise the
// model is as it was and message (UTF-8, may be null) tells why.
KIROMDL_API int KiroHostLoadModel(const wchar_t* file, char* message, size_t size);
// The active model as it is now, as such a file (UTF-8). The result is the length of the whole text; 0 without memory.
KIROMDL_API size_t KiroHostPrintModel(char* out, size_t size);
KIROMDL_API void KiroHostSetModified(bool modified);
KIROMDL_API HxModel* KiroHostModel(void);

// kirocontrol: what a command has the host do beyond its dialogs, such as DxfOutFloppy, by the names of the host's own
// functions and of their parameters.
enum KiroHostValueKind {
    kKiroHostInteger,
    kKiroHostReal,
    kKiroHostFlag,       // the integer, 0 or 1
    kKiroHostText,       // the pointer: EUC, null where the caller gave null
    kKiroHostInParams,   // the pointer: DxfInParamBlock, or null
    kKiroHostOutParams,  // the pointer: DxfOutParamBlock, or null
    kKiroHostPlParams,   // the pointer: PlOutParamBlock, or null
    kKiroHostVrParams,   // the pointer: VrOutParamBlock, or null
    kKiroHostNoValue
};
typedef struct KiroHostValue {
    const char* name;
    const void* pointer;
    double real;
    int32_t integer;
    int32_t kind;
} KiroHostValue;
typedef struct KiroHostCall {
    const char* name;
    const KiroHostValue* arguments;
    size_t count;
    KiroHostValue returned;  // kKiroHostNoValue when the function returns nothing
} KiroHostCall;
// Called when such a function has done its work, on its thread; what it is given is there for that call only. It must
// not throw. Null: nobody is told.
typedef void (*KiroHostCallObserver)(void* context, const KiroHostCall* call);
KIROCONTROL_API void KiroHostObserveCalls(KiroHostCallObserver observer, void* context);
