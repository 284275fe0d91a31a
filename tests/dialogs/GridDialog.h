// A dialog with two grids, for the tests of the grid itself. It does no more than the contract asks: forwards what is
// to be drawn and the clicks, and takes note of what it hears.
//
// Most tests are a user's steps at one grid. After each of them the test knows all that there is to see and to hear:
//
//     step({2, 1}, L"2,1 / click -1>2");  // a click: the current cell, and what the dialog was told
//     step(L"x", L"2,1 [x]");             // typed: the text of the open cell, with "▼" while its choices are shown
//     step(VK_RETURN, L"3,1 / changed 2,1=x / moved 3,1");
#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <source_location>

#include "driver/GridDriver.h"
#include "entry/host/KrListControl.h"

using namespace kiro::drive;
namespace drive = kiro::drive;

class Grids : public testing::Test {
  protected:
    static constexpr int kList = 4029, kOther = 4060, kTemplate = 100;
    static constexpr UINT kRunMessage = WM_APP + 1;

    // The class editor: numbers, names that are typed, class numbers that are typed or chosen.
    void SetUpGrids() {
        table().InitList(dialog_, kList, 3, rows, limit, selection);
        table().SetExtendedStyle(33);
        table().SetColumn(0, "番号", 1);
        table().SetColumn(1, "レイヤ名", 6);
        table().SetColumn(2, "クラス番号", 3);
        table().SetEdit(1, 0, 24, "");
        table().SetEdit(2, 0, 4, "クラス番号を入力してください");
        KrTextList numbers;
        for (int i = 1; i <= 256; ++i) numbers.InsertAt(i - 1, std::to_string(i).c_str());
        table().SetCombo(2, 1, &numbers, "クラス番号を選択してください");
        table().SetAvailableFlag(-1, 0, 0);
        for (int row = 0; row < table().GetItemCount(); ++row) {
            table().SetItemText(row, 0, std::to_string(row + 1).c_str());
            table().SetItemText(row, 1, ("レイヤ" + std::to_string(row + 1)).c_str());
            table().SetItemText(row, 2, "1");
        }
        KrTextList kinds;
        for (const char* kind : {"横", "縦", "表示", "ソ連"}) kinds.InsertAt(kinds.GetCount(), kind);
        other().InitList(dialog_, kOther, 2, 10, 10, kKrSelectNone);
        other().SetExtendedStyle(33);
        other().SetColumn(0, "番号", 1);
        other().SetColumn(1, "方向", 2);
        other().SetCombo(1, 1, &kinds, "方向を選択してください");
        for (int row = 0; row < 10; ++row) other().SetItemText(row, 1, "横");
    }
    KrListControl& table() { return *tablePtr; }
    KrListControl& other() { return *otherPtr; }
    // What a dialog's handler does: on the dialog's thread.
    void OnUi(const std::function<void()>& work) {
        Send(dialog_, kRunMessage, 0, reinterpret_cast<LPARAM>(&work));
        Sync();
    }

    // ---- Steps ----

    struct Deed {
        Deed(int key) : act([=](const Grid&) { Key(static_cast<WORD>(key)); }) {}
        Deed(const wchar_t* keys) : act([=](const Grid& grid) { grid.Keys(keys); }) {}
        Deed(int row, int column) : act([=](const Grid& grid) { grid.Click(row, column); }) {}
        Deed(std::invocable auto other) : act([=](const Grid&) { other(); }) {}
        std::function<void(const Grid&)> act;
    };
    class Steps : public Grid {
      public:
        Steps(Grids& test, int list) : Grid(test.dialog_, list), test_(test) {}
        void operator()(const Deed& deed, const std::wstring& expected,
                        std::source_location at = std::source_location::current()) const {
            const testing::ScopedTrace trace(at.file_name(), static_cast<int>(at.line()), "the step");
            deed.act(*this);
            EXPECT_EQ(expected, test_.Seen(*this));
        }
        // An operation of the grid, on the dialog's thread.
        void Ui(const std::function<void()>& work, const std::wstring& expected,
                std::source_location at = std::source_location::current()) const {
            (*this)([&] { test_.OnUi(work); }, expected, at);
        }
        void Hover(int row, int column) const {
            const RECT cell = Area(row, column);
            POINT point{cell.left + 10, (cell.top + cell.bottom) / 2};
            ClientToScreen(List(), &point);
            MoveMouse(point);
        }

