#include "KrCellText.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

#include "KrText.h"
#include "entry/host/KrListControl.h"

namespace {

constexpr bool IsControl(wchar_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }
constexpr bool IsHighSurrogate(wchar_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool IsLowSurrogate(wchar_t c) { return c >= 0xDC00 && c < 0xE000; }

std::size_t UnitsAt(std::wstring_view text, std::size_t at) {
    return IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]) ? 2 : 1;
}

unsigned CodePoint(std::wstring_view character) {
    const auto unit = [&](std::size_t i) { return static_cast<unsigned>(character[i]); };
    return character.size() == 2 ? 0x10000 + ((unit(0) - 0xD800) << 10) + (unit(1) - 0xDC00) : unit(0);
}

// The message zone takes Shift-JIS, so it cannot show the very character that is meant: it gives the place and code.
CellTextFault ForeignCharacter(std::wstring_view text, std::size_t at, std::size_t units) {
    char message[80];
    std::snprintf(message, sizeof message, "%zu文字目（U+%04X）は使えない文字です。", at + 1,
                  CodePoint(text.substr(at, units)));
    return {message, at, units};
}

class Clipboard {
  public:
    explicit Clipboard(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    ~Clipboard() {
        if (open_) CloseClipboard();
    }
    bool IsOpen() const { return open_; }
    HANDLE Text() const { return open_ ? GetClipboardData(CF_UNICODETEXT) : nullptr; }

  private:
    bool open_;
};

}  // namespace

std::string TooLongMessage(std::size_t limit) {
    char message[60];
    std::snprintf(message, sizeof message, "%zu文字以内で入力してください。", limit);
    return message;
}

std::optional<CellTextFault> FindCellTextFault(std::wstring_view text, std::size_t limit) {
    // The length first: it bounds the search.
    if (text.size() > limit) return CellTextFault{TooLongMessage(limit), limit, text.size() - limit};
    for (std::size_t at = 0, units; at < text.size(); at += units) {
        units = UnitsAt(text, at);
        if (IsControl(text[at])) return CellTextFault{"タブや改行などの制御文字は使えません。", at, 1};
        if (!To932(text.substr(at, units))) return ForeignCharacter(text, at, units);
    }
    return std::nullopt;
}

std::wstring_view WideWithoutSpacesAround(std::wstring_view text) {
    constexpr std::wstring_view kSpaces = L" \u3000";
    const std::size_t first = text.find_first_not_of(kSpaces);
    if (first == text.npos) return text.substr(text.size());
    return text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

std::wstring NormalCellText(std::wstring_view text, unsigned int kinds) {
    std::wstring normal(WideWithoutSpacesAround(text));
    constexpr std::wstring_view kWide = L"０１２３４５６７８９．＋－", kHalf = L"0123456789.+-";
    for (wchar_t& unit : normal) {
        const std::size_t at = kinds & kKrCellNumber ? kWide.find(unit) : kWide.npos;
        if (at != kWide.npos) unit = kHalf[at];
    }
    return normal;
}

bool PutClipboardText(HWND owner, std::wstring_view text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* units = memory ? static_cast<wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!units) return false;
    std::wmemcpy(units, text.data(), text.size());
    units[text.size()] = 0;
    GlobalUnlock(memory);
    const Clipboard clipboard(owner);
    if (clipboard.IsOpen() && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory)) return true;
    GlobalFree(memory);
    return false;
}

std::optional<std::wstring> ClipboardText(HWND owner, std::size_t most) {
    const Clipboard clipboard(owner);
    const HANDLE memory = clipboard.Text();
    const auto* units = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!units) return std::nullopt;
    std::wstring text;
    try {
        text.assign(units, wcsnlen(units, std::min(most, GlobalSize(memory) / sizeof(wchar_t))));
    } catch (...) {
        GlobalUnlock(memory);
        throw;
    }
    GlobalUnlock(memory);
    if (text.ends_with(L"\r\n")) {
        text.resize(text.size() - 2);
    } else if (text.ends_with(L'\n') || text.ends_with(L'\r')) {
        text.pop_back();
    }
    return text;
}
