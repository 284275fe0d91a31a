// The attribute conversion of an import, the dialogs that own its tables' files, and the grid editors behind those.
// Each is opened as the library opens it, without the windows that a user comes through.
#pragma once

#include "dxfin/KrDxfInAttr.h"
#include "dxfin_tables/KrDxfInTbl_Arrow.h"
#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "dxfin_tables/KrDxfInTbl_Line.h"
#include "dxfin_tables/KrDxfInTbl_TFont.h"
#include "entry/host/FixedText.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "resources/grid.ids.h"
#include "tests/dialogs/ImportHost.h"

inline constexpr wchar_t kLineFile[] = L"DXFKIRO_LINE";
inline constexpr wchar_t kFontFile[] = L"DXFKIRO_STYLE";
inline constexpr wchar_t kArrowFile[] = L"DXFKIRO_ARROW";
inline constexpr wchar_t kLayerCaption[] = L"レイヤ割当て・色割当て";

// Where an editor is found, and what its refusals say.
struct Editor {
    const wchar_t* caption;
    const wchar_t* file;
    int choose = 0;  // the radio of the hub that enables the button; 0: none
    int edit = 0;    // the button of the hub; 0: the editor owns its file
};
inline constexpr Editor kClasses = {L"レイヤのクラス割当て", kLayerFile, kLayersToClassesRadio, kLayerClassButton};
inline constexpr Editor kRevisions = {L"レイヤのレビジョン割当て", kLayerFile, kLayersToRevisionsRadio,
                                      kLayerRevisionButton};
inline constexpr Editor kColorRevisions = {L"色のレビジョン割当て", kLayerFile, kLayersToClassesRadio,
                                           kColorRevisionButton};
inline constexpr Editor kColorClasses = {L"色のクラス割当て", kLayerFile, kLayersToRevisionsRadio, kColorClassButton};
inline constexpr Editor kLineTypes = {L"線種割当て", kLineFile, 0, kLineTypesButton};
inline constexpr Editor kPolylines = {L"線種割当て", kLineFile, kPolylinesOnRadio, kPolylineWidthsButton};
inline constexpr Editor kColorWidths = {L"線種割当て", kLineFile, kColorsOnRadio, kColorWidthsButton};
inline constexpr Editor kLineWidths = {L"線種割当て", kLineFile, kWidthsOnRadio, kLineWidthsButton};
inline constexpr Editor kFonts = {L"文字フォント割当て", kFontFile};
inline constexpr Editor kArrows = {L"矢印割当て", kArrowFile};

using Cells = std::vector<std::wstring>;

class ImportTables : public ImportHost {
  protected:
    std::string drawing;  // that the command names

    enum RowCommand { kAdd, kInsert, kDelete };  // in the order of the menu

    // ---- Files ----

    bool Has(const std::wstring& name, const std::string& text) const {
        return Bytes(name).find(text) != std::string::npos;
    }
    // Where the file is to be there can be none.
    void Obstruct(const std::wstring& name) const {
        std::filesystem::remove_all(TableFile(name));
        std::filesystem::create_directories(TableFile(name));
    }

    // ---- Opening ----

    // One that knows the drawing.
    template <class Dialog>
    INT_PTR PlayNew(const std::function<void(HWND dialog)>& user) {
        Dialog dialog(drawing);
        return Play(dialog, user);
    }
    void Attributes(const std::function<void(HWND dialog)>& user) {
        KrDxfInAttr dialog(record.params, drawing);
        Play(dialog, user);
    }
    // The dialog that owns the file.
    INT_PTR Open(const std::wstring& file, const std::function<void(HWND dialog)>& user) {
        if (file == kLineFile) return PlayNew<KrDxfInTbl_Line>(user);
        if (file == kFontFile) return PlayNew<KrDxfInTbl_TFont>(user);
        if (file == kArrowFile) return PlayNew<KrDxfInTbl_Arrow>(user);
        const auto table = std::make_unique<DxfInLayerTable>();
        WriteFixedText(table->fileName, "DXFKIRO_LAYER");
        KrDxfInTbl_Layer dialog(*table, 1, 0, drawing);
        return Play(dialog, user);
    }
    // An editor, which is cancelled when the user has left it open; afterwards the table is saved or not.
    void Edit(const Editor& editor, bool save, const std::function<void(HWND dialog, const kiro::drive::Grid&)>& user) {
        using namespace kiro::drive;
        Open(editor.file, [&](HWND hub) {
            if (editor.choose) Click(hub, editor.choose);
            if (editor.edit) Click(hub, editor.edit);
            const HWND dialog = Settle();
            user(dialog, Grid(dialog, kGrid));
            if (!editor.edit) return;
            if (Settle() == dialog) Click(dialog, IDCANCEL);
            ASSERT_EQ(hub, Settle()) << "the editor is still open";
            Click(hub, save ? IDOK : IDCANCEL);
            // Whether to save, and whether to overwrite what another program has written meanwhile.
            while (Settle()) Answer(ReadBox(), save ? IDYES : IDNO);
        });
    }

