#include "driver/BareDialog.h"

namespace kiro::drive {

static constexpr int kManifestId = 2;

HANDLE MakeStyleContext(HMODULE library) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(library, path, MAX_PATH);
    ACTCTXW definition{};
    definition.cbSize = sizeof definition;
    definition.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    definition.hModule = library;
    definition.lpSource = path;
    definition.lpResourceName = MAKEINTRESOURCEW(kManifestId);
    return CreateActCtxW(&definition);
}

using Fill = std::function<void(HWND)>;
using RowHeight = std::function<int(int)>;

// That of the dialog that is being made.
static thread_local const RowHeight* heights = nullptr;

static INT_PTR CALLBACK BareProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MEASUREITEM: {
            auto& request = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            const int height = *heights ? (*heights)(static_cast<int>(request.CtlID)) : 0;
            if (height > 0) request.itemHeight = static_cast<UINT>(height);
            return height > 0;
        }
        case WM_INITDIALOG:
            if (const auto& fill = *reinterpret_cast<const Fill*>(lParam)) fill(dialog);
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
            return FALSE;
        default:
            return FALSE;
    }
}

void OpenBareDialog(HMODULE library, int templateId, HWND owner, const Fill& fill, const RowHeight& rowHeight) {
    heights = &rowHeight;
    DialogBoxParamW(library, MAKEINTRESOURCEW(templateId), owner, BareProcedure, reinterpret_cast<LPARAM>(&fill));
}

}  // namespace kiro::drive
