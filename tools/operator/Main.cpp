// operator.exe: a scripted user of the commands, for machines without a display as well.
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "Demo.h"
#include "HostConversion.h"
#include "Play.h"
#include "Scenes.h"
#include "catalogue/DemoHome.h"
#include "catalogue/DialogText.h"
#include "driver/Driver.h"
#include "hostlayer/include/KiroHost.h"

namespace {

constexpr int kUsageError = 2;
constexpr int kCrashed = 70;
constexpr char kUsage[] =
    "usage: operator --demo DRAWING PICTURE.png HOME\n"
    "       operator --pictures DIR DRAWING HOME\n"
    "       operator --play DIALOG EVENTS SEED PLAYS LOGS HOME\n"
    "       operator --text HOME [DIALOG]\n"
    "       operator --dialogs\n"
    "DRAWING is typed as it stands: a path, or a name in the folder DXF of HOME, which is made anew.\n";

// The CAD host's window, as far as the commands are concerned. It stays, whatever a user does to it.
class MainWindow {
  public:
    MainWindow() : window_(Make()) { KiroHostSetMainWindow(window_); }
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    ~MainWindow() {
        KiroHostSetMainWindow(nullptr);
        DestroyWindow(window_);
    }

  private:
    static HWND Make() {
        WNDCLASSW definition{};
        definition.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
            if (message == WM_CLOSE || message == WM_SYSCOMMAND) return 0;
            return DefWindowProcW(window, message, wParam, lParam);
        };
        definition.hInstance = GetModuleHandleW(nullptr);
        definition.lpszClassName = L"KiroOperator";
        RegisterClassW(&definition);
        return CreateWindowExW(0, definition.lpszClassName, L"ＣＡＤ", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                               GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), nullptr, nullptr,
                               definition.hInstance, nullptr);
    }

    HWND window_;
};

std::vector<std::wstring> Arguments() {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    return {words.get() + 1, words.get() + count};
}

// A crash may otherwise end a program with status 0 under Wine.
LONG WINAPI EndAtCrash(EXCEPTION_POINTERS* exception) {
    std::fprintf(stdout, "crashes: %08lx at %p\n", exception->ExceptionRecord->ExceptionCode,
                 exception->ExceptionRecord->ExceptionAddress);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kCrashed);
    return EXCEPTION_EXECUTE_HANDLER;
}

void ListDialogs() {
    for (const auto& dialog : kiro::Catalogue()) std::printf("%s\n", dialog.name);
}

const kiro::CatalogueDialog* Named(const std::wstring& name) {
    const kiro::CatalogueDialog* dialog = kiro::FindDialog(kiro::Utf8FromWide(name));
    if (!dialog) {
        std::fputs("operator: there is no such dialog; these there are:\n", stderr);
        ListDialogs();
    }
    return dialog;
}

// DIALOG EVENTS SEED PLAYS LOGS HOME
int RunPlay(const std::vector<std::wstring>& arguments) {
    kiro::PlayOrder order;
    order.dialog = Named(arguments[1]);
    if (!order.dialog) return kUsageError;
    order.events = std::stoi(arguments[2]);
    order.seed = static_cast<unsigned>(std::stoul(arguments[3]));
    order.plays = std::stoi(arguments[4]);
    order.logs = arguments[5];
    order.home = arguments[6];
    kiro::drive::UsePrivateDesktop();
    const MainWindow window;
    return kiro::Play(order) == 0 ? 0 : 1;
}

// HOME [DIALOG]: what a dialog shows and takes, without one what all of them do.
int RunText(const std::vector<std::wstring>& arguments) {
    std::span<const kiro::CatalogueDialog> dialogs = kiro::Catalogue();
    if (arguments.size() == 3) {
        const kiro::CatalogueDialog* dialog = Named(arguments[2]);
        if (!dialog) return kUsageError;
        dialogs = {dialog, 1};
    }
    kiro::drive::UsePrivateDesktop();
    const MainWindow window;
    kiro::MakeDemoHome(arguments[1]);
    for (const kiro::CatalogueDialog& dialog : dialogs) {
        const std::string text = kiro::DialogText(dialog);
        std::fwrite(text.data(), 1, text.size(), stdout);
    }
    return 0;
}

// DIR DRAWING HOME
int RunPictures(const std::vector<std::wstring>& arguments) {
    // On a display, what is seen is the desktop of that.
    if (!std::getenv("DISPLAY")) kiro::drive::UsePrivateDesktop();
    const MainWindow window;
    kiro::MakeDemoHome(arguments[3]);
    return kiro::PaintScenes(arguments[1], arguments[2]) == 0 ? 0 : 1;
}

// DRAWING PICTURE HOME
int RunDemo(const std::vector<std::wstring>& arguments) {
    kiro::drive::UsePrivateDesktop();
    const MainWindow window;
    kiro::MakeDemoHome(arguments[3]);
    const std::filesystem::path picture = arguments[2];
    kiro::Json story = kiro::Json::array();
    int status = 0;
    // The command, and what the host makes of its record.
    const auto tell = [&](kiro::CallResult call) {
        const auto conversion = kiro::ConvertAsHost(call);
        if (conversion) call.json["conversion"] = *conversion;
        if (status == 0) status = call.exitStatus;
        if (status == 0 && (!conversion || (*conversion)["returned"] != 0)) status = 1;
        story.push_back(std::move(call.json));
    };
    tell(kiro::DemoImport(arguments[1], picture));
    tell(kiro::DemoExport(L"平面図.dxf", std::filesystem::path(picture).replace_filename(L"demo-export.png")));
    const std::string text = kiro::Print(story);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return status;
}

int Run(const std::vector<std::wstring>& arguments) {
    if (arguments.size() == 7 && arguments[0] == L"--play") return RunPlay(arguments);
    if (arguments.size() == 1 && arguments[0] == L"--dialogs") {
        ListDialogs();
        return 0;
    }
    if ((arguments.size() == 2 || arguments.size() == 3) && arguments[0] == L"--text") return RunText(arguments);
    if (arguments.size() == 4 && arguments[0] == L"--pictures") return RunPictures(arguments);
    if (arguments.size() == 4 && arguments[0] == L"--demo") return RunDemo(arguments);
    std::fputs(kUsage, stderr);
    return kUsageError;
}

}  // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetUnhandledExceptionFilter(EndAtCrash);
    try {
        return Run(Arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "operator: %s\n", error.what());
        return 1;
    }
}
