// The grid as programs have it that read the screen aloud: screen_reader, another process, tells what it learns.
#include <oleacc.h>

#include "tests/dialogs/GridDialog.h"

namespace {

class Reader {
  public:
    Reader() {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        HANDLE questions = nullptr, answers = nullptr;
        CreatePipe(&questions, &questions_, &inherited, 0);
        CreatePipe(&answers_, &answers, &inherited, 0);
        SetHandleInformation(questions_, HANDLE_FLAG_INHERIT, 0);  // it ends when this end is closed
        wchar_t desktop[64] = L"", command[] = L"screen_reader.exe";
        GetUserObjectInformationW(PrivateDesktop(), UOI_NAME, desktop, sizeof desktop, nullptr);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.lpDesktop = desktop;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = questions;
        start.hStdOutput = answers;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(nullptr, command, nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process))
            throw Failure("the reader does not start");
        for (const HANDLE handle : {questions, answers, process.hThread}) CloseHandle(handle);
        process_ = process.hProcess;
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() {
        CloseHandle(questions_);
        WaitForSingleObject(process_, kPatience);
        for (const HANDLE handle : {answers_, process_}) CloseHandle(handle);
    }
    std::wstring Ask(const char* question, HWND window, LONG first = 0, LONG second = 0) const {
        const std::string line = std::string(question) + " " + std::to_string(reinterpret_cast<std::size_t>(window)) +
                                 " " + std::to_string(first) + " " + std::to_string(second) + "\n";
        DWORD size = 0;
        WriteFile(questions_, line.data(), static_cast<DWORD>(line.size()), &size, nullptr);
        std::wstring answer;
        while (!answer.ends_with(L'\n')) {
            Until("the reader answers",
                  [&] { return PeekNamedPipe(answers_, nullptr, 0, nullptr, &size, nullptr) && size > 0; });
            wchar_t part[200];
            ReadFile(answers_, part, sizeof part, &size, nullptr);
            answer.append(part, size / sizeof(wchar_t));
        }
        answer.pop_back();
        return answer;
    }
    LONG Number(const char* question, HWND window, LONG first = 0, LONG second = 0) const {
        return std::stol(Ask(question, window, first, second));
    }
    std::wstring Name(HWND window, LONG child = CHILDID_SELF) const {
        const std::wstring all = Ask("tell", window, child);
        return all.substr(0, all.find(L'|'));
    }

  private:
    HANDLE questions_ = nullptr, answers_ = nullptr, process_ = nullptr;
};

}  // namespace

TEST_F(Grids, ReadersLearnTheCellsAndTheirNames) {
    selection = kKrSelectMultiple;
    Run([&](const Steps& grid) {
        const HWND list = grid.List();
        const Reader reader;
        OnUi([&] {
            table().SetErrorFlag(2, 1, 1);
            table().SetSelectFlag(2, 1);
        });
        EXPECT_EQ(0u, reader.Ask("tell", list).find(Text(dialog_) + L"|||24|"));
        EXPECT_EQ(30, reader.Number("count", list));
        EXPECT_EQ(L"(error)", reader.Name(list, 31));
        EXPECT_EQ(CHILDID_SELF, reader.Number("focus", list));
        grid.Click(2, 1);
        const LONG cell = reader.Number("focus", list);
        const LONG number = reader.Number("go", list, 3, NAVDIR_FIRSTCHILD);
        const std::pair<LONG, const wchar_t*> all[] = {
            {cell, L"レイヤ名 3行目|レイヤ3|誤りがあります|29|focused selected marked "},
            {number, L"番号 3行目|3||29|fixed marked "},
            {3, L"番号 3、レイヤ名 レイヤ3、クラス番号 1|||28|selected marked "},
            {30, L"番号 30、レイヤ名 レイヤ30、クラス番号 1|||28|outside "},
        };
        for (const auto& [child, told] : all) EXPECT_EQ(told, reader.Ask("tell", list, child));
        EXPECT_EQ(cell, reader.Number("go", list, number, NAVDIR_RIGHT));
        EXPECT_EQ(-1, reader.Number("go", list, number, NAVDIR_LEFT));
        EXPECT_EQ(-1, reader.Number("go", list, 30, NAVDIR_DOWN));
        RECT area = grid.Area(2, 1);
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
        std::wstring place;
        for (const LONG edge : {area.left, area.top, area.right, area.bottom}) place += std::to_wstring(edge) + L" ";
        EXPECT_EQ(place, reader.Ask("area", list, cell));
        EXPECT_EQ(cell, reader.Number("at", list, area.left + 3, area.top + 3));
        EXPECT_EQ(S_OK, reader.Number("choose", list, number));
        EXPECT_EQ((GridPlace{2, 0}), grid.Current());
        OnUi([&] { tablePtr.reset(); });
        EXPECT_EQ(L"(error)", reader.Name(list)) << "the grid has gone";
    });
}

TEST_F(Grids, ReadersHearWhereTheUserIs) {
    Run([&](const Steps& grid) {
        const Reader reader;
        grid.Click(2, 1);
        const auto hears = [&](DWORD event, const wchar_t* name, const std::function<void()>& act) {
            act();
            OnUi([&] { NotifyWinEvent(EVENT_OBJECT_HELPCHANGE, dialog_, OBJID_WINDOW, CHILDID_SELF); });
            const LONG child = reader.Number("heard", grid.List(), static_cast<LONG>(event));
            EXPECT_EQ(name, reader.Name(grid.List(), child));
        };
        EXPECT_EQ(1, reader.Number("listen", dialog_));
        hears(EVENT_OBJECT_FOCUS, L"クラス番号 3行目", [] { Key(VK_RIGHT); });  // within a row
        hears(EVENT_OBJECT_FOCUS, L"クラス番号 4行目", [] { Key(VK_DOWN); });
        hears(EVENT_OBJECT_VALUECHANGE, L"クラス番号 4行目", [&] { grid.Write(L"7"); });
        Focus(dialog_, IDOK);
        hears(EVENT_OBJECT_FOCUS, L"クラス番号 5行目", [&] { Focus(dialog_, kList); });
        // The windows of the open cells, one for each way to edit; what is known of one stays right.
        const auto editing = [&](const wchar_t* name, WORD key) {
            Key(key);
            EXPECT_EQ(name, reader.Name(FocusWindow()));
        };
        editing(L"クラス番号 5行目", VK_F2);
        editing(L"レイヤ名 6行目", VK_TAB);
        editing(L"クラス番号 6行目", VK_TAB);
        Key(VK_ESCAPE);
        Grid(dialog_, kOther).Click(4, 1);
        editing(L"方向 5行目", VK_F2);
        Key(VK_ESCAPE);
    });
}
