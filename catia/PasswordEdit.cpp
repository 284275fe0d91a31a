#include "catia/PasswordEdit.h"

#include <algorithm>
#include <cwchar>

namespace {

constexpr wchar_t kMask = L'*';

// Control characters, as the Ctrl key gives them with a letter.
constexpr wchar_t kSelectAll = 0x01;
constexpr wchar_t kCopy = 0x03;
constexpr wchar_t kPaste = 0x16;
constexpr wchar_t kCut = 0x18;
constexpr wchar_t kUndo = 0x1A;
constexpr wchar_t kCtrlBackspace = 0x7F;  // of no use where no words are seen

bool IsDown(int key) { return GetKeyState(key) < 0; }

// Masks, as many as there are characters.
struct Masks {
    explicit Masks(std::size_t count) { std::wmemset(text, kMask, (std::min)(count, SecretText::kCapacity)); }
    LPARAM Param() const { return reinterpret_cast<LPARAM>(text); }
    wchar_t text[SecretText::kCapacity + 1] = {};
};

// An edit of one line takes a text up to its first line end.
std::size_t LineLength(const wchar_t* text, std::size_t most) {
    std::size_t length = 0;
    while (text && length < most && text[length] && text[length] != L'\r' && text[length] != L'\n') ++length;
    return length;
}

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND window) : opened_(OpenClipboard(window)) {}
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (opened_) CloseClipboard();
    }
    HANDLE Text() const { return opened_ ? GetClipboardData(CF_UNICODETEXT) : nullptr; }

  private:
    BOOL opened_;
};

}  // namespace

void PasswordEdit::Attach(HWND edit) {
    edit_ = edit;
    subclass_.Attach(edit,
                     [this](UINT message, WPARAM wParam, LPARAM lParam) { return Handle(message, wParam, lParam); });
    subclass_.CallOriginal(EM_LIMITTEXT, kLimit);
}

// The commands of the edit's own menu come as messages too.
std::optional<LRESULT> PasswordEdit::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CHAR:
            return Character(wParam, lParam);
        case WM_IME_CHAR:
            TypeUnit(static_cast<wchar_t>(wParam));
            return 0;
        case WM_UNICHAR:
            if (wParam != UNICODE_NOCHAR) TypeCodePoint(static_cast<char32_t>(wParam));
            return wParam == UNICODE_NOCHAR;
        case WM_IME_STARTCOMPOSITION:
        case WM_IME_COMPOSITION:
        case WM_IME_ENDCOMPOSITION:
            // An edit may compose within its own text. The system's composition window gives whole characters instead.
            return DefWindowProcW(edit_, message, wParam, lParam);
        case WM_KEYDOWN:
            return KeyDown(wParam, lParam);
        case WM_SYSKEYDOWN:  // Alt and Backspace is the older key for taking back
            return wParam == VK_BACK ? std::optional(Undo()) : std::nullopt;
        case WM_SYSCHAR:
            return wParam == VK_BACK ? std::optional<LRESULT>(0) : std::nullopt;
        case WM_SETTEXT:
            SetText(reinterpret_cast<const wchar_t*>(lParam));
            return TRUE;
        case EM_REPLACESEL:
            Insert(reinterpret_cast<const wchar_t*>(lParam), kLimit + 1);
            return 0;
        case EM_LIMITTEXT:
            return 0;  // there is no more room, and no reason for less
        case WM_CLEAR:
            return Delete(message, wParam, lParam);
        case WM_PASTE:
            Paste();
            return 0;
        case WM_CUT:
        case WM_COPY:
            return Refuse();
        case WM_UNDO:
        case EM_UNDO:
            return Undo();
        case EM_CANUNDO:
            return text_.CanUndo();
        case EM_EMPTYUNDOBUFFER:
            text_.ForgetUndo();
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> PasswordEdit::Character(WPARAM character, LPARAM lParam) {
    switch (character) {
        case VK_BACK:
            return Delete(WM_CHAR, character, lParam);
        case kCopy:
        case kCut:
            return Refuse();
        case kPaste:
            Paste();
            return 0;
        case kUndo:
            return Undo();
        case kSelectAll:
        case VK_TAB:
        case VK_RETURN:
        case VK_ESCAPE:
            return std::nullopt;
        default:
            if (character >= L' ' && character != kCtrlBackspace) TypeUnit(static_cast<wchar_t>(character), lParam);
            return 0;
    }
}