      private:
        Grids& test_;
    };
    // Opens the dialog for a user, who may leave it open.
    INT_PTR Run(const std::function<void(const Steps&)>& user) {
        const auto open = [&] {
            return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kTemplate), nullptr, &Grids::Procedure,
                                   reinterpret_cast<LPARAM>(this));
        };
        return Drive(open, [&] {
            Settle();
            user(Steps(*this, kList));
            if (Settle()) Click(dialog_, IDCANCEL);
        });
    }
    // CURRENT {MARKED ROWS} [OPEN CELL] GUIDANCE @FOCUS / EVENT / ... The guidance has a "!" when it is an error. Not
    // told is what goes without saying: the focus in the grid or its open cell, and one kKrListCurrentCell for a new
    // place.
    std::wstring Seen(const Grid& grid) {
        Sync();
        const GridPlace at = grid.Current();
        std::wstring seen = at.row < 0 ? L"-" : PlaceText(at.row, at.column);
        if (at.row >= 0 && !grid.IsSelected(at.row)) seen += L" not selected";
        if (selection != kKrSelectNone) OnUi([&] { seen += Marks(); });
        const HWND editor = grid.Editor(), focus = FocusWindow();
        if (editor) seen += L" [" + grid.Typed() + (grid.IsDropped() ? L"▼]" : L"]");
        if (const std::wstring line = Guidance(dialog_); !line.empty())
            seen += (IsGuidanceError(dialog_) ? L" !" : L" ") + line;
        if (editor ? focus != editor && !IsChild(editor, focus) : focus != grid.List())
            seen += L" @" + std::to_wstring(GetDlgCtrlID(focus));
        for (const std::wstring& event : std::exchange(events, {})) seen += L" / " + event;
        const std::wstring told = std::exchange(currents, {});
        const GridPlace before = std::exchange(last, at);
        if (GetDlgCtrlID(grid.List()) == kList && told != (at == before ? L"" : PlaceText(at.row, at.column) + L" "))
            seen += L" / current " + told;
        return seen;
    }
    static std::wstring PlaceText(int row, int column) { return std::to_wstring(row) + L"," + std::to_wstring(column); }
    std::wstring Marks() {
        std::wstring marks;
        for (int row = 0; row < table().GetItemCount(); ++row)
            if (table().GetSelectFlag(row)) marks += (marks.empty() ? L"" : L",") + std::to_wstring(row);
        return L" {" + marks + L"}";
    }
    static std::wstring TextOf(KrListControl& grid, int row, int column) {
        char text[100];
        wchar_t wide[100];
        grid.GetItemText(row, column, text, sizeof text);
        MultiByteToWideChar(932, 0, text, -1, wide, 100);
        return wide;
    }

    int rows = 30;
    int limit = 258;
    int selection = kKrSelectNone;
    KrUtilityPtr utility{KrCreateUtility()};
    KrListControlPtr tablePtr{KrCreateListControl(utility.get())};
    KrListControlPtr otherPtr{KrCreateListControl(utility.get())};
    HWND dialog_ = nullptr;
    std::vector<std::wstring> events;
    std::wstring currents;  // of the table: the cells that became current, such as "3,1 4,1 "
    GridPlace last;         // at the last step
    std::function<void()> onChange;

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* self = reinterpret_cast<Grids*>(GetWindowLongPtrW(window, DWLP_USER));
        return self ? self->Handle(window, message, wParam, lParam) : FALSE;
    }
    INT_PTR Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case WM_INITDIALOG:
                dialog_ = window;
                utility->SetParentWindow(window);
                utility->SetMessageZone();
                SetUpGrids();
                return TRUE;
            case WM_DRAWITEM:
                if (wParam == kList && !tablePtr) return FALSE;
                (wParam == kList ? table() : other()).OnDrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
                return TRUE;
            case WM_NOTIFY:
                Hear(*reinterpret_cast<const KrListNotify*>(lParam));
                return FALSE;
            case WM_CONTEXTMENU:
                events.push_back(lParam == -1 ? L"menu by key" : L"menu by mouse");
                return TRUE;
            case WM_COMMAND:
                if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) {
                    if (LOWORD(wParam) == IDOK && !table().EndEdit()) return TRUE;
                    EndDialog(window, LOWORD(wParam));
                }
                return TRUE;
            case kRunMessage:
                (*reinterpret_cast<const std::function<void()>*>(lParam))();
                return TRUE;
            default:
                return FALSE;
        }
    }
    void Hear(const KrListNotify& notice) {
        KrListControl* const grid = (notice.listId == kList ? tablePtr : otherPtr).get();
        if (!grid) return;
        const std::wstring place = PlaceText(notice.row, notice.column);
        if (notice.code == NM_CLICK || notice.code == NM_DBLCLK) {
            const int before = grid->GetSelectedItem();
            grid->ClickItem();
            events.push_back(L"click " + std::to_wstring(before) + L">" + std::to_wstring(grid->GetSelectedItem()));
        }
        if (notice.code == kKrListCurrentCell && grid == tablePtr.get()) currents += place + L" ";
        if (notice.code == kKrListCellMoved) events.push_back(L"moved " + place);
        if (notice.code == kKrListMarkChanged) events.push_back(L"mark " + place);
        if (notice.code != kKrListCellChanged) return;
        events.push_back(L"changed " + place + L"=" + TextOf(*grid, notice.row, notice.column));
        if (onChange) onChange();
    }
};
