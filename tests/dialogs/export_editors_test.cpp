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

constexpr Editor kPictures = {L"ピクチャのレイヤ割当て", kFile, 0, kPictureLayersButton};
constexpr Editor kOutClasses = {L"クラスのレイヤ割当て", kFile, 0, kClassLayersButton};
constexpr Editor kOutRevisions = {L"クラスのレイヤ割当て", kFile, 0, kRevisionLayersButton};
constexpr Editor kColors = {L"色の色割当て", kFile, 0, kOutColorsButton};
constexpr Editor kMarks = {L"矢印割当て", kMarkFile};

class ExportTables : public ImportTables {
  protected:
    // The user gets what is shown first: the hub, or what there is to tell before it.
    INT_PTR Hub(std::int32_t fullMode, std::int32_t revisionOnly, const std::function<void(HWND)>& user) const {
        const LibraryResources resources;
        const auto table = std::make_unique<DxfOutLayerTable>();
        WriteFixedText(table->fileName, "KIRODXF_LAYER");
        const auto open = [&] {
            KrDxfOutTbl_Layer hub(owner);
            hub.SetInfo(fullMode, revisionOnly, table.get());
            return hub.DoModal(owner);
        };
        return Drive(open, [&] { user(Settle()); });
    }
    void Edit(const Editor& editor, const std::function<void(HWND dialog, const Grid&)>& user) {
        if (!editor.edit) {
            KrDxfOutTbl_Arrow arrows;
            Play(arrows, [&](HWND dialog) { user(dialog, Grid(dialog, kGrid)); });
            return;
        }
        Hub(1, 0, [&](HWND hub) {
            Click(hub, editor.edit);
            const HWND dialog = Settle();
            user(dialog, Grid(dialog, kGrid));
            if (Settle() == dialog) Click(dialog, IDCANCEL);
            ASSERT_EQ(hub, Settle()) << "the editor is still open";
            Save(hub);
        });
    }
    static void Save(HWND hub) {
        Click(hub, IDOK);
        Expect(kLayerCaption, kSaveQuestion, MB_ICONQUESTION, IDYES);
    }
};

}  // namespace

TEST_F(ExportTables, TheHubOffersWhatItsCallerAllowsAndWritesWhatIsChosen) {
    const struct {
        std::int32_t fullMode, revisionOnly;
        std::vector<int> disabled;
        int pages, pictures;  // that are selected
        const char* written;
    } cases[] = {{1, 1, {}, 4001, 4003, "PICTURE_OFF  -257\r\n/\r\nLAYER_CONTROL  REVISION\r\n"},
                 {0, 0, {4000, 4002, 4008, 4011, 4013}, 4001, 4003, "OFF  257\r\n/\r\nLAYER_CONTROL  CLASS"},
                 {0, 1, {4000, 4001, 4003, 4011, 4012}, 4002, 4008, "OFF  -257\r\n/\r\nLAYER_CONTROL  REVISION"}};
    for (const auto& mode : cases) {
        WriteTable(kFile, "PICTURE_OFF -257\n");  // deliberately read as 257
        Hub(mode.fullMode, mode.revisionOnly, [&](HWND hub) {
            for (const int id : {4000, 4001, 4002, 4003, 4008, 4011, 4012, 4013, 4014})
                EXPECT_EQ(!std::ranges::count(mode.disabled, id), IsEnabled(hub, id)) << id;
            EXPECT_TRUE(IsChecked(hub, mode.pages) && IsChecked(hub, mode.pictures)) << mode.pages;
            Click(hub, mode.fullMode ? kPagesByRevisionRadio : mode.pages);
            Click(hub, mode.fullMode ? kPicturesByRevisionRadio : mode.pictures);
            // The editor goes by its button and leaves the choice as it is.
            Click(hub, IsEnabled(hub, kClassLayersButton) ? kClassLayersButton : kRevisionLayersButton);
            Click(Settle(), IDOK);
            Save(hub);
        });
        EXPECT_TRUE(Has(kFile, mode.written)) << Bytes(kFile);
    }
}

