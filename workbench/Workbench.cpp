#include "Workbench.h"

#include <algorithm>
#include <string>

#include "CallWatch.h"
#include "HostConversion.h"
#include "WorkbenchMenu.h"
#include "hostlayer/include/KiroHost.h"

namespace kiro {
namespace {

constexpr wchar_t kClass[] = L"KiroWorkbench";
constexpr wchar_t kTitle[] = L"kirovanteo ワークベンチ";
constexpr SIZE kStartSize = {960, 680};
constexpr SIZE kSmallestSize = {420, 320};
constexpr int kLineHeight = 17;
constexpr int kFontHeight = 12;
constexpr wchar_t kChanged[] = L"● ";
constexpr wchar_t kUnchanged[] = L"　 ";

constexpr const wchar_t* kCaptions[] = {L"呼出し前のレコード（書き換えられます）",
                                        L"呼出し後のレコード（● は変わった項目）",
                                        L"記録（呼出し中に出た案内、メッセージ、ダイアログ）"};
constexpr wchar_t kNotCalled[] = L"まだ呼び出していません。";

std::wstring HintFor(const Export& command) {
    return L"F5 で「" + std::wstring(command.title) + L"」（" + WideFromUtf8(command.name) +
           L"）を左のレコードで呼び出します。ほかのコマンドはメニュー「コマンド」か Ctrl+1 などのキーで呼び出します。";
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

// The two kinds of commands return opposite values, so their meaning is told as well.
std::wstring Returned(const CallResult& result) {
    const Json& returned = result.json["returned"];
    if (returned.is_null()) return L"戻り値: なし\r\n";
    return L"戻り値: " + Value(returned) + (result.exitStatus == 0 ? L"（確定）\r\n" : L"（取消）\r\n");
}

// One line for each member of what the call answered, with the old value where it changed.
std::wstring Changes(const Json& before, const Json& answer) {
    std::wstring text;
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

// SxfModelCheck {"kind":3,...} → 0
std::wstring HostCall(const Json& call) {
    const std::wstring text = WideFromUtf8(call["name"].get<std::string>()) + L" " + Value(call["arguments"]);
    return call.contains("returned") ? text + L" → " + Value(call["returned"]) : text;
}

HFONT MakeFont(int height, DWORD pitch, const wchar_t* face) {
    return CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, 0, 0, 0, pitch, face);
}

void Place(HWND window, const RECT& place) {
    MoveWindow(window, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

}  // namespace

Workbench::Workbench() : keys_(MakeKeys()) {
    WNDCLASSW type{};
    type.lpfnWndProc = OnMessage;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    type.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    type.lpszClassName = kClass;
    RegisterClassW(&type);
    CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, 0, nullptr,
                    MakeMenu(), type.hInstance, this);
    SetWindowPos(window_, nullptr, 0, 0, Scaled(kStartSize.cx), Scaled(kStartSize.cy), SWP_NOMOVE | SWP_NOZORDER);
    KiroHostSetMainWindow(window_);
    Show(Exports().front(), Exports().front().start());
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);
}

Workbench::~Workbench() {
    KiroHostSetMainWindow(nullptr);
    if (window_) DestroyWindow(window_);
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
    DeleteObject(recordFont_);
    DeleteObject(textFont_);
    DestroyAcceleratorTable(keys_);
}

void Workbench::Show(const Export& command, const Json& input) { ShowText(command, ForEdit(Print(input))); }

void Workbench::ShowText(const Export& command, const std::wstring& text) {
    if (shown_) edited_[shown_] = Text(panes_[kBefore]);
    shown_ = &command;
    SetWindowTextW(panes_[kBefore], text.c_str());
    SetWindowTextW(panes_[kAfter], kNotCalled);
    Note(L"");
    SetWindowTextW(GetDlgItem(window_, kHint), HintFor(command).c_str());
    Arrange();
}

void Workbench::Note(const std::wstring& lines) { SetWindowTextW(panes_[kMessages], lines.c_str()); }

CallResult Workbench::Call(const Export& command, const Json& input) {
    const CallWatch watch;
    CallResult result = CallExport(command, input);
    // Members that the input did not name were cleared ones.
    Json before = command.start();
    before.merge_patch(input.contains("record") || input.contains("params") ? input : Json{{"record", input}});
    SetWindowTextW(panes_[kAfter], (Returned(result) + Changes(before, result.json)).c_str());
    std::wstring lines = WideFromUtf8(command.name) + L"\r\n";
    for (const std::wstring& line : watch.Lines()) lines += line + L"\r\n";
    for (const Json& call : result.json["calls"]) lines += L"ホスト関数: " + HostCall(call) + L"\r\n";
    Note(lines);
    return result;
}

int Workbench::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (window_ && TranslateAcceleratorW(window_, keys_, &message)) continue;
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
    return self ? self->Handle(window, message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Workbench::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            MakePanes();
            return 0;
        case WM_SIZE:
            Arrange();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(kSmallestSize.cx),
                                                                     Scaled(kSmallestSize.cy)};
            return 0;
        case WM_SETFOCUS:
            SetFocus(panes_[static_cast<std::size_t>(pane_)]);
            return 0;
        case WM_ERASEBKGND:
            DefWindowProcW(window, message, wParam, lParam);
            FillRect(reinterpret_cast<HDC>(wParam), &strip_, GetSysColorBrush(COLOR_INFOBK));
            return TRUE;
        case WM_CTLCOLORSTATIC:
            if (GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) != kHint) break;
            SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_INFOTEXT));
            SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_INFOBK));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_INFOBK));
        case WM_COMMAND:
            if (lParam == 0) OnMenu(LOWORD(wParam));
            if (lParam != 0 && HIWORD(wParam) == EN_SETFOCUS) pane_ = LOWORD(wParam) - kFirstPane;
            return 0;
        case WM_DESTROY:
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void Workbench::MakePanes() {
    textFont_ = MakeFont(Scaled(kFontHeight), VARIABLE_PITCH | FF_SWISS, L"MS UI Gothic");
    recordFont_ = MakeFont(Scaled(kFontHeight), FIXED_PITCH | FF_MODERN, L"ＭＳ ゴシック");
    MakeChild(L"STATIC", L"", SS_NOPREFIX, kHint, textFont_);
    for (int i = 0; i < static_cast<int>(kPaneCount); ++i) {
        MakeChild(L"STATIC", kCaptions[i], SS_NOPREFIX | SS_ENDELLIPSIS, kFirstCaption + i, textFont_);
        const DWORD style = WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL;
        const HWND pane =
            MakeChild(L"EDIT", L"", i == kBefore ? style : style | ES_READONLY, kFirstPane + i, recordFont_);
        SendMessageW(pane, EM_SETLIMITTEXT, 0, 0);
        panes_[static_cast<std::size_t>(i)] = pane;
    }
}

