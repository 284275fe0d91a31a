// The layer and arrow tables of the export: the launcher, the hub, and what the editors take, refuse and write. How
// their windows look is in the golden text.
#include "dxfout_tables/KrDxfOutTable.h"
#include "dxfout_tables/KrDxfOutTbl_Arrow.h"
#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "resources/dxfout_tables/KrDxfOutTable.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_CLayer.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Layer.ids.h"
#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kFile[] = L"KIRODXF_LAYER";
constexpr wchar_t kMarkFile[] = L"KIRODXF_ARROW";
constexpr wchar_t kChangedQuestion[] = L"テーブルが変更されています。\n変更内容を保存しますか？";

constexpr Editor kPictures = {L"ピクチャのレイヤ割当て", kFile, 0, kPictureLayersButton};
constexpr Editor kOutClasses = {L"クラスのレイヤ割当て", kFile, 0, kClassLayersButton};
constexpr Editor kOutRevisions = {L"クラスのレイヤ割当て", kFile, 0, kRevisionLayersButton};
constexpr Editor kColors = {L"色の色割当て", kFile, 0, kOutColorsButton};
constexpr Editor kMarks = {L"矢印割当て", kMarkFile};

struct Entry {
    int row;
    int column;
    const wchar_t* text;
    const wchar_t* message = nullptr;  // of "設定"; null: taken
};

class ExportTables : public ImportTables {
  protected:
    // The user gets what is shown first and closes the hub.
    INT_PTR Hub(std::int32_t fullMode, std::int32_t revisionOnly, const std::function<void(HWND)>& user) const {
        const LibraryResources resources;
        return Drive(
            [&] {
                const auto table = std::make_unique<DxfOutLayerTable>();
                WriteFixedText(table->fileName, "KIRODXF_LAYER");
                const auto before = std::make_unique<DxfOutLayerTable>(*table);
                KrDxfOutTbl_Layer hub(owner);
                hub.SetInfo(fullMode, revisionOnly, table.get());
                const INT_PTR result = hub.DoModal(owner);
                EXPECT_TRUE(*before == *table) << "the caller's table has changed";
                return result;
            },
            [&] { user(Settle()); });
    }
    void Edit(const Editor& editor, bool save, const std::function<void(HWND dialog, const Grid&)>& user) {
        if (!editor.edit) {
            KrDxfOutTbl_Arrow arrows;
            Play(arrows, [&](HWND dialog) { user(dialog, Grid(dialog, kGrid)); });
            return;
        }
        Hub(1, 0, [&](HWND hub) {
            Click(hub, editor.edit);
            const HWND dialog = Settle();
            user(dialog, Grid(dialog, kGrid));
            ASSERT_EQ(hub, Settle()) << "the editor is still open";
            Click(hub, save ? IDOK : IDCANCEL);
            if (Settle()) Answer(ReadBox(), save ? IDYES : IDNO);
        });
    }
    // The records alone.
    std::string Records(const wchar_t* file) const {
        const std::string bytes = Bytes(file);
        return bytes.substr(std::min(bytes.find("/ Convert"), bytes.size()));
    }
};

}  // namespace

