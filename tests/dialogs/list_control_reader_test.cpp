// The grid as programs have it that read the screen aloud: a second thread asks as such a program does, through COM.
#include <oleacc.h>

#include <memory>

#include "tests/dialogs/GridDialog.h"

namespace {

// What a client learns of a window and of its children.
class Reader {
  public:
    explicit Reader(HWND window) {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        void* object = nullptr;
        const HRESULT result =
            AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object);
        if (FAILED(result)) throw Failure("the window tells nothing");
        object_ = static_cast<IAccessible*>(object);
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() {
        object_->Release();
        CoUninitialize();
    }
    std::wstring Name(LONG child) const { return Ask(&IAccessible::get_accName, child); }
    std::wstring Value(LONG child) const { return Ask(&IAccessible::get_accValue, child); }
    std::wstring Description(LONG child) const { return Ask(&IAccessible::get_accDescription, child); }
    LONG State(LONG child) const { return Number(&IAccessible::get_accState, child); }
    LONG Role(LONG child) const { return Number(&IAccessible::get_accRole, child); }
    LONG Children() const {
        LONG count = -1;
        object_->get_accChildCount(&count);
        return count;
    }
    LONG Focus() const {  // -1: none, or a window of its own
        VARIANT child{};
        return SUCCEEDED(object_->get_accFocus(&child)) && child.vt == VT_I4 ? child.lVal : -1;
    }
    LONG Go(LONG from, LONG direction) const {  // -1: there is nothing
        VARIANT child{};
        return object_->accNavigate(direction, Child(from), &child) == S_OK && child.vt == VT_I4 ? child.lVal : -1;
    }
    LONG At(POINT point) const {
        VARIANT child{};
        return object_->accHitTest(point.x, point.y, &child) == S_OK && child.vt == VT_I4 ? child.lVal : -1;
    }
    RECT Area(LONG child) const {
        LONG left = 0, top = 0, width = 0, height = 0;
        object_->accLocation(&left, &top, &width, &height, Child(child));
        return {left, top, left + width, top + height};
    }
    HRESULT Choose(LONG child) const { return object_->accSelect(SELFLAG_TAKEFOCUS, Child(child)); }

  private:
    static VARIANT Child(LONG child) {
        VARIANT of{};
        of.vt = VT_I4;
        of.lVal = child;
        return of;
    }
    std::wstring Ask(HRESULT (STDMETHODCALLTYPE IAccessible::*question)(VARIANT, BSTR*), LONG child) const {
        BSTR text = nullptr;
        const HRESULT result = (object_->*question)(Child(child), &text);
        std::wstring answer = FAILED(result) ? L"(error)" : text ? text : L"";
        SysFreeString(text);
        return answer;
    }
    LONG Number(HRESULT (STDMETHODCALLTYPE IAccessible::*question)(VARIANT, VARIANT*), LONG child) const {
        VARIANT answer{};
        return SUCCEEDED((object_->*question)(Child(child), &answer)) && answer.vt == VT_I4 ? answer.lVal : -1;
    }

    IAccessible* object_;
};

// The children of a list view that it is told of, as the system hands it to other programs.
struct Heard {
    static inline std::vector<LONG> focused;
    static inline std::vector<LONG> changed;
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG child, DWORD, DWORD) {
        if (GetDlgCtrlID(window) != 4029) return;
        if (event == EVENT_OBJECT_FOCUS) focused.push_back(child);
        if (event == EVENT_OBJECT_VALUECHANGE) changed.push_back(child);
    }
};

}  // namespace

