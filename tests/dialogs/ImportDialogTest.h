// The import dialog, run by a host and played by an operator.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "resources/dxfin/KrDxfIn.ids.h"
#include "tests/dialogs/TestHost.h"

class ImportDialog : public TestHost {
  protected:
    // Runs the command. The user gets the open dialog and closes it.
    int Run(const std::function<void(HWND dialog)>& user) {
        return kiro::drive::Drive([this] { return DxfInputDlg(&record.info); }, [&] { user(kiro::drive::Settle()); });
    }
    // The same, closed with "取消" at the end.
    void Look(const std::function<void(HWND dialog)>& user) {
        EXPECT_EQ(1, Run([&](HWND dialog) {
                      user(dialog);
                      kiro::drive::Click(dialog, IDCANCEL);
                  }));
    }
    void GiveName(HWND dialog, const std::wstring& name) {
        kiro::drive::Focus(dialog, kFileNameEdit);
        kiro::drive::Type(dialog, kFileNameEdit, name);
        kiro::drive::Focus(dialog, kSubModelEdit);
    }
    // A drawing in the DXF folder, chosen by its name alone.
    void GiveDrawing(HWND dialog) {
        Write(L"DXF\\図面.dxf", TextDxf("AC1015"));
        GiveName(dialog, L"図面.dxf");
    }
    // "処理開始" must be refused with this box and leave the focus there.
    void ExpectRefusal(HWND dialog, const std::wstring& text, int focus) {
        kiro::drive::Click(dialog, IDOK);
        const kiro::drive::Box box = kiro::drive::ReadBox();
        EXPECT_EQ(L"ＤＸＦ読込み", box.caption);
        EXPECT_EQ(text, box.text);
        EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
        EXPECT_EQ(std::vector<int>{IDOK}, box.buttons);
        kiro::drive::Answer(box, IDOK);
        EXPECT_EQ(dialog, kiro::drive::Settle()) << "closed after a refusal";
        EXPECT_EQ(focus, kiro::drive::FocusId());
    }
    std::wstring VersionOf(HWND dialog, const std::wstring& name) {
        GiveName(dialog, name);
        return kiro::drive::Text(dialog, kVersionText);
    }

    // The upper edge of the frame around the label.
    static RECT LabelFrame(HWND dialog) {
        RECT rect{};
        GetWindowRect(kiro::drive::Control(dialog, kFileNameLabel), &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        return {rect.left, rect.top - 4, rect.right, rect.top - 3};
    }
    // Whether a point of a control is painted in the colour.
    static bool HasColor(HWND dialog, int id, COLORREF color) {
        const HWND control = kiro::drive::Control(dialog, id);
        RECT rect{};
        GetWindowRect(control, &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        return HasColor(dialog, rect, color);
    }
    static bool HasColor(HWND window, const RECT& rect, COLORREF color) {
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC dc = GetDC(window);
        bool found = false;
        for (int y = rect.top; y < rect.bottom && !found; ++y) {
            for (int x = rect.left; x < rect.right && !found; ++x) found = GetPixel(dc, x, y) == color;
        }
        ReleaseDC(window, dc);
        return found;
    }

    // The first line of the one explanation that is open; empty while one goes and another comes.
    static std::wstring FirstLineOfPopup(HWND dialog) {
        try {
            const auto popups = kiro::drive::Popups(dialog);
            const auto lines = popups.size() == 1 ? kiro::drive::Lines(popups[0]) : std::vector<std::wstring>();
            return lines.empty() ? std::wstring() : lines[0];
        } catch (const kiro::drive::Failure&) {
            return {};
        }
    }

    ImportRecord record;
};