TEST_F(ExportTables, TheHubOffersWhatItsCallerAllows) {
    const struct {
        std::int32_t fullMode, revisionOnly;
        const char* file;
        std::vector<int> disabled;
        int pages, pictures;
    } cases[] = {{1, 1, "", {}, kPagesByPictureRadio, kPicturesByClassRadio},
                 {1, 0, "PICTURE_OFF -257\nLAYER_CONTROL REVISION\n", {}, 4001, 4008},  // deliberately not as written
                 {0, 0, "LAYER_CONTROL REVISION\n", {4000, 4002, 4008, 4011, 4013}, 4001, 4003},
                 {0, 1, "PICTURE_OFF 257\n", {4000, 4001, 4003, 4011, 4012}, 4002, 4008}};
    for (const auto& mode : cases) {
        WriteTable(kFile, mode.file);
        EXPECT_EQ(IDOK, Hub(mode.fullMode, mode.revisionOnly, [&](HWND hub) {
                      for (const int id : {4000, 4001, 4002, 4003, 4008, 4011, 4012, 4013, 4014})
                          EXPECT_EQ(!std::ranges::count(mode.disabled, id), IsEnabled(hub, id)) << id;
                      for (const int id : {4000, 4001, 4002, 4003, 4008})
                          EXPECT_EQ(id == mode.pages || id == mode.pictures, IsChecked(hub, id)) << id;
                      Click(hub, IDOK);
                      Expect(kLayerCaption, kSaveQuestion, MB_ICONQUESTION, IDNO);
                  }));
        EXPECT_EQ(mode.file, Bytes(kFile));
    }
}

TEST_F(ExportTables, RadiosAreWrittenButAreNoChange) {
    const struct {
        int pages, pictures;
        const char* written;
    } cases[] = {{4002, 4008, "PICTURE_OFF  -257\r\n/\r\nLAYER_CONTROL  REVISION\r\n"},
                 {4001, 4003, "PICTURE_OFF  257\r\n/\r\nLAYER_CONTROL  CLASS\r\n"},
                 {4000, 4008, "PICTURE_OFF  0\r\n/\r\nLAYER_CONTROL  REVISION\r\n"}};
    for (const auto& choice : cases) {
        WriteTable(kFile, "");
        for (const int end : {IDCANCEL, IDOK}) {
            EXPECT_EQ("", Bytes(kFile));
            Hub(1, 0, [&](HWND hub) {
                Click(hub, choice.pages);
                Click(hub, choice.pictures);
                // The editors go by their buttons and leave the choice as it is.
                for (const int button : {kClassLayersButton, kRevisionLayersButton}) {
                    Click(hub, button);
                    const Grid grid(Settle(), kGrid);
                    Click(Settle(), end);
                }
                Click(hub, end);
                if (end == IDOK) return Expect(kLayerCaption, kSaveQuestion, MB_ICONQUESTION, IDYES);
                EXPECT_EQ(nullptr, Settle()) << "asked for radio buttons";
            });
        }
        EXPECT_TRUE(Has(kFile, choice.written)) << Bytes(kFile);
    }
}

TEST_F(ExportTables, CancelOfTheHubAsksAfterChanges) {
    for (const int answer : {IDNO, IDYES}) {
        WriteTable(kFile, "");
        EXPECT_EQ(IDCANCEL, Hub(1, 0, [&](HWND hub) {
                      Click(hub, kOutColorsButton);
                      Change(Grid(Settle(), kGrid), 255, 1, L"255");
                      Click(Settle(), IDOK);
                      Click(hub, IDCANCEL);
                      Expect(kLayerCaption, kChangedQuestion, MB_ICONQUESTION, answer);
                  }));
        EXPECT_EQ(answer == IDYES, Has(kFile, "COLOR    256 = 255\r\n"));
        EXPECT_EQ(answer == IDNO, Bytes(kFile).empty());
    }
}

