// batch_host HOME: the batch of the import converts all drawings of HOME\DXF, by a user who agrees to everything; tells
// what it says of them. Lines come as soon as they are known, for whoever ends it meanwhile.
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

void Convert(HWND import) {
    constexpr int kVersion = 3, kModel = 4, kResult = 5;
    Click(import, kBatchButton);
    Click(Settle(), kListButton);
    const HWND list = Settle();
    const Grid grid(list, kGrid);
    Until("the rows are there", [&] { return grid.Rows() > 0 && grid.Cell(grid.Rows() - 1, kVersion) != L"…"; });
    Click(list, kMarkAllButton);
    Say(L"start");
    Click(list, IDOK);
    for (bool asked = true; asked;) {
        Until("a question or the end", [&] { return Settle() != list || IsEnabled(list, kMarkAllButton); });
        const HWND question = Settle();
        asked = question != list;
        if (asked && IsBox(question))
            Answer(ReadBox(), IDYES);
        else if (asked)
            Click(question, kGoOnForAllCheck), Click(question, IDOK);
    }
    for (int row = 0; row < grid.Rows(); ++row)
        Say(grid.Cell(row, 1) + L" -> " + grid.Cell(row, kModel) + L": " + grid.Cell(row, kResult));
    Say(Guidance(list));
    CancelEverything();
}

bool AreWhole(const std::filesystem::path& folder) {
    bool whole = true;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() != L".mdl") continue;
        const bool good = Mdlread1(HxEucEncoder::Sjis2Euc(file.path().generic_string()).c_str()) == 0;
        if (!good) Say(file.path().filename().native() + L" is not whole");
        whole = whole && good;
    }
    return whole;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return 2;
    const std::filesystem::path home = arguments[1];
    KiroHostSetHome(home.c_str());
    if (count > 2) return AreWhole(home / L"MODEL") ? 0 : 3;
    UsePrivateDesktop();
    const HWND owner = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                       nullptr, nullptr, nullptr);
    KiroHostSetMainWindow(owner);
    static TARNAINFO info;
    static DxfInParamBlock params;
    params.splitItemCount = 100;
    params.maxItemCount = 100000000;
    info.input.pictureMatrix = 1;
    info.input.importParams = &params;
    try {
        Drive([&] { return DxfInputDlg(&info); }, [&] { Convert(Settle()); });
    } catch (const Failure& failure) {
        std::printf("batch_host: %s\n", failure.what());
        return 1;
    }
    return 0;
}
