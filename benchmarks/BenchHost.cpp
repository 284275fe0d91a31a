#include "benchmarks/BenchHost.h"

#include <string>
#include <utility>

#include "catalogue/DemoHome.h"
#include "driver/BareDialog.h"
#include "driver/Driver.h"
#include "hostlayer/include/KiroHost.h"

namespace {

// Message boxes send no WM_ENTERIDLE: they are answered when they become active.
LRESULT CALLBACK AnswerBoxes(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && kiro::drive::IsBox(reinterpret_cast<HWND>(wParam))) {
        const auto box = reinterpret_cast<HWND>(wParam);
        PostMessageW(box, WM_COMMAND, GetDlgItem(box, IDOK) ? IDOK : IDNO, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

BenchHost::BenchHost()
    : library_(LoadLibraryW(L"kirovanteo.dll")),
      context_(kiro::drive::MakeStyleContext(library_)),
      owner_(MakeOwner()) {
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    home_ = std::filesystem::path(temp) / (L"kirobench_" + std::to_wstring(GetCurrentProcessId()));
    kiro::MakeDemoHome(home_);
    KiroHostLoadModel(nullptr, nullptr, 0);
    KiroHostSetMainWindow(owner_);
}

BenchHost::~BenchHost() {
    KiroHostSetMainWindow(nullptr);
    DestroyWindow(owner_);
    ReleaseActCtx(context_);
    FreeLibrary(library_);
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
}

HWND BenchHost::MakeOwner() {
    WNDCLASSW definition{};
    definition.lpfnWndProc = OwnerProcedure;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.lpszClassName = L"KiroBench";
    RegisterClassW(&definition);
    const HWND owner = CreateWindowW(L"KiroBench", L"bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                     nullptr, definition.hInstance, nullptr);
    SetWindowLongPtrW(owner, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return owner;
}

LRESULT CALLBACK BenchHost::OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* host = reinterpret_cast<BenchHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && host) host->DialogIsIdle(reinterpret_cast<HWND>(lParam));
    return DefWindowProcW(window, message, wParam, lParam);
}

// The dialog is shown; a system may tell so before it has painted it.
void BenchHost::DialogIsIdle(HWND dialog) {
    if (!autoClose_) return;
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    try {
        if (const Work work = std::exchange(work_, nullptr)) work(dialog);
    } catch (...) {
        failure_ = std::current_exception();
    }
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

BenchHost::AutoClose::AutoClose(BenchHost& host)
    : host_(host), boxes_(SetWindowsHookExW(WH_CBT, AnswerBoxes, nullptr, GetCurrentThreadId())) {
    host_.autoClose_ = true;
}

BenchHost::AutoClose::~AutoClose() {
    UnhookWindowsHookEx(boxes_);
    host_.autoClose_ = false;
}

void BenchHost::Play(const std::function<void()>& call, const Work& work) {
    const AutoClose closing(*this);
    work_ = work;
    call();
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
    if (std::exchange(work_, nullptr)) throw kiro::drive::Failure("no dialog was shown");
}

void BenchHost::OpenBare(int templateId, const BareContents& contents) const {
    const Style style(*this);
    kiro::drive::OpenBareDialog(
        library_, templateId, owner_, [&](HWND dialog) { FillBare(dialog, contents); },
        [&](int listId) { return RowHeightOf(contents, listId); });
}
