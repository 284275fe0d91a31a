// A dialog with two grids, for the tests of the grid itself. It does no more than the contract asks: forwards what is
// to be drawn and the clicks, and takes note of what it hears.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "driver/GridDriver.h"
#include "driver/Picture.h"
#include "entry/host/KrListControl.h"

using namespace kiro::drive;
namespace drive = kiro::drive;

class Grids : public testing::Test {
  protected:
    static constexpr int kList = 4029, kOther = 4060, kTemplate = 100;
    static constexpr UINT kRunMessage = WM_APP + 1;

    // The class editor: numbers, names that are typed, class numbers that are typed or chosen.
    virtual void SetUpGrids() {
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
    INT_PTR Run(const std::function<void(HWND)>& user) {
        return Drive([&] { return Open(); }, [&] { user(Settle()); });
    }
    INT_PTR Open() {
        return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kTemplate), nullptr, &Grids::Procedure,
                               reinterpret_cast<LPARAM>(this));
    }
    KrListControl& table() { return *tablePtr; }
    KrListControl& other() { return *otherPtr; }
    // What a dialog's handler does: on the dialog's thread.
    void OnUi(const std::function<void()>& work) {
        Send(dialog_, kRunMessage, 0, reinterpret_cast<LPARAM>(&work));
        Sync();
    }
    std::string Stored(int row, int column) {
        char text[100];
        OnUi([&] { table().GetItemText(row, column, text, sizeof text); });
        return text;
    }
    std::vector<std::string> TakeEvents() { return std::exchange(events, {}); }

    int rows = 30;
    int limit = 258;
    int selection = kKrSelectNone;
    KrUtilityPtr utility{KrCreateUtility()};
    KrListControlPtr tablePtr{KrCreateListControl(utility.get())};
    KrListControlPtr otherPtr{KrCreateListControl(utility.get())};
    HWND dialog_ = nullptr;
    std::vector<std::string> events;  // such as "changed 3,1"
    std::string currents;             // of the table: the cells that became current, such as "3,1 4,1 "
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
                events.push_back("menu " + std::to_string(table().GetSelectedItem()) +
                                 (lParam == -1 ? " key" : " mouse"));
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
        const std::string place = " " + std::to_string(notice.row) + "," + std::to_string(notice.column);
        if (notice.code == NM_CLICK || notice.code == NM_DBLCLK) {
            const int before = grid->GetSelectedItem();
            grid->ClickItem();
            events.push_back("click " + std::to_string(before) + ">" + std::to_string(grid->GetSelectedItem()));
        }
        if (notice.code == kKrListCurrentCell && grid == tablePtr.get()) currents += place.substr(1) + " ";
        if (notice.code == kKrListCellMoved) events.push_back("moved" + place);
        if (notice.code == kKrListMarkChanged) events.push_back("mark" + place);
        if (notice.code != kKrListCellChanged) return;
        events.push_back("changed" + place);
        if (onChange) onChange();
    }
};
