// A program like those that read the screen aloud: another process, which asks windows what they tell of themselves and
// hears their events. Each line of its input is a question, answered by a line of UTF-16:
//
//     tell WINDOW CHILD        name|value|description|role|states of the child
//     go WINDOW CHILD WHERE    the child that lies there (NAVDIR_...); -1: none
//     at WINDOW X Y            the child at that place of the screen
//     area WINDOW CHILD        left top right bottom, on the screen
//     choose WINDOW CHILD      the result of giving it the focus
//     count WINDOW             how many children there are
//     focus WINDOW             the one with the focus
//     listen WINDOW            hears the events of its process from now on
//     heard WINDOW EVENT       the child of its last such event since the question before; -1: there was none
//
// What it was given for a window it keeps and asks ever after. "heard" waits for an EVENT_OBJECT_HELPCHANGE, by which
// who asks says that this was all.
#include <windows.h>

#include <oleacc.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

constexpr UINT kPatience = 10000;  // ms
constexpr UINT kHeardAll = WM_APP;
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

std::wstring Number(HRESULT result, const VARIANT& number) {
    return std::to_wstring(result == S_OK && number.vt == VT_I4 ? number.lVal : -1);
}

std::wstring Tell(IAccessible& object, LONG child) {
    std::wstring all;
    for (const auto question :
         {&IAccessible::get_accName, &IAccessible::get_accValue, &IAccessible::get_accDescription}) {
        BSTR text = nullptr;
        all += FAILED((object.*question)(Child(child), &text)) ? L"(error)" : text ? text : L"";
        all += L'|';
        SysFreeString(text);
    }
    VARIANT role{}, states{};
    all += Number(object.get_accRole(Child(child), &role), role) + L'|';
    object.get_accState(Child(child), &states);
    for (const auto& [state, name] : kStates)
        if (states.lVal & state) all += std::wstring(name) + L' ';
    return all;
}

std::wstring Area(IAccessible& object, LONG child) {
    LONG left = 0, top = 0, width = 0, height = 0;
    object.accLocation(&left, &top, &width, &height, Child(child));
    std::wstring place;
    for (const LONG edge : {left, top, left + width, top + height}) place += std::to_wstring(edge) + L' ';
    return place;
}

// ---- Events ----

std::map<std::pair<HWND, DWORD>, LONG> lastChildren;

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG child, DWORD, DWORD) {
    lastChildren[{window, event}] = child;
    if (event == EVENT_OBJECT_HELPCHANGE) PostMessageW(nullptr, kHeardAll, 0, 0);  // to this thread
}

bool Listen(HWND window) {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the thread's queue, for the events
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_HELPCHANGE, nullptr, Hear, process, 0,
                           WINEVENT_OUTOFCONTEXT);
}

LONG Heard(HWND window, DWORD event) {
    const UINT_PTR timer = SetTimer(nullptr, 0, kPatience, nullptr);
    for (MSG message{}; message.message != kHeardAll && message.message != WM_TIMER;)
        GetMessageW(&message, nullptr, 0, 0);  // hears the events meanwhile
    KillTimer(nullptr, timer);
    const auto found = lastChildren.find({window, event});
    const LONG child = found == lastChildren.end() ? -1 : found->second;
    lastChildren.clear();
    return child;
}

// ---- Questions ----

std::wstring Answer(const std::string& question, HWND window, LONG first, LONG second) {
    static std::map<HWND, IAccessible*> objects;
    if (question == "listen") return std::to_wstring(Listen(window));
    if (question == "heard") return std::to_wstring(Heard(window, static_cast<DWORD>(first)));
    IAccessible*& object = objects[window];
    if (!object)
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   reinterpret_cast<void**>(&object));
    if (!object) return L"the window tells nothing";
    VARIANT answer{};
    if (question == "tell") return Tell(*object, first);
    if (question == "area") return Area(*object, first);
    if (question == "choose") return std::to_wstring(object->accSelect(SELFLAG_TAKEFOCUS, Child(first)));
    if (question == "go") return Number(object->accNavigate(second, Child(first), &answer), answer);
    if (question == "at") return Number(object->accHitTest(first, second, &answer), answer);
    if (question == "focus") return Number(object->get_accFocus(&answer), answer);
    LONG count = -1;
    object->get_accChildCount(&count);
    return std::to_wstring(count);
}

}  // namespace

int main() {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    _setmode(_fileno(stdout), _O_BINARY);
    char question[20];
    unsigned long long window = 0;
    long first = 0, second = 0;
    while (std::scanf("%19s %llu %ld %ld", question, &window, &first, &second) == 4) {
        const std::wstring line = Answer(question, reinterpret_cast<HWND>(window), first, second) + L'\n';
        std::fwrite(line.data(), sizeof(wchar_t), line.size(), stdout);
        std::fflush(stdout);
    }
}