TEST_F(ExportTables, EditorsRefuseWhatIsWrong) {
    const struct {
        const Editor& editor;
        const char* file;
        std::vector<Entry> entries;
    } checks[] = {{kPictures,
                   "",
                   {{2, 1, L"", L"レイヤ名が入力されていません 3"},
                    {256, 1, L"階段 手摺", L"レイヤ名に空白は使えません 257 : 階段 手摺"},
                    {0, 1, L"ソ=表"}}},
                  {kOutClasses, "CLASS 1=A\n", {{2, 1, L"A"}, {9, 1, L"", L"レイヤ名が入力されていません 10"}}},
                  {kOutRevisions, "", {{0, 1, L"a b", L"レイヤ名に空白は使えません 1 : a b"}}},
                  {kColors,
                   "",
                   {{0, 1, L"256", L"無効な色番号です。"},
                    {255, 1, L"abc", L"無効な色番号です。"},
                    {7, 1, L"-1", L"無効な色番号です。"},
                    {7, 1, L"", L"無効な色番号です。"},
                    {7, 1, L"255"}}},
                  {kMarks,
                   "ARROW 12,0=_DOT\nARROW 13,180=_OPEN\n",
                   {{1, 1, L"", L"マーク番号が入力されていません 2"},
                    {1, 2, L"", L"角度が入力されていません 2"},
                    {0, 3, L"", L"矢印名（複合図形名）が入力されていません 1"},
                    {0, 1, L"0", L"無効なマーク番号です 1 : 0"},
                    {1, 1, L"4096", L"無効なマーク番号です 2 : 4096"},
                    {0, 1, L"4095"},
                    {1, 2, L"90", L"無効な角度です 2 : 90"},
                    {1, 2, L"181", L"無効な角度です 2 : 181"},
                    {1, 2, L"0"},
                    {0, 3, L"_dot", L"無効な矢印名です 1 : _dot"},
                    {1, 1, L"012"},
                    {0, 1, L"12", L"マーク番号が重複しています。 2 : 012"}}}};
    for (const auto& check : checks) {
        WriteTable(check.editor.file, check.file);
        Edit(check.editor, false, [&](HWND dialog, const Grid& grid) {
            for (const Entry& entry : check.entries) {
                SCOPED_TRACE(testing::PrintToString(std::wstring(entry.text)) + " in row " + std::to_string(entry.row));
                const std::wstring before = grid.Cell(entry.row, entry.column);
                const bool repeats = entry.message && entry.message[5] == L'が' && entry.message[6] == L'重';
                Change(grid, entry.row, entry.column, entry.text);
                if (!entry.message) continue;
                const GridPlace marked{repeats ? 1 : entry.row, entry.column};
                ExpectRefusal(check.editor, dialog, marked, entry.message);
                EXPECT_TRUE(IsMarked(grid, marked));
                Change(grid, entry.row, entry.column, before);
            }
            Click(dialog, IDOK);  // all is right again
        });
    }
}

// Entries of one mark are read from a file, and all but the first of them are marked.
TEST_F(ExportTables, EveryRepetitionOfAMarkIsShown) {
    const std::string file = "ARROW 5,0=_DOT\nARROW 7,0=_DOT\nARROW 7,180=_OPEN\nARROW 5,180=_DOT\nARROW 5,0=_DOT\n";
    WriteTable(kMarkFile, file);
    Edit(kMarks, false, [&](HWND dialog, const Grid& grid) {
        const auto marked = [&] {
            std::vector<int> rows;
            for (int row = 0; row < grid.Rows(); ++row)
                if (IsMarked(grid, {row, 1})) rows.push_back(row);
            return rows;
        };
        ExpectRefusal(kMarks, dialog, {4, 1}, L"マーク番号が重複しています。 5 : 5");
        EXPECT_EQ((std::vector{2, 3, 4}), marked());
        Change(grid, 4, 1, L"6");
        // The repetition of row 2 is found after that of row 1.
        ExpectRefusal(kMarks, dialog, {2, 1}, L"マーク番号が重複しています。 3 : 7");
        EXPECT_EQ((std::vector{2, 3}), marked());
        Change(grid, 1, 2, L"90");  // nothing is looked at behind a bad cell
        ExpectRefusal(kMarks, dialog, {1, 2}, L"無効な角度です 2 : 90");
        Change(grid, 1, 2, L"0");
        Change(grid, 2, 1, L"8");
        Change(grid, 0, 1, L"4");
        EXPECT_EQ(file, Bytes(kMarkFile));
        Click(dialog, IDOK);
    });
    EXPECT_EQ(
        "/ Convert Mark to Arrow\r\n/\r\nARROW     4,    0 = _DOT\r\nARROW     7,    0 = _DOT\r\n"
        "ARROW     8,  180 = _OPEN\r\nARROW     5,  180 = _DOT\r\nARROW     6,    0 = _DOT\r\n/\r\n/ Eof\r\n",
        Records(kMarkFile));
}

