#include "entry/host/kirocontrol.h"

#include <string_view>

#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirocontrol/CallNote.h"

struct HxFileType {
    std::string_view key;
    bool upperCase;
};

namespace {

// This host's file systems keep the case of a name as it was typed, so that no type needs upper case.
constexpr HxFileType kFileTypes[] = {
    {"#DXF#", false},        {"#DWG#", false},        {"#DXF:TABLE#", false},
    {"#DXF:SHAPE#", false},  {"#CATIA:DB#", false},   {"#TARNA:DOS#", false},
    {"#TARNA:DB_R#", false}, {"#FLOPPY_WIN#", false}, {"#MODEL#", false},
};

KiroHostCallObserver callObserver = nullptr;
void* observerContext = nullptr;

}  // namespace

HxModel* GetActiveModel() { return KiroHostModel(); }

const HxFileType* HxSessionGetFileType(const char* key) {
    if (!key) return nullptr;
    for (const HxFileType& type : kFileTypes)
        if (type.key == key) return &type;
    return nullptr;
}

int HxFileTypeIsUpperCase(const HxFileType* type) { return type && type->upperCase; }

void LogoutMDF(int code, int count, int value, bool first, bool last) {
    NoteCall("LogoutMDF", {HostInteger("code", code), HostInteger("count", count), HostInteger("value", value),
                           HostFlag("first", first), HostFlag("last", last)});
}

void LogoutSCL(double value, bool first, bool last) {
    NoteCall("LogoutSCL", {HostReal("value", value), HostFlag("first", first), HostFlag("last", last)});
}

void Rpt101(int what) { NoteCall("Rpt101", {HostInteger("what", what)}); }

void KiroHostObserveCalls(KiroHostCallObserver observer, void* context) {
    callObserver = observer;
    observerContext = context;
}

void KiroNoteCall(const KiroHostCall& call) {
    if (callObserver) callObserver(observerContext, &call);
}