    // ---- What the user does and sees ----

    static void ExpectError(HWND dialog, const std::wstring& message) {
        EXPECT_EQ(message, kiro::drive::Guidance(dialog));
        EXPECT_TRUE(kiro::drive::IsGuidanceError(dialog)) << testing::PrintToString(message);
    }
    // "設定" must be refused with the box, and lead to the cell with the message.
    static void ExpectRefusal(const wchar_t* caption, HWND dialog, const kiro::drive::Grid& grid,
                              kiro::drive::GridPlace cell, const std::wstring& message) {
        using namespace kiro::drive;
        Click(dialog, IDOK);
        Expect(caption, L"設定内容に誤りがあります。", MB_ICONERROR, IDOK);
        ASSERT_EQ(dialog, Settle()) << "closed with " << testing::PrintToString(message);
        EXPECT_EQ(cell, grid.Current());
        EXPECT_EQ(grid.List(), FocusWindow());
        EXPECT_TRUE(IsMarked(grid, cell)) << testing::PrintToString(message);
        ExpectError(dialog, message);
    }
    static void ExpectRefusal(const Editor& editor, HWND dialog, kiro::drive::GridPlace cell,
                              const std::wstring& message) {
        ExpectRefusal(editor.caption, dialog, kiro::drive::Grid(dialog, kGrid), cell, message);
    }
    static bool IsMenuOpen() { return (kiro::drive::GuiState().flags & GUI_INMENUMODE) != 0; }
    static POINT MenuPlace(const kiro::drive::Grid& grid) {  // of the open menu, in the list view
        RECT menu{};
        GetWindowRect(kiro::drive::OpenMenu(), &menu);
        POINT place{menu.left, menu.top};
        ScreenToClient(grid.List(), &place);
        return place;
    }
    // A command of the row menu, which the menu key opens.
    static void Command(RowCommand command) {
        kiro::drive::Key(VK_APPS);
        kiro::drive::PickMenu(command);
        EXPECT_EQ(kGrid, kiro::drive::FocusId());
    }
    // Which keys F1 lists: those for rows, and those for names.
    static void ExpectKeysListed(bool rows, bool names) {
        kiro::drive::Key(VK_F1);
        const kiro::drive::Box box = kiro::drive::ReadBox();
        EXPECT_EQ(rows, box.text.find(L"Ins") != std::wstring::npos);
        for (const wchar_t* key : {L"Ctrl+Shift+V", L"F8"}) EXPECT_EQ(names, box.text.find(key) != std::wstring::npos);
        kiro::drive::Answer(box, IDOK);
        EXPECT_EQ(kGrid, kiro::drive::FocusId());
    }
    static Cells Row(const kiro::drive::Grid& grid, int row) {
        using namespace kiro::drive;
        Cells cells;
        const auto header = reinterpret_cast<HWND>(Send(grid.List(), LVM_GETHEADER));
        for (int column = 0; column < Send(header, HDM_GETITEMCOUNT); ++column) cells.push_back(grid.Cell(row, column));
        return cells;
    }
    static std::vector<Cells> AllRows(const kiro::drive::Grid& grid) {
        std::vector<Cells> rows;
        for (int row = 0; row < grid.Rows(); ++row) rows.push_back(Row(grid, row));
        return rows;
    }
};