TEST_F(ExportTables, CancelOfTheHubAsksAfterChangesOfATable) {
    Hub(1, 0, [&](HWND hub) {
        Click(hub, kPagesByRevisionRadio);
        Click(hub, IDCANCEL);
        EXPECT_EQ(nullptr, Settle()) << "asked for a radio button";
    });
    const INT_PTR result = Hub(1, 0, [&](HWND hub) {
        Click(hub, kOutColorsButton);
        Click(Settle(), IDOK);
        Click(hub, IDCANCEL);
        Expect(kLayerCaption, L"テーブルが変更されています。\n変更内容を保存しますか？", MB_ICONQUESTION, IDYES);
    });
    EXPECT_EQ(IDCANCEL, result);
    EXPECT_TRUE(Has(kFile, "/ Eof"));
}

TEST_F(ExportTables, EditorsRefuseWhatIsWrong) {
    const std::string long65(65, 'x');
    const std::wstring wide65(65, L'x');
    const std::string marks = "ARROW 12,0=_DOT\nARROW 13,180=_OPEN\n";
    const struct {
        const Editor& editor;
        std::string file;
        GridPlace cell;
        const wchar_t* text;  // typed into the cell; null: the file is bad enough
        std::wstring message;
    } cases[] = {
        {kPictures, "", {2, 1}, L"", L"レイヤ名が入力されていません 3"},
        {kOutRevisions, "", {256, 1}, L"階段 手摺", L"レイヤ名に空白は使えません 257 : 階段 手摺"},
        {kPictures, "PICTURE 3=x" + long65, {2, 1}, nullptr, L"レイヤ名が長すぎます（半角65文字以内） 3 : x" + wide65},
        {kOutClasses, "CLASS 3=" + long65, {2, 1}, nullptr, L"レイヤ名が長すぎます（半角63文字以内） 3 : " + wide65},
        {kColors, "", {0, 1}, L"256", L"無効な色番号です。"},
        {kColors, "", {255, 1}, L"abc", L"無効な色番号です。"},
        {kMarks, marks, {1, 1}, L"", L"マーク番号が入力されていません 2"},
        {kMarks, marks, {0, 3}, L"", L"矢印名（複合図形名）が入力されていません 1"},
        {kMarks, marks, {0, 1}, L"4096", L"無効なマーク番号です 1 : 4096"},
        {kMarks, marks, {0, 3}, L"_dot", L"無効な矢印名です 1 : _dot"},
    };
    for (const auto& bad : cases) {
        WriteTable(bad.editor.file, bad.file);
        Edit(bad.editor, [&](HWND dialog, const Grid& grid) {
            if (bad.text) Change(grid, bad.cell.row, bad.cell.column, bad.text);
            ExpectRefusal(bad.editor, dialog, bad.cell, bad.message);
        });
    }
}

// Entries of one mark are read from a file; all but the first of them are marked, and nothing behind a bad cell.
TEST_F(ExportTables, MarksComeAndGoAndAreOnlyThereOnce) {
    WriteTable(kMarkFile, "ARROW 5,0=_DOT\nARROW 7,0=_DOT\nARROW 7,180=_OPEN\nARROW 5,180=_DOT\nARROW 5,0=_DOT\n");
    Edit(kMarks, [&](HWND dialog, const Grid& grid) {
        const auto expect = [&](GridPlace cell, const wchar_t* message, const std::vector<int>& marked) {
            ExpectRefusal(kMarks, dialog, cell, message);
            for (int row = 0; row < grid.Rows(); ++row)
                EXPECT_EQ(std::ranges::count(marked, row), IsMarked(grid, {row, 1})) << row;
        };
        expect({4, 1}, L"マーク番号が重複しています。 5 : 5", {2, 3, 4});
        Change(grid, 4, 1, L"6");
        expect({2, 1}, L"マーク番号が重複しています。 3 : 7", {2, 3});  // found after row 4
        Change(grid, 1, 2, L"1");
        expect({1, 2}, L"無効な角度です 2 : 1", {2, 3});
        for (int row = 0; row < 4; ++row) {
            grid.Click(0, 0);
            Command(kDelete);
        }
        Command(kAdd);
        grid.Click(1, 3);
        grid.Choose(0);  // longer than what can be typed
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kMarkFile, "/\r\nARROW     6,    0 = _DOT\r\nARROW     1,  180 = _CLOSEDFILLED\r\n/\r\n/ Eof"))
        << Bytes(kMarkFile);
}