TEST_F(Grids, ReadersLearnTheCellsAndTheirNames) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const Reader reader(grid.List());
        EXPECT_EQ(Text(dialog), reader.Name(CHILDID_SELF));
        EXPECT_EQ(ROLE_SYSTEM_TABLE, reader.Role(CHILDID_SELF));
        EXPECT_EQ(30, reader.Children());
        EXPECT_EQ(L"番号 3、レイヤ名 レイヤ3、クラス番号 1", reader.Name(3));
        EXPECT_EQ(ROLE_SYSTEM_ROW, reader.Role(3));
        EXPECT_EQ(L"(error)", reader.Name(31));
        OnUi([&] { table().SetErrorFlag(2, 1, 1); });
        grid.Click(2, 1);
        const LONG cell = reader.Focus();
        EXPECT_EQ(L"レイヤ名 3行目", reader.Name(cell));
        EXPECT_EQ(L"レイヤ3", reader.Value(cell));
        EXPECT_EQ(L"誤りがあります", reader.Description(cell));
        EXPECT_EQ(ROLE_SYSTEM_CELL, reader.Role(cell));
        EXPECT_EQ(STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTED,
                  reader.State(cell) & (STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTED | STATE_SYSTEM_READONLY));
        const LONG number = reader.Go(3, NAVDIR_FIRSTCHILD);
        EXPECT_EQ(L"番号 3行目", reader.Name(number));
        EXPECT_NE(0, reader.State(number) & STATE_SYSTEM_READONLY);
        EXPECT_EQ(cell, reader.Go(number, NAVDIR_RIGHT));
        EXPECT_EQ(-1, reader.Go(number, NAVDIR_LEFT));
        EXPECT_EQ(-1, reader.Go(30, NAVDIR_DOWN));
        RECT area = grid.Area(2, 1);
        MapWindowPoints(grid.List(), nullptr, reinterpret_cast<POINT*>(&area), 2);
        const RECT told = reader.Area(cell);
        EXPECT_TRUE(EqualRect(&area, &told));
        EXPECT_EQ(cell, reader.At({area.left + 3, area.top + 3}));
        EXPECT_EQ(S_OK, reader.Choose(number));
        EXPECT_EQ((GridPlace{2, 0}), grid.Current());
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, ReadersLearnWhichCellIsEdited) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const Grid choices(dialog, kOther);
        grid.Click(2, 1);
        Key(VK_F2);
        EXPECT_EQ(L"レイヤ名 3行目", Reader(FocusWindow()).Name(CHILDID_SELF));
        const Reader later(FocusWindow());
        Key(VK_TAB);  // another window
        EXPECT_EQ(L"クラス番号 3行目", Reader(FocusWindow()).Name(CHILDID_SELF));
        Key(VK_TAB);  // the first one again, which is known already
        EXPECT_EQ(L"レイヤ名 4行目", later.Name(CHILDID_SELF));
        Key(VK_ESCAPE);
        choices.Click(4, 1);
        Key(VK_F2);
        EXPECT_EQ(L"方向 5行目", Reader(FocusWindow()).Name(CHILDID_SELF));
        Key(VK_ESCAPE);
        const Reader last(grid.List());
        OnUi([&] { tablePtr.reset(); });
        EXPECT_EQ(L"(error)", last.Name(CHILDID_SELF)) << "the grid has gone";
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, ReadersHearWhereTheCurrentCellGoes) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const Reader reader(grid.List());
        HWINEVENTHOOK hook = nullptr;
        grid.Click(2, 1);
        OnUi([&] {
            hook = SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, nullptr, &Heard::Hear,
                                   GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
        });
        const auto hears = [&](std::vector<LONG>& heard, const wchar_t* name, const std::function<void()>& act) {
            heard.clear();
            act();
            Until("the event", [&] { return Sync() && !heard.empty(); });
            EXPECT_EQ(name, reader.Name(heard.back()));
        };
        hears(Heard::focused, L"クラス番号 3行目", [] { Key(VK_RIGHT); });  // within a row
        hears(Heard::focused, L"クラス番号 4行目", [] { Key(VK_DOWN); });
        hears(Heard::changed, L"クラス番号 4行目", [&] { grid.Write(L"7"); });
        Focus(dialog, IDOK);
        hears(Heard::focused, L"クラス番号 5行目", [&] { Focus(dialog, kList); });
        OnUi([&] { UnhookWinEvent(hook); });
        Click(dialog, IDCANCEL);
    });
}