std::optional<LRESULT> PasswordEdit::KeyDown(WPARAM key, LPARAM lParam) {
    if (key == VK_INSERT && IsDown(VK_SHIFT)) {
        Paste();
        return 0;
    }
    if (key == VK_INSERT && IsDown(VK_CONTROL)) return Refuse();
    if (key == VK_DELETE && IsDown(VK_SHIFT) && Selection().count > 0) return Refuse();  // that would cut
    if (key == VK_DELETE || key == VK_BACK) return Delete(WM_KEYDOWN, key, lParam);
    return std::nullopt;
}

// The edit takes a typed mask, so that everything is as with any edit: the limit, its beep, the pointer that hides.
void PasswordEdit::TypeUnit(wchar_t unit, LPARAM lParam) {
    const Range replaced = Selection();
    subclass_.CallOriginal(WM_CHAR, kMask, lParam);
    Inserted(replaced, &unit, 1);
}

void PasswordEdit::TypeCodePoint(char32_t character) {
    if (character > 0xFFFF) {
        TypeUnit(static_cast<wchar_t>(0xD7C0 + (character >> 10)));
        TypeUnit(static_cast<wchar_t>(0xDC00 | (character & 0x3FF)));
    } else {
        TypeUnit(static_cast<wchar_t>(character));
    }
}

void PasswordEdit::Insert(const wchar_t* text, std::size_t most) {
    const Range replaced = Selection();
    const std::size_t room = kLimit - (text_.Length() - replaced.count);
    const std::size_t length = LineLength(text, most);
    if (length > room) MessageBeep(MB_OK);
    const std::size_t taken = (std::min)(length, room);
    subclass_.CallOriginal(EM_REPLACESEL, TRUE, Masks(taken).Param());
    Inserted(replaced, text, taken);
}

void PasswordEdit::SetText(const wchar_t* text) {
    const std::size_t length = LineLength(text, kLimit);
    text_.Wipe();
    text_.Replace(0, 0, text, length);
    text_.ForgetUndo();
    subclass_.CallOriginal(WM_SETTEXT, 0, Masks(length).Param());
}

// From the clipboard's memory straight into ours.
void PasswordEdit::Paste() {
    const OpenedClipboard clipboard(edit_);
    const HANDLE data = clipboard.Text();
    if (!data) return;
    if (const auto* text = static_cast<const wchar_t*>(GlobalLock(data))) {
        Insert(text, GlobalSize(data) / sizeof(wchar_t));
        GlobalUnlock(data);
    }
}

// Lets the edit delete what it would of its masks: where the caret is then, the characters are gone.
LRESULT PasswordEdit::Delete(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = subclass_.CallOriginal(message, wParam, lParam);
    const std::size_t shown = ShownLength();
    if (shown < text_.Length()) text_.Replace(Selection().start, text_.Length() - shown, nullptr, 0);
    return result;
}

LRESULT PasswordEdit::Undo() {
    if (!text_.Undo()) return FALSE;
    subclass_.CallOriginal(EM_SETSEL, 0, -1);
    subclass_.CallOriginal(EM_REPLACESEL, TRUE, Masks(text_.Length()).Param());
    return TRUE;
}

LRESULT PasswordEdit::Refuse() {
    MessageBeep(MB_OK);
    return 0;
}

PasswordEdit::Range PasswordEdit::Selection() const {
    DWORD start = 0;
    DWORD end = 0;
    subclass_.CallOriginal(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {start, end - start};
}

std::size_t PasswordEdit::ShownLength() const {
    return static_cast<std::size_t>(subclass_.CallOriginal(WM_GETTEXTLENGTH));
}

// After the edit took masks: as many characters as it has more masks now.
void PasswordEdit::Inserted(Range replaced, const wchar_t* text, std::size_t most) {
    const std::size_t kept = text_.Length() - replaced.count;
    const std::size_t shown = ShownLength();
    text_.Replace(replaced.start, replaced.count, text, shown > kept ? (std::min)(shown - kept, most) : 0);
}
