// The exported functions around reading and writing whole drawings, as far as this host goes: it does neither yet, so
// that the layer tables named here are only told to the host program.
#include "entry/host/kirodxf.h"
#include "hostlayer/kirocontrol/CallNote.h"
#include "hostlayer/kiromdl/ModelFacts.h"

void setdxfintblnam(const char* name) { NoteCall("setdxfintblnam", {HostText("name", name)}); }

void setdxfottblnam(const char* name) { NoteCall("setdxfottblnam", {HostText("name", name)}); }

int DxfIsModelCheck() { return KiroModelIsChecked(); }

int DxfOutFloppy(bool floppy, const char* path, int drawing, int picture) {
    const int refused = KiroModelWriterError(drawing, picture);
    const int error = refused ? refused : kDxfNoDwgWriter;
    NoteCall("DxfOutFloppy",
             {HostFlag("floppy", floppy), HostText("path", path), HostInteger("drawing", drawing),
              HostInteger("picture", picture)},
             error);
    return error;
}
