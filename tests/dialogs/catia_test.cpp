// The import of CATIA models, as a host calls for it.
#include "entry/host/FixedText.h"
#include "resources/catia/KrCatiaIn.ids.h"
#include "tests/dialogs/CommandHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kCaption[] = L"ＣＡＴＩＡ読込み", kFolder[] = L"CATIA\\DB\\";
constexpr wchar_t kPlaceholder[] = L"ファイル名を入力 または［参照］でファイルを選択";

class CatiaImport : public CommandHost {
  protected:
    CatiaImport() { std::memset(&info, 0xA5, sizeof info); }
    int Run(const User& user) {
        return Drive([this] { return CatiaInputDlg(&info); }, [&] { Use(user); });
    }
    CATIAINFO info;
};

}  // namespace

TEST_F(CatiaImport, LeadsFromAPatternToTheRecord) {
    const auto model = Write(std::wstring(kFolder) + L"部品ソ.model", "x");
    Write(std::wstring(kFolder) + L"b.model", "x");
    const CATIAINFO before = info;
    const int cancelled = Run([&](HWND dialog) {
        Choose(dialog, kCatiaBrowseButton, model.filename());
        Click(dialog, kCatiaAddRadio);
    });
    EXPECT_EQ(1, cancelled);
    EXPECT_EQ(0, std::memcmp(&before, &info, sizeof info));

    const int confirmed = Run([&](HWND dialog) {
        Click(dialog, IDOK);  // nothing is entered, which is "*"
        Click(Settle(), IDCANCEL);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ(kCatiaFileEdit, FocusId());
        Focus(dialog, kCatiaPictureCombo);
        EXPECT_EQ(L"格納先ピクチャを選択してください。", Guidance(dialog));
        EXPECT_EQ(kPlaceholder, Text(dialog, kCatiaFileEdit));
        Pick(dialog, kCatiaPictureCombo, 255);
        Click(dialog, kCatiaAddRadio);
        Click(dialog, kCatiaHiddenOnRadio);
        Focus(dialog, kCatiaFileEdit);
        Type(dialog, kCatiaFileEdit, L" *.model ");
        Choose(dialog, IDOK, model.filename());
    });
    EXPECT_EQ(0, confirmed);
    EXPECT_EQ(std::pair(1, 256), std::pair(info.addMode, info.pictureNumber));
    EXPECT_EQ(1, info.convertHidden);
    EXPECT_EQ(home.generic_string() + "/CATIA/DB/\xC9\xF4\xC9\xCA\xA5\xBD.model", ReadFixedText(info.fileName));  // EUC
}

TEST_F(CatiaImport, MissingFileIsRefusedAndForgotten) {
    const auto model = Write(std::wstring(kFolder) + L"a.model", "x");
    Write(std::wstring(kFolder) + L"b.model", "x");
    const auto import = [&](const wchar_t* name) {
        return Run([&](HWND dialog) {
            Focus(dialog, kCatiaFileEdit);
            Type(dialog, kCatiaFileEdit, name);
            Click(dialog, IDOK);
        });
    };
    EXPECT_EQ(0, import(L"b.model"));
    EXPECT_EQ(0, import(L"a.model"));
    EXPECT_EQ(std::pair(0, 1), std::pair(info.addMode, info.pictureNumber));
    EXPECT_EQ(0, info.convertHidden);
    std::filesystem::remove(model);
    Run([&](HWND dialog) {
        EXPECT_EQ((std::vector<std::wstring>{L"a.model", L"b.model"}), Items(dialog, kCatiaRecentCombo));
        Pick(dialog, kCatiaRecentCombo, 0);
        EXPECT_EQ(L"a.model", Text(dialog, kCatiaFileEdit));
        ExpectRefusal(dialog, L"a.model", kCatiaFileEdit, kCaption);
        EXPECT_EQ(std::vector<std::wstring>{L"b.model"}, Items(dialog, kCatiaRecentCombo));
        Type(dialog, kCatiaFileEdit, L"a|b");
        ExpectRefusal(dialog, L"a|b", kCatiaFileEdit, kCaption);
    });
}
