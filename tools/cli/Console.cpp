#include "Console.h"

#include <csignal>
#include <cstdio>
#include <memory>

#include "Text.h"

#ifdef _WIN32
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#endif

namespace cli {

namespace {

const char* programName = "";

}  // namespace

#ifdef _WIN32

namespace {

std::string ToUtf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(size > 0 ? static_cast<std::size_t>(size) : 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), size, nullptr, nullptr);
    out.pop_back();  // the NUL
    return out;
}

}  // namespace

std::vector<std::string> Arguments(int, char**) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(ToUtf8(words.get()[i]));
    return arguments;
}

Console::Console(const char* program) : codePage_(GetConsoleOutputCP()) {
    programName = program;
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    if (codePage_) SetConsoleOutputCP(CP_UTF8);
}

Console::~Console() {
    if (codePage_) SetConsoleOutputCP(codePage_);
}

#else

std::vector<std::string> Arguments(int count, char** words) { return {words + (count > 0), words + count}; }

Console::Console(const char* program) {
    programName = program;
    // A file that grows past the user's limit is a failed write like any other, not the program's end.
    std::signal(SIGXFSZ, SIG_IGN);
}

Console::~Console() = default;

#endif

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void PrintError(std::string_view text) {
    // In the order in which things happened, where both go to the same place.
    std::fflush(stdout);
    const std::string line = std::string(programName) + ": " + Printable(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool FlushOutput() { return std::fflush(stdout) == 0 && !std::ferror(stdout); }

}  // namespace cli
