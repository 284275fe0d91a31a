// A host with drawings of both databases: in files, on a floppy and on a drive, and with models.
#pragma once

#include "Calls.h"
#include "catalogue/PelionDrive.h"
#include "resources/grid.ids.h"
#include "resources/peliondb/KrPlInDrive.ids.h"
#include "tests/dialogs/CommandHost.h"
#include "ui/Text.h"

class DatabaseHost : public CommandHost {
  protected:
    using Json = kiro::Json;

    DatabaseHost() {
        Write(L"TARNA\\DOS\\図ソ.dos", Utf8(u8"KIRO PELION 1\n表\nABC-1\n"));
        Write(L"TARNA\\DB\\PELION.DB", Utf8(u8"\uFEFFKIRO PELION 1\r\n配管図\r\n"));
        Write(L"TARNA\\DB_R\\plant.vdb", Utf8(u8"KIRO VAROS 1\n架台\nFRAME-A"));
        Write(L"FLOPPY_WIN\\PELION\\設計\\QA\\D ソ", "");
        for (const wchar_t* model : {L"PUMP-b", L"pump-A", L"表題", L"frame"})
            Write(L"MODEL\\" + std::wstring(model) + L".json", "{}");
    }
    static std::string Utf8(const char8_t* text) { return reinterpret_cast<const char*>(text); }
    static Json Parsed(const char8_t* text) { return Json::parse(Utf8(text)); }

    // Calls the command over a record that is cleared but for these members. The user gets its dialog, and what it
    // returned and left is in result and record.
    int Run(const char* command, const Json& members, const User& user) {
        result = kiro::drive::Drive(
            [&] {
                return CallExport(*kiro::FindExport(command), {{"record", members}}).json;
            },
            [&] { Use(user); });
        record = result["record"];
        return result["returned"];
    }
    // The named members of the record are these.
    void ExpectRecord(const char8_t* members) const {
        const Json expected = Parsed(members);
        for (const auto& [name, value] : expected.items()) EXPECT_EQ(value, record[name]) << name;
    }
    std::string Journal() const {  // what the host was told, but for the floppy's being looked at
        std::string told;
        for (const Json& call : result["calls"])
            if (call["name"] != "GetPlFloppy") told += call["arguments"].dump();
        return told;
    }
    std::string HomePath(const std::string& name) const {  // UTF-8, with "/"
        return kiro::Utf8FromWide(home.generic_wstring()) + "/" + name;
    }

    static void ExpectAll(HWND dialog, bool enabled, std::initializer_list<int> ids) {
        for (const int id : ids) EXPECT_EQ(enabled, kiro::drive::IsEnabled(dialog, id)) << id;
    }
    // Marks the first rows of a list and confirms it.
    static void Mark(HWND dialog, int rows) {
        const kiro::drive::Grid grid(dialog, kGrid);
        for (int row = 0; row < rows; ++row) grid.Click(row, 0);
        kiro::drive::Click(dialog, IDOK);
    }
    // Chooses the first name of each list.
    static void ChooseNames(HWND dialog, int button) {
        for (const int list : {kPlFirstList, kPlSecondList, kPlThirdList})
            if (GetDlgItem(dialog, list)) kiro::drive::Grid(dialog, list).Click(0, 0);
        kiro::drive::Click(dialog, button);
    }
    // Refused with what the guidance line says, also after the box.
    static void ExpectFault(HWND dialog, const std::wstring& text, int focus, UINT icon) {
        kiro::drive::Click(dialog, IDOK);
        ExpectFaultTold(dialog, text, focus, icon);
    }
    static void ExpectFaultTold(HWND dialog, const std::wstring& text, int focus, UINT icon) {
        using namespace kiro::drive;
        const Box box = ReadBox();
        EXPECT_EQ(L"設定内容に誤りがあります。", box.text);
        EXPECT_EQ(icon, box.icon);
        EXPECT_EQ(text, Guidance(dialog));
        Answer(box, IDOK);
        ASSERT_EQ(dialog, Settle());
        EXPECT_EQ(text, Guidance(dialog));
        EXPECT_EQ(icon == MB_ICONERROR, IsGuidanceError(dialog));
        EXPECT_EQ(focus, FocusId()) << testing::PrintToString(text);
    }

    Json result, record;
};
