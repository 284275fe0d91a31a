// What the tests of all commands with a file share: what a user does in their dialogs, the chooser and the boxes.
#pragma once

#include "driver/GridDriver.h"
#include "tests/dialogs/TestHost.h"

class CommandHost : public TestHost {
  protected:
    using User = std::function<void(HWND dialog)>;

    // The user gets the command's dialog, which is cancelled when he has left it open.
    static void Use(const User& user) {
        const HWND dialog = kiro::drive::Settle();
        user(dialog);
        const HWND open = kiro::drive::Settle();
        if (!open) return;
        EXPECT_EQ(dialog, open) << "something is left open";
        kiro::drive::Click(open, IDCANCEL);
    }
    // A dialog of the library, opened without the windows that a user comes through.
    template <class Dialog>
    INT_PTR Play(Dialog& dialog, const User& user) {
        const LibraryResources resources;
        return kiro::drive::Drive([&] { return dialog.DoModal(owner); }, [&] { Use(user); });
    }
    // Types the texts; clicks where there is none.
    static void Play(HWND dialog, std::initializer_list<std::pair<int, const wchar_t*>> steps) {
        for (const auto& [id, text] : steps)
            text ? kiro::drive::Type(dialog, id, text) : kiro::drive::Click(dialog, id);
    }
    // Names a file in the chooser that the button opens.
    static void Choose(HWND dialog, int button, const std::wstring& name) {
        using namespace kiro::drive;
        Click(dialog, button);
        const HWND chooser = Settle();
        SendMessageW(Control(chooser, kChooserField), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
        Click(chooser, IDOK);
    }
    static void Expect(const std::wstring& caption, const std::wstring& text, UINT icon, int answer) {
        const kiro::drive::Box box = kiro::drive::ReadBox();
        EXPECT_EQ(caption, box.caption);
        EXPECT_EQ(text, box.text);
        EXPECT_EQ(icon, box.icon);
        EXPECT_EQ(answer == IDOK ? std::vector<int>{IDOK} : (std::vector<int>{IDYES, IDNO}), box.buttons);
        kiro::drive::Answer(box, answer);
    }
    static void ExpectEnabled(HWND dialog, const std::vector<std::pair<int, bool>>& rows) {
        for (const auto& [id, on] : rows) EXPECT_EQ(on, kiro::drive::IsEnabled(dialog, id)) << id;
    }
    // The button must be refused with a box that says this and leave the focus there.
    static void ExpectRefusal(HWND dialog, const std::wstring& text, int focus, const wchar_t* caption,
                              int button = IDOK) {
        using namespace kiro::drive;
        Click(dialog, button);
        const Box box = ReadBox();
        EXPECT_EQ(caption, box.caption);
        EXPECT_NE(std::wstring::npos, box.text.find(text)) << testing::PrintToString(text);
        EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
        Answer(box, IDOK);
        EXPECT_EQ(dialog, Settle()) << "closed after a refusal";
        EXPECT_EQ(focus, FocusId());
    }
    static bool IsMarked(const kiro::drive::Grid& grid, kiro::drive::GridPlace cell) {
        return grid.Pixel(cell.row, cell.column, 4, 4) == RGB(0xFF, 0xE0, 0xE0);
    }
    // Where a control or a popup is, in the dialog.
    static RECT Area(HWND dialog, HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    static RECT Area(HWND dialog, int id) { return Area(dialog, kiro::drive::Control(dialog, id)); }
};
