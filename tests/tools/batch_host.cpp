// batch_host HOME: the batch of the import converts all drawings of HOME\DXF, by a user who agrees to everything; tells
// what becomes of them. "start" comes at once, for whoever ends it meanwhile.
// batch_host HOME check: exit status 3 when a model of HOME\MODEL is not whole.
#include <windows.h>

#include <cstdio>
#include <filesystem>

#include "driver/GridDriver.h"
#include "entry/host/kirobc.h"
#include "entry/host/kiromdl.h"
#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAll.ids.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/grid.ids.h"

using namespace kiro::drive;

namespace {

void Say(const std::wstring& text) {
    char utf8[2048] = "";
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, utf8, sizeof utf8 - 1, nullptr, nullptr);
    std::puts(utf8);
    std::fflush(stdout);
}

void Convert() {
    constexpr int kFile = 1, kResult = 5;
    Click(Settle(), kBatchButton);
    Click(Settle(), kListButton);
    const HWND list = Settle();
    const Grid grid(list, kGrid);
    Until("the rows are there", [&] { return grid.Rows() > 0; });
    Click(list, kMarkAllButton);
    Say(L"start");
    Click(list, IDOK);
    for (;;) {
        Until("a question or the end", [&] { return Settle() != list || IsEnabled(list, kMarkAllButton); });
        const HWND question = Settle();
        if (question == list) break;
        if (IsBox(question)) {
            Answer(ReadBox(), IDYES);
        } else {
            Click(question, kGoOnForAllCheck);
            Click(question, IDOK);
        }
    }
    for (int row = 0; row < grid.Rows(); ++row) Say(grid.Cell(row, kFile) + L": " + grid.Cell(row, kResult));
    Say(Guidance(list));
    CancelEverything();
}

bool AreWhole(const std::filesystem::path& folder) {
    for (const auto& file : std::filesystem::directory_iterator(folder))
        if (file.path().extension() == L".mdl" &&
            Mdlread1(HxEucEncoder::Sjis2Euc(file.path().generic_string()).c_str()) != 0)
            return false;
    return true;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::filesystem::path home = arguments[1];
    KiroHostSetHome(home.c_str());
    if (count > 2) return AreWhole(home / L"MODEL") ? 0 : 3;
    UsePrivateDesktop();
    KiroHostSetMainWindow(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700,
                                          nullptr, nullptr, nullptr, nullptr));
    static TARNAINFO info;
    static DxfInParamBlock params;
    params.maxItemCount = 1000000;
    info.input.pictureMatrix = 1;
    info.input.importParams = &params;
    Drive([] { return DxfInputDlg(&info); }, Convert);
    return 0;
}
