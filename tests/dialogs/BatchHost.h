// What the tests of both batches share: what the host is asked for, names that are refused, the questions of a run.
#pragma once

#include "tests/dialogs/ImportHost.h"

class BatchHost : public ImportHost {
  protected:
    BatchHost() {
        KiroHostObserveCalls([](void* batch, const KiroHostCall* call) { static_cast<BatchHost*>(batch)->Note(call); },
                             this);
    }
    ~BatchHost() override { KiroHostObserveCalls(nullptr, nullptr); }

    // The run goes on while the user looks.
    static HWND Asked(HWND dialog) {
        kiro::drive::Until("a question of the run", [&] { return kiro::drive::Settle() != dialog; });
        return kiro::drive::Settle();
    }
    struct BadName {
        int row;
        const wchar_t* name;
        const wchar_t* message;
    };
    static void ExpectBadNames(HWND dialog, const kiro::drive::Grid& grid, int column, const wchar_t* caption,
                               std::initializer_list<BadName> names) {
        for (const auto& [row, name, message] : names) {
            const std::wstring before = grid.Cell(row, column);
            grid.Click(row, column);
            grid.Write(name);
            kiro::drive::Click(dialog, IDOK);
            Expect(caption, L"設定内容に誤りがあります。", MB_ICONERROR, IDOK);
            EXPECT_EQ(message, kiro::drive::Guidance(dialog));
            grid.Click(row, column);
            grid.Write(before);
        }
    }

    std::vector<std::string> calls;  // with their arguments; of those whose name begins so
    std::string_view noted = "";
    std::function<void()> onExport;

  private:
    void Note(const KiroHostCall* call) {
        const std::string_view name = call->name;
        if (!name.starts_with(noted)) return;
        std::string& text = calls.emplace_back(name);
        for (std::size_t i = 0; i < call->count; ++i) {
            const KiroHostValue& value = call->arguments[i];
            const bool isText = value.kind == kKiroHostText;
            text += " " + (isText ? static_cast<const char*>(value.pointer) : std::to_string(value.integer));
        }
        if (onExport && name == "DxfOutFloppy") onExport();
    }
};
