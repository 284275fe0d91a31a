// The templates of the built DLL.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/dialogs/TemplateCheck.h"

TEST(Templates, HaveRoomOrderAndSizeInTheBuiltLibrary) {
    const HMODULE library = LoadLibraryW(L"kirovanteo.dll");
    ASSERT_NE(nullptr, library);
    const auto dialogs = ReadTemplates(library);
    const struct {
        int id, width, height;
        const wchar_t* title;
    } rows[] = {
        {4000, 357, 172, L"ＤＸＦ読込み"},
        {4001, 371, 285, L"ＤＸＦ読込みパラメータ"},
        {4002, 348, 142, L"ＤＸＦ読込み 一括変換"},
        {4005, 176, 127, L"DXF読込み　テーブル確認・変更"},
        {4017, 367, 157, L"ＤＸＦ書込み"},
        {4033, 250, 129, L"レイヤ割当て・色割当て"},
        {4034, 378, 116, L"線種・線幅割当て"},
        {4036, 344, 189, L"Ｐｅｌｉｏｎ ＤＢ読込み"},
        {4040, 347, 180, L"ＶＲ ＤＢ読込み（ＩＢＭ）"},
        {4041, 374, 281, L"Ｐｅｌｉｏｎ ＤＢ書込み"},
        {4043, 361, 257, L"Ｖａｒｏｓ ＤＢ書込み"},
        {4047, 333, 120, L"ＣＡＴＩＡ読込み"},
        {4048, 398, 111, L"パスワード入力"},
        {4054, 418, 248, L"線種設定"},
        {4055, 267, 174, L"線幅設定"},
        {4056, 250, 162, L"警告"},
        {4057, 316, 248, L"レイヤ名"},
        {4058, 420, 289, L"読込み：属性変換"},
        {4059, 304, 92, L""},
        {4060, 296, 134, L""},
        {4061, 248, 134, L""},
        {4062, 280, 120, L""},
        {4063, 280, 134, L""},
        {4071, 280, 106, L""},
        {4073, 228, 84, L""},
        {4074, 219, 110, L""},
        {4075, 310, 180, L""},
        {4076, 259, 111, L""},
        {4077, 236, 93, L""},
    };
    for (const auto& row : rows) {
        const auto found = std::find_if(dialogs.begin(), dialogs.end(), [&](const auto& d) { return d.id == row.id; });
        ASSERT_NE(dialogs.end(), found) << row.id;
        EXPECT_EQ(row.width, found->width) << row.id;
        EXPECT_EQ(row.height, found->height) << row.id;
        EXPECT_EQ(row.title, found->title) << row.id;
    }
    for (const DialogTemplate& dialog : dialogs) {
        EXPECT_EQ(std::vector<std::string>{}, CheckTemplate(dialog));
    }
    FreeLibrary(library);
}

// The templates of this program each have one fault.
TEST(Templates, CheckFindsEveryFault) {
    const std::vector<std::string> expected = {"101/: another font",
                                               "102/: no way to cancel",
                                               "103/10: outside the dialog",
                                               "104/10: no room for its text",
                                               "105/10: no room for its text",
                                               "106/10: no room for its text",
                                               "107/11: overlaps 10",
                                               "108/11: overlaps 10",
                                               "109/11: the Tab key goes back to it from 10",
                                               "110/10: starts no group",
                                               "111/11: belongs to the radio buttons before it",
                                               "112/10: number used twice",
                                               "113/10: lower than its text"};
    std::vector<std::string> found;
    for (const DialogTemplate& dialog : ReadTemplates(GetModuleHandleW(nullptr))) {
        const auto findings = CheckTemplate(dialog);
        found.insert(found.end(), findings.begin(), findings.end());
    }
    std::sort(found.begin(), found.end());
    EXPECT_EQ(expected, found);
}
