// The import dialog, run by a host and played by an operator.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "resources/dxfin/KrDxfIn.ids.h"
#include "tests/dialogs/ImportHost.h"

class ImportDialog : public ImportHost {
  protected:
    // Runs the command. The user gets the open dialog and closes it.
    int Run(const User& user) {
        return kiro::drive::Drive([this] { return DxfInputDlg(&record.info); }, [&] { user(kiro::drive::Settle()); });
    }
    // The same, closed with this button at the end.
    int RunTo(int button, const User& user) {
        return Run([&](HWND dialog) {
            user(dialog);
            kiro::drive::Click(dialog, button);
        });
    }
    void Look(const User& user) { EXPECT_EQ(1, RunTo(IDCANCEL, user)); }
    void Confirm(const User& user) { EXPECT_EQ(0, RunTo(IDOK, user)); }
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
};
