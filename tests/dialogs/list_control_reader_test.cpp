// The grid as programs have it that read the screen aloud: another thread asks it through the system, and hears its
// events.
#include <oleacc.h>

#include <map>

#include "tests/dialogs/GridDialog.h"

namespace {

constexpr std::pair<LONG, const wchar_t*> kStates[] = {{STATE_SYSTEM_FOCUSED, L"focused"},
                                                       {STATE_SYSTEM_SELECTED, L"selected"},
                                                       {STATE_SYSTEM_READONLY, L"fixed"},
                                                       {STATE_SYSTEM_CHECKED, L"marked"},
                                                       {STATE_SYSTEM_OFFSCREEN, L"outside"}};

VARIANT Child(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

// -1: there is none.
LONG Number(HRESULT result, const VARIANT& number) { return result == S_OK && number.vt == VT_I4 ? number.lVal : -1; }

// What a window gives the first time is kept and asked ever after.
class Reader {
  public:
    explicit Reader(HWND window) {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   reinterpret_cast<void**>(&object));
        if (!object) throw Failure("the window tells nothing");
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() {
        object->Release();
        CoUninitialize();
    }
    std::wstring Name(LONG child = CHILDID_SELF) const { return Text(&IAccessible::get_accName, child); }
    // NAME|VALUE|DESCRIPTION|ROLE|STATES
    std::wstring Tell(LONG child) const {
        std::wstring all;
        for (const auto question :
             {&IAccessible::get_accName, &IAccessible::get_accValue, &IAccessible::get_accDescription})
            all += Text(question, child) + L'|';
        VARIANT role{}, states{};
        all += std::to_wstring(Number(object->get_accRole(Child(child), &role), role)) + L'|';
        object->get_accState(Child(child), &states);
        for (const auto& [state, name] : kStates)
            if (states.lVal & state) all += std::wstring(name) + L' ';
        return all;
    }
    RECT Area(LONG child) const {
        RECT area{};
        LONG width = 0, height = 0;
        object->accLocation(&area.left, &area.top, &width, &height, Child(child));
        area.right = area.left + width, area.bottom = area.top + height;
        return area;
    }
    LONG Focused() const {
        VARIANT child{};
        return Number(object->get_accFocus(&child), child);
    }
    LONG From(LONG child, LONG where) const {
        VARIANT there{};
        return Number(object->accNavigate(where, Child(child), &there), there);
    }

    IAccessible* object = nullptr;

  private:
    std::wstring Text(HRESULT (STDMETHODCALLTYPE IAccessible::*question)(VARIANT, BSTR*), LONG child) const {
        BSTR text = nullptr;
        if (FAILED((object->*question)(Child(child), &text))) return L"(error)";
        const std::wstring all = text ? text : L"";
        SysFreeString(text);
        return all;
    }
};

// Events of this program since the last question: the last child of each.
std::map<std::pair<HWND, DWORD>, LONG> heard;

void CALLBACK OnEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG child, DWORD, DWORD) {
    heard[{window, event}] = child;
}

}  // namespace

TEST_F(Grids, ReadersLearnTheCellsAndTheirNames) {
    selection = kKrSelectMultiple;
    Run([&](const Steps& grid) {
        const HWND list = grid.List();
        const Reader reader(list);
        OnUi([&] {
            table().SetErrorFlag(2, 1, 1);
            table().SetSelectFlag(2, 1);
        });
        EXPECT_EQ(0u, reader.Tell(CHILDID_SELF).find(Text(dialog_) + L"|||24|"));
        LONG count = 0;
        reader.object->get_accChildCount(&count);
        EXPECT_EQ(30, count);
        EXPECT_EQ(L"(error)", reader.Name(31));
        EXPECT_EQ(CHILDID_SELF, reader.Focused());
        grid.Click(2, 1);
        const LONG cell = reader.Focused(), number = reader.From(3, NAVDIR_FIRSTCHILD);
        const std::pair<LONG, const wchar_t*> all[] = {
            {cell, L"レイヤ名 3行目|レイヤ3|誤りがあります|29|focused selected marked "},
            {number, L"番号 3行目|3||29|fixed marked "},
            {3, L"番号 3、レイヤ名 レイヤ3、クラス番号 1|||28|selected marked "},
            {30, L"番号 30、レイヤ名 レイヤ30、クラス番号 1|||28|outside "},
        };
        for (const auto& [child, told] : all) EXPECT_EQ(told, reader.Tell(child));
        EXPECT_EQ(cell, reader.From(number, NAVDIR_RIGHT));
        EXPECT_EQ(-1, reader.From(number, NAVDIR_LEFT));
        EXPECT_EQ(-1, reader.From(30, NAVDIR_DOWN));
        RECT area = grid.Area(2, 1);
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
        const RECT told = reader.Area(cell);
        EXPECT_TRUE(EqualRect(&area, &told));
        VARIANT hit{};
        EXPECT_EQ(cell, Number(reader.object->accHitTest(area.left + 3, area.top + 3, &hit), hit));
        EXPECT_EQ(S_OK, reader.object->accSelect(SELFLAG_TAKEFOCUS, Child(number)));
        EXPECT_EQ((GridPlace{2, 0}), grid.Current());
        OnUi([&] { tablePtr.reset(); });
        EXPECT_EQ(L"(error)", reader.Name()) << "the grid has gone";
    });
}

TEST_F(Grids, ReadersHearWhereTheUserIs) {
    Run([&](const Steps& grid) {
        const Reader reader(grid.List());
        grid.Click(2, 1);
        const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_HELPCHANGE, nullptr, OnEvent,
                                                   GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
        const auto hears = [&](DWORD event, const wchar_t* name, const std::function<void()>& act) {
            heard.clear();
            act();
            OnUi(
                [&] { NotifyWinEvent(EVENT_OBJECT_HELPCHANGE, dialog_, OBJID_WINDOW, CHILDID_SELF); });  // the last one
            Until("all events", [&] {
                for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) continue;  // brings them
                return heard.contains({dialog_, EVENT_OBJECT_HELPCHANGE});
            });
            EXPECT_EQ(name, reader.Name(heard[{grid.List(), event}]));
        };
        hears(EVENT_OBJECT_FOCUS, L"クラス番号 3行目", [] { Key(VK_RIGHT); });  // within a row
        hears(EVENT_OBJECT_FOCUS, L"クラス番号 4行目", [] { Key(VK_DOWN); });
        hears(EVENT_OBJECT_VALUECHANGE, L"クラス番号 4行目", [&] { grid.Write(L"7"); });
        Focus(dialog_, IDOK);
        hears(EVENT_OBJECT_FOCUS, L"クラス番号 5行目", [&] { Focus(dialog_, kList); });
        UnhookWinEvent(hook);
        // The windows of the open cells, one for each way to edit; what is known of one stays right.
        std::map<HWND, std::unique_ptr<Reader>> readers;
        const auto editing = [&](const wchar_t* name, WORD key) {
            Key(key);
            auto& of = readers[FocusWindow()];
            if (!of) of = std::make_unique<Reader>(FocusWindow());
            EXPECT_EQ(name, of->Name());
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
