// The grid editors of the import tables, behind the dialogs that own their files.
#pragma once

#include <initializer_list>
#include <memory>

#include "driver/GridDriver.h"
#include "dxfin_tables/KrDxfInTbl_Arrow.h"
#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "dxfin_tables/KrDxfInTbl_Line.h"
#include "dxfin_tables/KrDxfInTbl_TFont.h"
#include "entry/host/FixedText.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "resources/grid.ids.h"
#include "tests/dialogs/ImportTables.h"

inline constexpr wchar_t kLineFile[] = L"DXFKIRO_LINE";
inline constexpr wchar_t kFontFile[] = L"DXFKIRO_STYLE";
inline constexpr wchar_t kArrowFile[] = L"DXFKIRO_ARROW";
inline constexpr wchar_t kLineCaption[] = L"線種割当て";

// Where an editor is found, and what it says.
struct Editor {
    const wchar_t* title;
    const wchar_t* caption;  // of the box that refuses "設定"
    const wchar_t* file;
    int choose = 0;  // the radio of the hub that enables the button; 0: none
    int edit = 0;    // the button of the hub; 0: the editor owns its file
};

inline constexpr Editor kClassEditor = {L"レイヤのクラス割当て", L"レイヤのクラス割当て", kLayerFile,
                                        kLayersToClassesRadio, kLayerClassButton};
inline constexpr Editor kRevisionEditor = {L"レイヤのレビジョン割当て", L"レイヤのレビジョン割当て", kLayerFile,
                                           kLayersToRevisionsRadio, kLayerRevisionButton};
inline constexpr Editor kColorRevisionEditor = {L"色のレビジョン割当て", L"色のレビジョン割当て", kLayerFile,
                                                kLayersToClassesRadio, kColorRevisionButton};
inline constexpr Editor kColorClassEditor = {L"色のクラス割当て", L"色のクラス割当て", kLayerFile,
                                             kLayersToRevisionsRadio, kColorClassButton};
inline constexpr Editor kLineTypeEditor = {L"線種割当て", kLineCaption, kLineFile, 0, kLineTypesButton};
inline constexpr Editor kPolylineEditor = {L"ポリラインの線幅割当て", kLineCaption, kLineFile, kPolylinesOnRadio,
                                           kPolylineWidthsButton};
inline constexpr Editor kColorWidthEditor = {L"色の線幅割当て", kLineCaption, kLineFile, kColorsOnRadio,
                                             kColorWidthsButton};
inline constexpr Editor kLineWidthEditor = {L"線幅割当て", kLineCaption, kLineFile, kWidthsOnRadio, kLineWidthsButton};
inline constexpr Editor kFontEditor = {L"文字フォント割当て", L"文字フォント割当て", kFontFile};
inline constexpr Editor kArrowEditor = {L"矢印割当て", L"矢印割当て", kArrowFile};

class ImportEditors : public ImportTables {
  protected:
    enum RowCommand { kAdd, kInsert, kDelete };  // in the order of the menu

    // Runs the dialog that owns the file.
    INT_PTR Open(const wchar_t* file) {
        const LibraryResources resources;
        const std::wstring name = file;
        if (name == kLineFile) return KrDxfInTbl_Line().DoModal(owner);
        if (name == kFontFile) return KrDxfInTbl_TFont().DoModal(owner);
        if (name == kArrowFile) return KrDxfInTbl_Arrow().DoModal(owner);
        const auto table = std::make_unique<DxfInLayerTable>();
        WriteFixedText(table->fileName, "DXFKIRO_LAYER");
        return KrDxfInTbl_Layer(*table, 1, 0).DoModal(owner);
    }
    // The user gets the open editor and closes it; then the table is saved or not.
    void Edit(const Editor& editor, bool save, const std::function<void(HWND dialog, const kiro::drive::Grid&)>& user) {
        using namespace kiro::drive;
        Drive([&] { return Open(editor.file); },
              [&] {
                  const HWND hub = Settle();
                  if (editor.choose) Click(hub, editor.choose);
                  if (editor.edit) Click(hub, editor.edit);
                  const HWND dialog = Settle();
                  ASSERT_EQ(editor.title, Text(dialog));
                  user(dialog, Grid(dialog, kGrid));
                  ASSERT_EQ(editor.edit ? hub : nullptr, Settle()) << "the editor is still open";
                  if (!editor.edit) return;
                  Click(hub, save ? IDOK : IDCANCEL);
                  // Whether to save, and whether to overwrite what another program has written meanwhile.
                  while (Settle()) Answer(ReadBox(), save ? IDYES : IDNO);
              });
    }
    static void Change(const kiro::drive::Grid& grid, int row, int column, const std::wstring& text) {
        grid.Click(row, column);
        grid.Write(text);
    }
    // "設定" must be refused with the box, the cell marked and the message shown.
    static void ExpectRefusal(const Editor& editor, HWND dialog, kiro::drive::GridPlace cell,
                              const std::wstring& message) {
        using namespace kiro::drive;
        Click(dialog, IDOK);
        Expect(editor.caption, L"設定内容に誤りがあります。", MB_ICONERROR, IDOK);
        ASSERT_EQ(dialog, Settle()) << "closed with " << testing::PrintToString(message);
        EXPECT_EQ(cell, Grid(dialog, kGrid).Current());
        EXPECT_EQ(kGrid, FocusId());
        ExpectError(dialog, message);
    }
    static bool IsMarked(const kiro::drive::Grid& grid, kiro::drive::GridPlace cell) {
        return grid.Pixel(cell.row, cell.column, 4, 4) == RGB(0xFF, 0xE0, 0xE0);
    }
    static void ExpectError(HWND dialog, const std::wstring& message) {
        EXPECT_EQ(message, kiro::drive::Guidance(dialog));
        EXPECT_TRUE(kiro::drive::IsGuidanceError(dialog)) << testing::PrintToString(message);
    }
    static bool IsMenuOpen() {
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        return GetGUIThreadInfo(kiro::drive::UiThread(), &state) && (state.flags & GUI_INMENUMODE);
    }
    static POINT MenuPlace(const kiro::drive::Grid& grid) {  // of the open menu, in the list view
        RECT menu{};
        GetWindowRect(kiro::drive::OpenMenu(), &menu);
        POINT place{menu.left, menu.top};
        ScreenToClient(grid.List(), &place);
        return place;
    }
    // A command of the row menu, which the menu key opens.
    static void Command(RowCommand command) {
        using namespace kiro::drive;
        Key(VK_APPS);
        EXPECT_EQ((std::vector<std::wstring>{L"追加", L"挿入", L"削除"}), MenuItems(OpenMenu()));
        PickMenu(command);
        EXPECT_EQ(kGrid, FocusId());
    }
    static std::vector<std::wstring> Row(const kiro::drive::Grid& grid, int row) {
        std::vector<std::wstring> cells;
        const int columns = static_cast<int>(
            kiro::drive::Send(reinterpret_cast<HWND>(kiro::drive::Send(grid.List(), LVM_GETHEADER)), HDM_GETITEMCOUNT));
        for (int column = 0; column < columns; ++column) cells.push_back(grid.Cell(row, column));
        return cells;
    }
    static std::vector<std::vector<std::wstring>> AllRows(const kiro::drive::Grid& grid) {
        std::vector<std::vector<std::wstring>> rows;
        for (int row = 0; row < grid.Rows(); ++row) rows.push_back(Row(grid, row));
        return rows;
    }
};