// Confirming an editor changes nothing that was not touched: long names, and entries that have no row.
TEST_F(ExportTables, WhatIsNotTouchedStays) {
    const std::string name = "表" + std::string(61, 'c');
    const std::string pictures = "PICTURE  257 = " + name + "pp\r\n", classes = "CLASS    257 = " + name + "\r\n";
    const std::string revisions = "REVISION 257 = " + name + "\r\n";
    const std::string first = "COLOR      0 =   7\r\n", last = "COLOR    256 =   9\r\n";
    for (const Editor* editor : {&kPictures, &kOutClasses, &kOutRevisions, &kColors}) {
        WriteTable(kFile, pictures + classes + revisions + first + last);
        Edit(*editor, [&](HWND dialog, const Grid& grid) {
            grid.Click(grid.Rows() - 1, 1);
            Key(VK_F2);
            Key(VK_TAB);
            Click(dialog, IDOK);
        });
        for (const std::string& line : {pictures, classes, revisions, first, last})
            EXPECT_TRUE(Has(kFile, line)) << line;
    }
}

TEST_F(ExportTables, CompositeItemsGoByTheRadioOnceTheEditorIsConfirmed) {
    for (const int end : {IDOK, IDCANCEL}) {  // what was saved first stays then
        Edit(kOutRevisions, [&](HWND dialog, const Grid& grid) {
            Change(grid, 0, 1, end == IDOK ? L"初版" : L"変更");
            Click(dialog, end == IDOK ? kByItemRadio : kByModelRadio);
            EXPECT_EQ(kGrid, FocusId());
            Click(dialog, end);
        });
        EXPECT_TRUE(Has(kFile, "CLASS_CONTROL  ITEM") && Has(kFile, "REVISION   1 = 初版\r\n"));
    }
}

TEST_F(ExportTables, AFileThatCannotBeReadOrWrittenLosesNothing) {
    WriteTable(kFile, "PICTURE 1=壁\nPICTURE 300=A\n");
    Hub(1, 0, [&](HWND box) {
        EXPECT_EQ(L"レイヤ・色割当", Text(box));
        Answer(ReadBox(), IDOK);
        const HWND hub = Settle();
        Click(hub, kPictureLayersButton);
        Change(Grid(Settle(), kGrid), 1, 1, L"ソ=表");
        Click(Settle(), IDOK);
        Obstruct(kFile);
        Save(hub);
        EXPECT_EQ(L"No such a file or directory : " + TableFile(kFile).wstring(), ReadBox().text);
        EXPECT_FALSE(IsWindowEnabled(hub)) << "the box stands over something else";
        Answer(ReadBox(), IDOK);
        ASSERT_EQ(hub, Settle());
        std::filesystem::remove(TableFile(kFile));
        Save(hub);
    });
    EXPECT_TRUE(Has(kFile, "PICTURE    1 = 壁\r\nPICTURE    2 = ソ=表\r\n"));
}

TEST_F(ExportTables, ANewTableStartsFromTheDefaults) {
    WriteTable(L"KIRODXF_LAYER_表", "PICTURE 1=壁\n");
    KrDxfOutTable launcher;
    Play(launcher, [&](HWND dialog) {
        for (const int button : {kChangeOutLayerTableButton, kNewOutLayerTableButton}) {
            const bool isNew = button == kNewOutLayerTableButton;
            Choose(dialog, button, L"KIRODXF_LAYER_表");
            if (isNew) Answer(ReadBox(), IDYES);
            EXPECT_TRUE(IsEnabled(Settle(), kPictureLayersButton));
            Save(Settle());
            EXPECT_TRUE(Has(L"KIRODXF_LAYER_表", isNew ? "PICTURE    1 = 0\r\n" : "PICTURE    1 = 壁\r\n"));
        }
    });
}
