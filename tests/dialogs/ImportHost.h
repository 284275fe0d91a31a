// What all tests of an import share: its record, the tables' files, the chooser and the boxes.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "tests/dialogs/TestHost.h"

inline constexpr wchar_t kTables[] = L"DXF\\TABLE\\";
inline constexpr wchar_t kLayerFile[] = L"DXFKIRO_LAYER";
inline constexpr wchar_t kSaveQuestion[] = L"変更内容を保存しますか？";
inline constexpr int kChooserName = 0x47C;  // the system chooser's file-name combo

class ImportHost : public TestHost {
  protected:
    std::filesystem::path TableFile(const std::wstring& name) const { return home / (kTables + name); }
    std::filesystem::path WriteTable(const std::wstring& name, const std::string& bytes) const {
        return Write(kTables + name, bytes);
    }
    std::string Bytes(const std::wstring& name) const {
        std::ifstream in(TableFile(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    // Names a file in the chooser that the button opens.
    static void Choose(HWND dialog, int button, const std::wstring& name) {
        using namespace kiro::drive;
        Click(dialog, button);
        const HWND chooser = Settle();
        SendMessageW(Control(chooser, kChooserName), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
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

    ImportRecord record;
};
