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

void OpenBareDialog(HMODULE library, int templateId, HWND owner, const std::function<void(HWND dialog)>& fill) {
    DialogBoxParamW(
        library, MAKEINTRESOURCEW(templateId), owner,
        [](HWND dialog, UINT message, WPARAM wParam, LPARAM filling) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                const auto& work = *reinterpret_cast<const std::function<void(HWND)>*>(filling);
                if (work) work(dialog);
            }
            if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
            return message == WM_INITDIALOG;
        },
        reinterpret_cast<LPARAM>(&fill));
}

}  // namespace kiro::drive