TEST_F(ExportTables, ArrowsComeAndGo) {
    Edit(kMarks, false, [&](HWND dialog, const Grid& grid) {
        Command(kAdd);
        ExpectRefusal(kMarks, dialog, {0, 3}, L"矢印名（複合図形名）が入力されていません 1");
        grid.Choose(0);  // longer than what can be typed
        Command(kInsert);
        Command(kDelete);
        Obstruct(kMarkFile);
        Click(dialog, IDOK);
        Answer(ReadBox(), IDOK);
        ASSERT_EQ(dialog, Settle()) << "closed although nothing was written";
        std::filesystem::remove(TableFile(kMarkFile));
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kMarkFile, "ARROW     1,  180 = _CLOSEDFILLED\r\n")) << Bytes(kMarkFile);
    for (const int end : {IDCANCEL, IDOK}) {
        EXPECT_TRUE(Has(kMarkFile, "ARROW  "));
        Edit(kMarks, false, [&](HWND dialog, const Grid& grid) {
            grid.Click(0, 0);
            Command(kDelete);
            Click(dialog, end);
        });
    }
    EXPECT_TRUE(Has(kMarkFile, "/ Eof") && !Has(kMarkFile, "ARROW  ")) << Bytes(kMarkFile);
}

// Confirming an editor changes nothing that was not touched: long names, numbers that have no row.
TEST_F(ExportTables, WhatIsNotTouchedStays) {
    const std::string name65(65, 'p'), name63 = "表" + std::string(61, 'c');
    for (const Editor* editor : {&kPictures, &kOutClasses, &kOutRevisions, &kColors}) {
        WriteTable(kFile, "CLASS_CONTROL ITEM\nPICTURE 257=" + name65 + "\nCLASS 257=" + name63 +
                              "\nREVISION 1=" + name63 + "\nCOLOR 0=7\nCOLOR 256=9\nCOLOR 3=255\n");
        std::string saved[2];
        for (std::string& records : saved) {
            Edit(*editor, true, [&](HWND dialog, const Grid& grid) {
                grid.Click(grid.Rows() - 1, 1);
                Key(VK_F2);
                Key(VK_TAB);
                Click(dialog, &records == saved ? IDCANCEL : IDOK);
            });
            records = Records(kFile);
        }
        EXPECT_EQ(saved[0], saved[1]) << testing::PrintToString(std::wstring(editor->caption));
        EXPECT_TRUE(Has(kFile, "= " + name65 + "\r\n") && Has(kFile, "CLASS    257 = " + name63 + "\r\n") &&
                    Has(kFile, "REVISION   1 = " + name63 + "\r\n") && Has(kFile, "COLOR    256 =   9\r\n"));
    }
}

TEST_F(ExportTables, NamesThatTheFileCannotGiveBackAreRefused) {
    const struct {
        const Editor& editor;
        const char* before;
        std::size_t length;
        std::wstring message;
    } cases[] = {{kPictures, "PICTURE 3=", 66, L"レイヤ名が長すぎます（半角65文字以内） 3 : "},
                 {kOutClasses, "CLASS 3=", 64, L"レイヤ名が長すぎます（半角63文字以内） 3 : "}};
    for (const auto& name : cases) {
        WriteTable(kFile, name.before + std::string(name.length, 'x') + "\n");
        Edit(name.editor, true, [&](HWND dialog, const Grid& grid) {
            ExpectRefusal(name.editor, dialog, {2, 1}, name.message + std::wstring(name.length, L'x'));
            grid.Write(L"壁");
            Click(dialog, IDOK);
        });
        EXPECT_TRUE(Has(kFile, "  3 = 壁\r\n"));
    }
}

