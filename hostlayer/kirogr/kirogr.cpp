#include "entry/host/kirogr.h"

#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirocontrol/CallNote.h"

namespace {

KrWindow mainWindow = nullptr;

constexpr int kMainWindow = -1;

}  // namespace

KrWindow Grgetwin(int number) { return number == kMainWindow ? mainWindow : nullptr; }

// This host draws no lines: there is nothing to rebuild.
void lftpattern(HxLineStyle*, double draftingScale) {
    NoteCall("lftpattern", {HostReal("draftingScale", draftingScale)});
}

void clearUserPen() { NoteCall("clearUserPen", {}); }

void KiroHostSetMainWindow(KrWindow window) { mainWindow = window; }
