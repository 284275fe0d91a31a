#include "Workbench.h"

#include <iterator>
#include <string>

#include "CallWatch.h"
#include "hostlayer/include/KiroHost.h"

namespace kiro {
namespace {

constexpr wchar_t kClass[] = L"KiroWorkbench";
constexpr wchar_t kTitle[] = L"kirovanteo ワークベンチ";
constexpr int kFirstCommand = 1000;
constexpr int kCallAgain = 100;
constexpr int kQuit = 101;
constexpr int kMessagesHeight = 140;
constexpr int kCaptionHeight = 18;
constexpr int kGap = 4;
constexpr wchar_t kChanged[] = L"● ";
constexpr wchar_t kUnchanged[] = L"　 ";

constexpr const wchar_t* kCaptions[] = {L"呼出し前のレコード（編集できます）",
                                        L"呼出し後のレコード（● は変わった項目）", L"呼出し中の表示"};

HMENU MakeMenu() {
    const HMENU commands = CreatePopupMenu();
    UINT_PTR id = kFirstCommand;
    for (const Export& command : Exports())
        AppendMenuW(commands, MF_STRING, id++, (command.title + (L"\t" + WideFromUtf8(command.name))).c_str());
    const HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, kCallAgain, L"もう一度呼び出す(&A)");
    AppendMenuW(file, MF_STRING, kQuit, L"終了(&X)");
    const HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"ファイル(&F)");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(commands), L"コマンド(&C)");
    return bar;
}

std::wstring Text(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// Edit controls want CR LF.
std::wstring ForEdit(const std::string& utf8) {
    std::wstring text;
    for (const wchar_t unit : WideFromUtf8(utf8)) text += unit == L'\n' ? std::wstring(L"\r\n") : std::wstring(1, unit);
    return text;
}

std::wstring Value(const Json& json) { return ForEdit(json.dump(-1, ' ', false, Json::error_handler_t::replace)); }

// One line for each member of what the call answered, with the old value where it changed.
std::wstring Changes(const Json& before, const Json& answer) {
    std::wstring text = L"戻り値: " + Value(answer["returned"]) + L"\r\n";
    for (const char* part : {"record", "params"}) {
        if (!answer.contains(part)) continue;
        text += L"\r\n" + WideFromUtf8(part) + L"\r\n";
        for (const auto& [name, value] : answer[part].items()) {
            const Json old = before.value(part, Json::object()).value(name, Json());
            const bool changed = old != value;
            text += (changed ? kChanged : kUnchanged) + WideFromUtf8(name) + L": " + Value(value);
            if (changed) text += L"  ← " + Value(old);
            text += L"\r\n";
        }
    }
    return text;
}

}  // namespace

Workbench::Workbench() {
    WNDCLASSW type{};
    type.lpfnWndProc = OnMessage;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    type.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    type.lpszClassName = kClass;
    RegisterClassW(&type);
    CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 960, 680, nullptr, MakeMenu(),
                    type.hInstance, this);
    KiroHostSetMainWindow(window_);
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);
}

Workbench::~Workbench() {
    KiroHostSetMainWindow(nullptr);
    if (window_) DestroyWindow(window_);
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
}

void Workbench::Show(const Export& command, const Json& input) {
    shown_ = &command;
    SetWindowTextW(before_, ForEdit(Print(input)).c_str());
    SetWindowTextW(after_, L"");
    SetWindowTextW(messages_, L"");
}

CallResult Workbench::Call(const Export& command, const Json& input) {
    const CallWatch watch;
    CallResult result = CallExport(command, input);
    // Members that the input did not name were cleared ones.
    Json before = command.start();
    before.merge_patch(input.contains("record") || input.contains("params") ? input : Json{{"record", input}});
    SetWindowTextW(after_, Changes(before, result.json).c_str());
    std::wstring lines = WideFromUtf8(command.name) + L"\r\n";
    for (const std::wstring& line : watch.Lines()) lines += line + L"\r\n";
    SetWindowTextW(messages_, lines.c_str());
    return result;
}

int Workbench::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

LRESULT CALLBACK Workbench::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<Workbench*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Workbench*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (self ? message : WM_NULL) {
        case WM_CREATE:
            self->MakePanes();
            return 0;
        case WM_SIZE:
            self->Arrange();
            return 0;
        case WM_COMMAND:
            if (HIWORD(wParam) == 0 && lParam == 0) self->OnMenu(LOWORD(wParam));
            return 0;
        case WM_DESTROY:
            self->window_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

void Workbench::MakePanes() {
    struct Pane {
        HWND* window;
        DWORD style;
    };
    const Pane panes[] = {{&before_, 0}, {&after_, ES_READONLY}, {&messages_, ES_READONLY}};
    static const HFONT font = CreateFontW(-12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, 0, 0, 0,
                                          FIXED_PITCH | FF_MODERN, L"ＭＳ ゴシック");
    int id = 1;
    for (const Pane& pane : panes) {
        const HWND caption =
            CreateWindowExW(0, L"STATIC", kCaptions[id - 1], WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, window_,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id + 10)), nullptr, nullptr);
        *pane.window =
            CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                                ES_AUTOHSCROLL | ES_AUTOVSCROLL | pane.style,
                            0, 0, 0, 0, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        SendMessageW(caption, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        SendMessageW(*pane.window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        SendMessageW(*pane.window, EM_SETLIMITTEXT, 0, 0);
        ++id;
    }
}

void Workbench::Arrange() {
    RECT area{};
    GetClientRect(window_, &area);
    const int half = (area.right - 3 * kGap) / 2;
    const int height = area.bottom - kMessagesHeight - 2 * kCaptionHeight - kGap;
    const RECT places[] = {{kGap, 0, half, height},
                           {half + 2 * kGap, 0, half, height},
                           {kGap, height + kCaptionHeight, area.right - 2 * kGap, kMessagesHeight}};
    for (int i = 0; i < static_cast<int>(std::size(places)); ++i) {
        const RECT& place = places[i];  // left, top, width, height
        MoveWindow(GetDlgItem(window_, i + 11), place.left, place.top + 2, place.right, kCaptionHeight - 2, TRUE);
        MoveWindow(GetDlgItem(window_, i + 1), place.left, place.top + kCaptionHeight, place.right, place.bottom, TRUE);
    }
}

void Workbench::OnMenu(int id) {
    const auto exports = Exports();
    if (id == kQuit) {
        DestroyWindow(window_);
        return;
    }
    const Export* command = shown_;
    if (id >= kFirstCommand && id < kFirstCommand + static_cast<int>(exports.size()))
        command = &exports[static_cast<std::size_t>(id - kFirstCommand)];
    if (!command) return;
    // Another command has another record; the edited one would not fit it.
    if (command != shown_) Show(*command, command->start());
    try {
        Call(*command, Json::parse(Utf8FromWide(Text(before_))));
    } catch (const std::exception& error) {
        MessageBoxW(window_, WideFromUtf8(error.what()).c_str(), kTitle, MB_OK | MB_ICONEXCLAMATION);
    }
}

}  // namespace kiro