HWND Workbench::MakeChild(const wchar_t* type, const wchar_t* text, DWORD style, int id, HFONT font) {
    const bool isPane = id < kFirstCaption;
    const HWND child =
        CreateWindowExW(isPane ? WS_EX_CLIENTEDGE : 0, type, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return child;
}

int Workbench::Scaled(int pixels) const {
    return MulDiv(pixels, static_cast<int>(GetDpiForWindow(window_)), USER_DEFAULT_SCREEN_DPI);
}

// The hint has as many lines as it needs.
int Workbench::HintHeight(int width) const {
    const HWND hint = GetDlgItem(window_, kHint);
    const std::wstring text = Text(hint);
    RECT needed = {0, 0, width, 0};
    const HDC dc = GetDC(hint);
    const HGDIOBJ before = SelectObject(dc, textFont_);
    DrawTextW(dc, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, before);
    ReleaseDC(hint, dc);
    return static_cast<int>(needed.bottom);
}

void Workbench::Arrange() {
    RECT area{};
    GetClientRect(window_, &area);
    const int line = Scaled(kLineHeight);
    const int hintHeight = HintHeight(static_cast<int>(area.right) - 2 * GapOf(line));
    const PaneLayout layout = LayOut({area.right, area.bottom}, hintHeight, line);
    strip_ = layout.strip;
    Place(GetDlgItem(window_, kHint), layout.hint);
    for (std::size_t i = 0; i < kPaneCount; ++i) {
        Place(GetDlgItem(window_, kFirstCaption + static_cast<int>(i)), layout.captions[i]);
        Place(panes_[i], layout.panes[i]);
    }
    InvalidateRect(window_, nullptr, TRUE);
}

void Workbench::OnMenu(int id) {
    const auto exports = Exports();
    switch (id) {
        case kQuit:
            DestroyWindow(window_);
            return;
        case kCallAgain:
            CallShown();
            return;
        case kSelectAll:
            SendMessageW(panes_[static_cast<std::size_t>(pane_)], EM_SETSEL, 0, -1);
            return;
        case kNextPane:
            MovePane(1);
            return;
        case kPreviousPane:
            MovePane(-1);
            return;
        default:
            break;
    }
    if (calling_ || id < kFirstCommand || id >= kFirstCommand + static_cast<int>(exports.size())) return;
    const Export& command = exports[static_cast<std::size_t>(id - kFirstCommand)];
    // Another command has another record: its own of before, or a cleared one.
    if (&command != shown_) {
        const auto edited = edited_.find(&command);
        ShowText(command, edited != edited_.end() ? edited->second : ForEdit(Print(command.start())));
    }
    CallShown();
}

void Workbench::MovePane(int step) {
    const int count = static_cast<int>(kPaneCount);
    SetFocus(panes_[static_cast<std::size_t>((pane_ + step + count) % count)]);
}

// A message that comes while a dialog is open must not open another.
void Workbench::CallShown() {
    if (calling_) return;
    calling_ = true;
    const std::string text = Utf8FromWide(Text(panes_[kBefore]));
    try {
        const CallResult result = Call(*shown_, Json::parse(text));
        if (const auto conversion = ConvertAsHost(result))
            Note(Text(panes_[kMessages]) + L"変換: " + WideFromUtf8((*conversion)["message"].get<std::string>()) +
                 L"\r\n");
    } catch (const Json::parse_error& error) {
        PointAtError(text, error.byte);
    } catch (const std::exception& error) {
        const std::wstring message = L"レコードのこの内容では呼び出せません。\n\n" + WideFromUtf8(error.what());
        MessageBoxW(window_, message.c_str(), kTitle, MB_OK | MB_ICONEXCLAMATION);
    }
    calling_ = false;
}

// byte: how many bytes were read when it was clear that they are no JSON.
void Workbench::PointAtError(const std::string& utf8, std::size_t byte) {
    const std::string read = utf8.substr(0, byte > 0 ? byte - 1 : 0);
    const auto line = std::count(read.begin(), read.end(), '\n') + 1;
    const std::wstring message = L"レコードの " + std::to_wstring(line) + L" 行目が JSON の書き方になっていません。";
    MessageBoxW(window_, message.c_str(), kTitle, MB_OK | MB_ICONEXCLAMATION);
    const auto place = static_cast<WPARAM>(WideFromUtf8(read).size());
    SetFocus(panes_[kBefore]);
    SendMessageW(panes_[kBefore], EM_SETSEL, place, static_cast<LPARAM>(place));
    SendMessageW(panes_[kBefore], EM_SCROLLCARET, 0, 0);
}

}  // namespace kiro
