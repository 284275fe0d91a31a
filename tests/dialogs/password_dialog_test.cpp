// The password dialog: what the operator types is what the record holds, and nothing of it stays behind.
#include "driver/GridDriver.h"
#include "entry/host/FixedText.h"
#include "resources/catia/KrDxfPass.ids.h"
#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

class PasswordDialog : public TestHost {
  protected:
    PasswordDialog() {
        WriteFixedText(record.info.input.inputFileName, "C:/DXF/\xBF\xDE\xCC\xCC.dxf");  // EUC for 図面
        WriteFixedText(record.info.input.password, "before");
    }
    int Run(const std::function<void(HWND dialog)>& user) {
        return Drive([this] { return DxfInputPass(&record.info); }, [&] { user(Settle()); });
    }
    void ExpectError(HWND dialog, const std::wstring& text) {
        Focus(dialog, kProtectedFileEdit);  // whose guidance must not take the place of the error
        Key(VK_RETURN);
        EXPECT_EQ(dialog, Settle()) << "closed after a refusal";
        EXPECT_EQ(text, Guidance(dialog));
        EXPECT_TRUE(IsGuidanceError(dialog));
        EXPECT_EQ(kPasswordEdit, FocusId());
    }
    ImportRecord record;
};

}  // namespace

TEST_F(PasswordDialog, HandsThePasswordOver) {
    ImportRecord expected = record;
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  TypeKeys(dialog, kPasswordEdit, L" 表A ");
                  Click(dialog, IDOK);
              }));
    WriteFixedText(expected.info.input.password, " \x95\x5C\x41 ");
    EXPECT_TRUE(expected == record);
}

TEST_F(PasswordDialog, LimitsAndRefusals) {
    const std::wstring full(128, L'x');
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  ExpectError(dialog, L"パスワードが入力されていません。");
                  Type(dialog, kPasswordEdit, L"\x00E9");
                  ExpectError(dialog, L"パスワードに使用できない文字が入力されています。");
                  Type(dialog, kPasswordEdit, std::wstring(65, L'表'));  // 130 bytes
                  ExpectError(dialog, L"パスワードが長すぎます（最大半角１２８文字）。");
                  Type(dialog, kPasswordEdit, L"");
                  TypeKeys(dialog, kPasswordEdit, full + L"y");
                  EXPECT_EQ(std::wstring(128, L'*'), Text(dialog, kPasswordEdit));
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(std::string(128, 'x'), std::string(record.info.input.password));
}

TEST_F(PasswordDialog, CancelKeepsARecordWhoseNameHasNoEnd) {
    std::memset(record.info.input.inputFileName, 0xFF, sizeof record.info.input.inputFileName);
    const ImportRecord before = record;
    EXPECT_EQ(1, Run([&](HWND dialog) {
                  EXPECT_LE(Text(dialog, kProtectedFileEdit).size(), sizeof record.info.input.inputFileName);
                  Type(dialog, kPasswordEdit, L"typed");
                  CloseBox(dialog);
              }));
    EXPECT_TRUE(before == record);
}

// The edit is a mask over characters that are kept elsewhere: what is done to it has to be done to them.
TEST_F(PasswordDialog, EditsLikeAnyEdit) {
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  const HWND edit = Control(dialog, kPasswordEdit);
                  const auto keys = [&](const wchar_t* text) { TypeKeys(dialog, kPasswordEdit, text); };
                  keys(L"abcdef");
                  Send(edit, EM_SETSEL, 2, 4);
                  keys(L"XY");  // abXYef
                  Key(VK_DELETE);
                  Key(VK_HOME);
                  keys(L"1\x7F\x02");  // 1abXYf; keys that do nothing here
                  KeyHolding(VK_SHIFT, VK_RIGHT);
                  KeyHolding(VK_SHIFT, VK_RIGHT);
                  Key(VK_DELETE);
                  Key(VK_END);
                  keys(L"\b2\b3");  // 1XY3
                  Send(edit, EM_SETSEL, 1, 2);
                  Send(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"表\r\nx"));  // 1表Y3
                  Send(edit, WM_UNICHAR, 0x29E3D);                                        // two units
                  keys(L"\b\b");
                  Send(edit, WM_IME_CHAR, L'能');  // 1表能Y3
                  EXPECT_EQ(L"*****", Text(edit));
                  KeyHolding(VK_CONTROL, VK_DELETE);
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ("1\x95\x5C\x94\x5C", std::string(record.info.input.password));
}

TEST_F(PasswordDialog, TakesBackAndPastesButCopiesNothing) {
    PutOnClipboard(L"貼\r\nrest");
    const DWORD clipboard = GetClipboardSequenceNumber();
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  const HWND edit = Control(dialog, kPasswordEdit);
                  const auto length = [&] { return static_cast<int>(Send(edit, WM_GETTEXTLENGTH)); };
                  EXPECT_FALSE(Send(edit, EM_CANUNDO));
                  TypeKeys(dialog, kPasswordEdit, L"typed\b\b\x1A");
                  EXPECT_EQ(5, length()) << "what was deleted in one go comes back in one";
                  TypeKeys(dialog, kPasswordEdit, L"\x1A");
                  EXPECT_EQ(3, length());
                  PostMessageW(edit, WM_SYSKEYDOWN, VK_BACK, 0x20000001);
                  Sync();
                  EXPECT_EQ(5, length());
                  Send(edit, EM_SETSEL, 0, -1);
                  Send(edit, WM_COPY);
                  Send(edit, WM_CUT);
                  TypeKeys(dialog, kPasswordEdit, L"\x03\x18");
                  KeyHolding(VK_CONTROL, VK_INSERT);
                  KeyHolding(VK_SHIFT, VK_DELETE);
                  EXPECT_EQ(5, length());
                  EXPECT_EQ(clipboard, GetClipboardSequenceNumber());
                  PostMessageW(edit, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(edit), -1);
                  PickMenu(3);  // 貼り付け: the fourth that is no line
                  KeyHolding(VK_SHIFT, VK_INSERT);
                  Send(edit, WM_PASTE);
                  EXPECT_EQ(3, length());
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ("\x93\x5C\x93\x5C\x93\x5C", std::string(record.info.input.password));
}
