// The exported functions of the writer, as far as it goes: what it is told, and which files it refuses. It writes no
// drawing yet.
#include <string>

#include "entry/host/kirodxf.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kiromdl/ModelFacts.h"

namespace {

// The layer tables of the next conversions, as they were given.
std::string importTable;
std::string exportTable;

void Keep(std::string& kept, const char* name) {
    kirobc::Guarded(0, [&] { return name ? (kept = name, 0) : 0; });
}

}  // namespace

void setdxfintblnam(const char* name) { Keep(importTable, name); }

void setdxfottblnam(const char* name) { Keep(exportTable, name); }

int DxfIsModelCheck() { return KiroModelIsChecked(); }

int DxfOutFloppy(bool, const char*, int drawing, int picture) {
    const int refused = KiroModelWriterError(drawing, picture);
    return refused ? refused : kDxfOutNotBuilt;
}
