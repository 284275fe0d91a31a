#include "catia/KrDxfPass.h"

#include <cstring>
#include <cwchar>

#include "entry/host/FixedText.h"
#include "resources/catia/KrDxfPass.ids.h"

namespace {

constexpr int kPasswordLimit = 128;  // characters that can be typed; also the bytes that the record can hold

// A buffer for the password. It lies on the stack alone and is wiped when it goes, so that no copy of ours stays
// behind.
template <class Char, std::size_t N>
struct SecretBuffer {
    SecretBuffer() = default;
    SecretBuffer(const SecretBuffer&) = delete;
    SecretBuffer& operator=(const SecretBuffer&) = delete;
    ~SecretBuffer() { SecureZeroMemory(text, sizeof text); }
    Char text[N] = {};
};

}  // namespace

KrDxfPass::KrDxfPass(TARNAINFO* info) : HostDialog(kDxfPassDialog), info_(info->input) {
    // On the file's name, not on the password: the operators know it so.
    Guide({{kProtectedFileEdit, "パスワードを入力してください。"}});
}

void KrDxfPass::OnInit() {
    InitUtility();
    Utility().SetCaption("パスワード入力");
    const std::string name = KrEdited(Utility(), ReadFixedText(info_.inputFileName), &KrUtility::ToSJIS);
    Item<kiro::ui::Edit>(kProtectedFileEdit).SetText(name);
    Item<kiro::ui::Edit>(kPasswordEdit).LimitText(kPasswordLimit);
}

void KrDxfPass::OnOk() {
    if (!TakePassword()) return;
    WipeEdit();
    End(IDOK);
}

void KrDxfPass::OnCancel() {
    WipeEdit();
    End(IDCANCEL);
}

bool KrDxfPass::TakePassword() {
    SecretBuffer<wchar_t, kPasswordLimit + 1> typed;
    const int length = GetWindowTextW(GetDlgItem(Handle(), kPasswordEdit), typed.text, kPasswordLimit + 1);
    if (length == 0) return Refuse("パスワードが入力されていません。");
    // Two bytes a character at most; the record takes half of that.
    SecretBuffer<char, 2 * kPasswordLimit + 1> password;
    BOOL foreign = FALSE;
    const int bytes = WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, typed.text, length, password.text,
                                          2 * kPasswordLimit, nullptr, &foreign);
    if (bytes <= 0 || foreign) return Refuse("パスワードに使用できない文字が入力されています。");
    return WriteFixedText(info_.password, {password.text, static_cast<std::size_t>(bytes)}) ||
           Refuse("パスワードが長すぎます（最大半角１２８文字）。");
}

bool KrDxfPass::Refuse(const char* message) {
    // The focus first: leaving the file's name clears the guidance line.
    FocusTo(kPasswordEdit);
    Utility().ErrorText(message);
    return false;
}

// The edit's own buffer: overwritten in place by a text of the same length, then emptied, its undo buffer with it.
void KrDxfPass::WipeEdit() {
    const HWND edit = GetDlgItem(Handle(), kPasswordEdit);
    SecretBuffer<wchar_t, kPasswordLimit + 1> blanks;
    const int length = GetWindowTextLengthW(edit);
    std::wmemset(blanks.text, L'*', static_cast<std::size_t>(length < kPasswordLimit ? length : kPasswordLimit));
    SetWindowTextW(edit, blanks.text);
    SetWindowTextW(edit, L"");
    SendMessageW(edit, EM_EMPTYUNDOBUFFER, 0, 0);
}
