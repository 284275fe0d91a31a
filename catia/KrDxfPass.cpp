#include "catia/KrDxfPass.h"

#include "entry/host/FixedText.h"
#include "resources/catia/KrDxfPass.ids.h"

namespace {

// The password in code page 932, two bytes a character at most. On the stack alone, and wiped when it goes.
struct SjisPassword {
    SjisPassword() = default;
    SjisPassword(const SjisPassword&) = delete;
    SjisPassword& operator=(const SjisPassword&) = delete;
    ~SjisPassword() { SecureZeroMemory(bytes, sizeof bytes); }
    char bytes[2 * PasswordEdit::kLimit] = {};
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
    password_.Attach(GetDlgItem(Handle(), kPasswordEdit));
}

void KrDxfPass::OnOk() {
    if (TakePassword()) End(IDOK);
}

bool KrDxfPass::TakePassword() {
    const std::wstring_view typed = password_.Text();
    if (typed.empty()) return Refuse("パスワードが入力されていません。");
    SjisPassword sjis;
    BOOL foreign = FALSE;
    const int length = WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, typed.data(), static_cast<int>(typed.size()),
                                           sjis.bytes, sizeof sjis.bytes, nullptr, &foreign);
    if (length <= 0 || foreign) return Refuse("パスワードに使用できない文字が入力されています。");
    // The record takes half of what can be typed.
    return WriteFixedText(info_.password, {sjis.bytes, static_cast<std::size_t>(length)}) ||
           Refuse("パスワードが長すぎます（最大半角１２８文字）。");
}

bool KrDxfPass::Refuse(const char* message) {
    // The focus first: leaving the file's name clears the guidance line.
    FocusTo(kPasswordEdit);
    Utility().ErrorText(message);
    return false;
}
