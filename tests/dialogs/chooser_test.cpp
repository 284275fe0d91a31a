// The system's chooser as the utility object opens it: what its name field says at the start.
#include "entry/host/KrUtility.h"
#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

constexpr int kNameField = 0x47C;

HWND NameEdit(HWND chooser) {
    const HWND combo = FindWindowExW(Control(chooser, kNameField), nullptr, L"ComboBox", nullptr);
    return FindWindowExW(combo, nullptr, L"Edit", nullptr);
}

}  // namespace

TEST_F(TestHost, ChooserOfANewFileProposesWhatItsNameBeginsWith) {
    constexpr struct {
        int mode;
        const char* pattern;
        const wchar_t* proposed;
        const char* chosen;  // when "1" is typed behind it
    } kCases[] = {
        {kKrChooseNew, "KIRO_表*", L"KIRO_表", "KIRO_表1"},
        {kKrChooseExisting, "KIRO_表*", L"", "1"},
        {kKrChooseNew, "*.dxf", L"", "1.dxf"},
        {kKrChooseNew, "KIRO?*", L"", "1"},
        {kKrChooseNew, "a;KIRO*", L"", "1"},
        {kKrChooseNew, "*", L"", "1"},
    };
    const KrUtilityPtr utility(KrCreateUtility());
    utility->SetParentWindow(owner);
    utility->SetKeyword("#DXF#");
    for (const auto& [mode, pattern, proposed, chosen] : kCases) {
        SCOPED_TRACE(pattern);
        utility->SetWildcard(pattern);
        const auto user = [&, &first = proposed] {
            const HWND chooser = Settle();
            const HWND name = NameEdit(chooser);
            EXPECT_EQ(first, Text(name));
            EXPECT_EQ(name, FocusWindow());
            EXPECT_EQ(MAKELONG(0, Text(name).size()), Send(name, EM_GETSEL)) << "typing replaces it";
            Key(VK_END);
            PostMessageW(name, WM_CHAR, L'1', 1);
            Click(chooser, IDOK);
        };
        EXPECT_EQ(1, Drive([&, how = mode] { return utility->FileDialog(how); }, user));
        EXPECT_EQ(home.string() + "\\DXF\\" + chosen, utility->GetFileName());
    }
}
