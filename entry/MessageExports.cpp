// Reports of a running conversion.
#include <windows.h>

#include "entry/CVanteoApp.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kirogr.h"
#include "entry/host/kirovanteo.h"
#include "ui/Text.h"

namespace {

// What a warning's text and caption may have in bytes of Shift-JIS: the host's limit.
constexpr std::size_t kWarningBytes = 127;

// A deliberate oddity: one space. Neither empty nor the name of a program.
constexpr wchar_t kNoCaption[] = L" ";

}  // namespace

void ErrorMessageBox(std::int32_t errorCode) {
    const ResourceContext context;
    const HWND owner = Grgetwin(-1);
    try {
        const std::string text = HxEucEncoder::Euc2Sjis(DxfGetErrorMessage(errorCode));
        MessageBoxW(owner, kiro::ui::ToWide(text).c_str(), kNoCaption, MB_OK | MB_ICONHAND);
    } catch (...) {
        // Nothing to report with.
    }
}

void WarningMessageBox(const char* message, const char* caption) {
    const ResourceContext context;
    const HWND owner = Grgetwin(-1);
    try {
        const std::string text = HxEucEncoder::Euc2Sjis(message, kWarningBytes);
        const std::string title = HxEucEncoder::Euc2Sjis(caption, kWarningBytes);
        MessageBoxW(owner, kiro::ui::ToWide(text).c_str(), kiro::ui::ToWide(title).c_str(), MB_OK | MB_ICONEXCLAMATION);
    } catch (...) {
        // Nothing to report with.
    }
}
