// The password dialog: what the operator types is what the record holds, and nothing of it stays behind.
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

TEST_F(PasswordDialog, NamesTheFileAndHandsThePasswordOver) {
    ImportRecord expected = record;
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  EXPECT_EQ(L"パスワード入力", Text(dialog));
                  EXPECT_EQ(L"C:/DXF/図面.dxf", Text(dialog, kProtectedFileEdit));
                  EXPECT_EQ(L"", Text(dialog, kPasswordEdit));
                  EXPECT_EQ(kPasswordEdit, FocusId());
                  TypeKeys(dialog, kPasswordEdit, L" 表A ");
                  Click(dialog, IDOK);
              }));
    WriteFixedText(expected.info.input.password, " \x95\x5C\x41 ");
    EXPECT_TRUE(expected == record);
}

TEST_F(PasswordDialog, GuidanceBelongsToTheFileName) {
    Run([&](HWND dialog) {
        EXPECT_EQ(L"", Guidance(dialog));
        Focus(dialog, kProtectedFileEdit);
        EXPECT_EQ(L"パスワードを入力してください。", Guidance(dialog));
        Focus(dialog, kPasswordEdit);
        EXPECT_EQ(L"", Guidance(dialog));
        Click(dialog, IDCANCEL);
    });
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
                  EXPECT_EQ(full, Text(dialog, kPasswordEdit));
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(std::string(128, 'x'), std::string(record.info.input.password));
}

TEST_F(PasswordDialog, CancelKeepsTheRecord) {
    const ImportRecord before = record;
    EXPECT_EQ(1, Run([&](HWND dialog) {
                  Type(dialog, kPasswordEdit, L"typed");
                  CloseBox(dialog);
              }));
    EXPECT_TRUE(before == record);
}

TEST_F(PasswordDialog, SurvivesANameWithoutAnEnd) {
    std::memset(record.info.input.inputFileName, 0xFF, sizeof record.info.input.inputFileName);
    Run([&](HWND dialog) {
        EXPECT_LE(Text(dialog, kProtectedFileEdit).size(), sizeof record.info.input.inputFileName);
        Click(dialog, IDCANCEL);
    });
}

// Every committed page of this process is searched for the password, in both of its forms, after the dialog is gone.
TEST_F(PasswordDialog, LeavesNoCopyOfThePassword) {
    // Kept apart here, so that the test itself holds it nowhere as a whole.
    const std::wstring halves[] = {L"qZ7#w", L"Kp9!m"};
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  for (const std::wstring& half : halves) {
                      for (const wchar_t key : half) TypeKeys(dialog, kPasswordEdit, std::wstring(1, key));
                  }
                  Click(dialog, IDOK);
              }));
    ASSERT_EQ(10u, std::strlen(record.info.input.password));
    SecureZeroMemory(record.info.input.password, sizeof record.info.input.password);

    const auto holds = [&](const unsigned char* at, std::size_t left, std::size_t step) {
        for (std::size_t i = 0; i < 10; ++i) {
            const wchar_t wanted = halves[i / 5][i % 5];
            if (i * step >= left || at[i * step] != static_cast<unsigned char>(wanted)) return false;
            if (step == 2 && at[i * step + 1] != 0) return false;
        }
        return true;
    };
    int copies = 0;
    MEMORY_BASIC_INFORMATION page{};
    for (unsigned char* at = nullptr; VirtualQuery(at, &page, sizeof page);
         at = static_cast<unsigned char*>(page.BaseAddress) + page.RegionSize) {
        if (page.State != MEM_COMMIT || page.Protect != PAGE_READWRITE) continue;
        const auto* bytes = static_cast<const unsigned char*>(page.BaseAddress);
        for (std::size_t i = 0; i + 20 <= page.RegionSize; ++i) {
            if (bytes[i] == 'q' &&
                (holds(bytes + i, page.RegionSize - i, 1) || holds(bytes + i, page.RegionSize - i, 2)))
                ++copies;
        }
    }
    EXPECT_EQ(0, copies);
}
