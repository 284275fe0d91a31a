// operator.exe: a scripted user of the commands, for machines without a display as well.
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "Demo.h"
#include "driver/Driver.h"
#include "Scenes.h"
#include "hostlayer/include/KiroHost.h"

namespace {

constexpr int kUsageError = 2;
constexpr char kUsage[] =
    "usage: operator --demo DRAWING HOME PICTURE.png\n"
    "       operator --pictures DIR DRAWING HOME\n"
    "DRAWING is typed as it stands: a path, or a name in the folder DXF of HOME.\n";

// The CAD host's window, as far as the commands are concerned.
class MainWindow {
  public:
    MainWindow()
        : window_(CreateWindowExW(0, L"STATIC", L"ＣＡＤ", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 740, nullptr,
                                  nullptr, nullptr, nullptr)) {
        KiroHostSetMainWindow(window_);
    }
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    ~MainWindow() {
        KiroHostSetMainWindow(nullptr);
        DestroyWindow(window_);
    }

  private:
    HWND window_;
};

std::vector<std::wstring> Arguments() {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    return {words.get() + 1, words.get() + count};
}

int Run(const std::vector<std::wstring>& arguments) {
    const bool demo = arguments.size() == 4 && arguments[0] == L"--demo";
    const bool pictures = arguments.size() == 4 && arguments[0] == L"--pictures";
    if (!demo && !pictures) {
        std::fputs(kUsage, stderr);
        return kUsageError;
    }
    kiro::drive::UsePrivateDesktop();
    const MainWindow window;
    if (pictures) {
        KiroHostSetHome(arguments[3].c_str());
        return kiro::PaintScenes(arguments[1], arguments[2]) == 0 ? 0 : 1;
    }
    KiroHostSetHome(arguments[2].c_str());
    const kiro::CallResult result = kiro::RunDemo(arguments[1], arguments[3]);
    const std::string text = kiro::Print(result.json);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return result.exitStatus;
}

}  // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    try {
        return Run(Arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "operator: %s\n", error.what());
        return 1;
    }
}