TEST_F(ExportTables, CompositeItemsGoByTheRadioWhenTheEditorIsConfirmed) {
    const struct {
        int radio;
        int end;
        const char* written;
    } cases[] = {{kByItemRadio, IDCANCEL, "CLASS_CONTROL  COMPOSITE"},
                 {kByItemRadio, IDOK, "CLASS_CONTROL  ITEM"},
                 {kByModelRadio, IDOK, "PICTURE_OFF  0\r\n/\r\n/\r\nPICTURE"}};
    for (const auto& choice : cases) {
        WriteTable(kFile, "CLASS_CONTROL COMPOSITE\n");
        Edit(kOutRevisions, true, [&](HWND dialog, const Grid&) {
            EXPECT_TRUE(IsChecked(dialog, kByCompositeRadio));
            Click(dialog, choice.radio);
            EXPECT_EQ(kGrid, FocusId());
            EXPECT_TRUE(IsChecked(dialog, choice.radio) && !IsChecked(dialog, kByCompositeRadio));
            Click(dialog, choice.end);
        });
        EXPECT_TRUE(Has(kFile, choice.written)) << Bytes(kFile);
    }
}

TEST_F(ExportTables, AFileThatCannotBeReadOrWrittenLosesNothing) {
    WriteTable(kFile, "PICTURE 1=壁\nPICTURE 300=A\n");
    Hub(1, 0, [&](HWND box) {  // before the hub is there
        EXPECT_EQ(L"レイヤ・色割当", Text(box));
        Answer(ReadBox(), IDOK);
        const HWND hub = Settle();
        Click(hub, kPictureLayersButton);
        Change(Grid(Settle(), kGrid), 1, 1, L"ソ表");
        Click(Settle(), IDOK);
        std::filesystem::remove(TableFile(kFile));
        Obstruct(kFile);
        Click(hub, IDOK);
        Answer(ReadBox(), IDYES);
        EXPECT_EQ(L"No such a file or directory : " + TableFile(kFile).wstring(), ReadBox().text);
        EXPECT_FALSE(IsWindowEnabled(hub)) << "the box stands over something else";
        Answer(ReadBox(), IDOK);
        ASSERT_EQ(hub, Settle());
        std::filesystem::remove(TableFile(kFile));
        Click(hub, IDOK);
        Answer(ReadBox(), IDYES);
    });
    EXPECT_TRUE(Has(kFile, "PICTURE    1 = 壁\r\nPICTURE    2 = ソ表\r\n"));
}

TEST_F(ExportTables, TheLauncherOpensNewAndOldTables) {
    const struct {
        int button;
        const wchar_t* name;
        bool exists;
        const char* first;  // picture 1 in the file that is saved
    } cases[] = {{kNewOutLayerTableButton, L"KIRODXF_LAYER_表", true, "PICTURE    1 = 0\r\n"},
                 {kChangeOutLayerTableButton, L"KIRODXF_LAYER_表", true, "PICTURE    1 = 壁\r\n"},
                 {kChangeOutLayerTableButton, L"KIRODXF_LAYER_ソ", false, "PICTURE    1 = 0\r\n"}};
    for (const auto& opened : cases) {
        const std::string before = opened.exists ? "PICTURE 1=壁\n" : "";
        if (opened.exists) WriteTable(opened.name, before);
        KrDxfOutTable launcher;
        Play(launcher, [&](HWND dialog) {
            for (const int end : {IDCANCEL, IDOK}) {
                EXPECT_EQ(before, Bytes(opened.name));
                Choose(dialog, opened.button, opened.name);
                if (opened.exists == (opened.button == kNewOutLayerTableButton)) Answer(ReadBox(), IDYES);
                Click(Settle(), end);
                if (end == IDOK) Answer(ReadBox(), IDYES);
                ASSERT_EQ(dialog, Settle());
            }
            Click(dialog, IDCANCEL);
        });
        EXPECT_TRUE(Has(opened.name, opened.first)) << Bytes(opened.name);
    }
}
