// A host of one window. Its menu asks the user for a drawing to import; the title then tells what was chosen. Started
// with --close it opens the dialog, presses its cancel button and ends, which needs nobody.
#include <windows.h>

#include <kirovanteo/KiroHost.h>
#include <kirovanteo/kirobc.h>
#include <kirovanteo/kirodxf.h>
#include <kirovanteo/kirovanteo.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kImport = 1, kPressCancel = 2, kLookAgain = 20 };

// The command's type, for a program that loads the library itself.
typedef int (*RecordCommand)(TARNAINFO* info);
static RecordCommand importCommand;

// The library lies beside this program. Named by its full path it is found there and nowhere else, and what it needs in
// turn is looked for in its folder first.
static HMODULE LoadKirovanteo(void) {
    static const wchar_t name[] = L"kirovanteo.dll";
    wchar_t path[MAX_PATH + sizeof name];
    const DWORD length = GetModuleFileNameW(NULL, path, MAX_PATH);
    if (length == 0 || length == MAX_PATH) return NULL;
    wcscpy(wcsrchr(path, L'\\') + 1, name);
    return LoadLibraryExW(path, NULL, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

// The records' text is EUC; windows have UTF-16. Code page 932 holds all that the library writes.
static void ShowText(HWND window, const char* euc, size_t width) {
    char sjis[512];
    wchar_t wide[512];
    const char* end = memchr(euc, 0, width);
    HxEucToSjis(euc, end ? (size_t)(end - euc) : width, sjis, sizeof sjis);
    if (MultiByteToWideChar(932, 0, sjis, -1, wide, 512) > 0) SetWindowTextW(window, wide);
}

static void Import(HWND window) {
    DxfInParamBlock params;
    TARNAINFO* info = calloc(1, sizeof *info);
    if (!info) return;
    memset(&params, 0, sizeof params);
    DxfInReadParam(&params);  // what the user has kept as the defaults; without that the block stays cleared
    info->input.importParams = &params;
    if (importCommand(info) == 0)
        ShowText(window, info->input.inputFileName, sizeof info->input.inputFileName);
    else
        SetWindowTextW(window, L"cancelled");
    free(info);
}

static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND dialog;
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == kImport) Import(window);
            return 0;
        case WM_TIMER:  // the host's own messages go on while a dialog is open
            dialog = GetLastActivePopup(window);
            if (dialog != window && KillTimer(window, kPressCancel)) {
                printf("pressing cancel\n");
                PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            }
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

static HWND MakeWindow(void) {
    WNDCLASSW type;
    HMENU menu = CreateMenu();
    memset(&type, 0, sizeof type);
    type.lpfnWndProc = OnMessage;
    type.hInstance = GetModuleHandleW(NULL);
    type.hCursor = LoadCursorW(NULL, (LPCWSTR)IDC_ARROW);
    type.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
    type.lpszClassName = L"SmallHost";
    RegisterClassW(&type);
    AppendMenuW(menu, MF_STRING, kImport, L"&Import");
    return CreateWindowExW(0, type.lpszClassName, L"A small host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                           CW_USEDEFAULT, 1000, 740, NULL, menu, type.hInstance, NULL);
}

int main(int argc, char** argv) {
    const HMODULE library = LoadKirovanteo();
    MSG message;
    HWND window;
    if (!library) return 2;
    importCommand = (RecordCommand)(void (*)(void))GetProcAddress(library, "DxfInputDlg");
    window = MakeWindow();
    if (!importCommand || !window) return 2;
    KiroHostSetMainWindow(window);  // what Grgetwin(-1) gives from now on: the owner of every dialog
    if (argc > 1 && strcmp(argv[1], "--close") == 0) {
        SetTimer(window, kPressCancel, kLookAgain, NULL);
        SendMessageW(window, WM_COMMAND, kImport, 0);
        DestroyWindow(window);
    }
    while (GetMessageW(&message, NULL, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KiroHostSetMainWindow(NULL);
    FreeLibrary(library);
    return 0;
}
