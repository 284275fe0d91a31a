// The commands that run a dialog over a record. Each goes the same way: make the library's resources current, ask for
// the host's main window, run the dialog over it, and undo all of it in reverse.
#include <windows.h>

#include "catia/KrCatiaIn.h"
#include "catia/KrDxfPass.h"
#include "dxfin/KrDxfIn.h"
#include "dxfout/KrDxfOut.h"
#include "entry/CVanteoApp.h"
#include "entry/host/kirogr.h"
#include "entry/host/kirovanteo.h"
#include "peliondb/KrPlIn.h"
#include "peliondb/KrPlOut.h"
#include "varosdb/KrVrIn.h"
#include "varosdb/KrVrOut.h"

namespace {

constexpr int kConfirmed = 0;
constexpr int kCancelled = 1;

template <class CommandDialog, class Argument>
int RunCommand(Argument argument) {
    const ResourceContext context;
    const HWND owner = Grgetwin(-1);
    try {
        CommandDialog dialog(argument);
        return dialog.DoModal(owner) == IDOK ? kConfirmed : kCancelled;
    } catch (...) {
        // Out of memory before the dialog was there: the same to the host as a cancelled one.
        return kCancelled;
    }
}

}  // namespace

int DxfInputDlg(TARNAINFO* info) { return RunCommand<KrDxfIn>(info); }

int DxfInputPass(TARNAINFO* info) { return RunCommand<KrDxfPass>(info); }

int DxfOutputDlg(TARNAINFO* info) { return RunCommand<KrDxfOut>(info); }

int PlInputDlg(TARNAINFO* info) { return RunCommand<KrPlIn>(info); }

int PlOutputDlg(TARNAINFO* info) { return RunCommand<KrPlOut>(info); }

int VrInputDlg(TARNAINFO* info) { return RunCommand<KrVrIn>(info); }

int VrOutputDlg(TARNAINFO* info) { return RunCommand<KrVrOut>(info); }

int CatiaInputDlg(CATIAINFO* info) { return RunCommand<KrCatiaIn>(info); }
