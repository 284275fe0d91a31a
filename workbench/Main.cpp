// workbench.exe: without arguments the workbench's window; with --call one export, for a person or for a program that
// drives the windows from outside.
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "Workbench.h"
#include "hostlayer/include/KiroHost.h"

namespace {

using namespace kiro;

constexpr int kUsageError = 2;
constexpr char kUsage[] =
    "usage: workbench [--home DIR] [--model MODEL.json]\n"
    "       workbench --call EXPORT [--record IN.json] [--model MODEL.json] [--home DIR] [--result OUT.json]\n";

class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Options {
    std::optional<std::wstring> call, record, model, home, result;
};

Options ParseOptions() {
    struct Known {
        const wchar_t* name;
        std::optional<std::wstring> Options::*value;
    };
    constexpr Known kKnown[] = {{L"--call", &Options::call},
                                {L"--record", &Options::record},
                                {L"--model", &Options::model},
                                {L"--home", &Options::home},
                                {L"--result", &Options::result}};
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    Options options;
    for (int i = 1; i < count; i += 2) {
        const std::wstring name = words.get()[i];
        const Known* found = nullptr;
        for (const Known& known : kKnown)
            if (name == known.name) found = &known;
        if (!found) throw UsageError("unknown option " + Utf8FromWide(name) + "\n" + kUsage);
        if (i + 1 == count) throw UsageError(Utf8FromWide(name) + " needs a value\n" + kUsage);
        options.*found->value = words.get()[i + 1];
    }
    if (!options.call && (options.record || options.result))
        throw UsageError(std::string("--record and --result go with --call\n") + kUsage);
    return options;
}

Json ReadJson(const std::wstring& file) {
    std::ifstream stream(std::filesystem::path(file), std::ios::binary);
    if (!stream) throw UsageError("cannot read " + Utf8FromWide(file));
    try {
        return Json::parse(stream);
    } catch (const Json::exception& error) {
        throw UsageError(Utf8FromWide(file) + ": " + error.what());
    }
}

// The window starts with the model that lies beside the program, so that there is something to work on. Without that
// file the model is empty, as it is for a single call.
std::optional<std::wstring> ModelBesideProgram() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    if (length == 0 || length == MAX_PATH) return std::nullopt;
    const std::filesystem::path file = std::filesystem::path(path).replace_filename(L"workbench-model.json");
    std::error_code ignored;
    return std::filesystem::exists(file, ignored) ? std::optional(file.wstring()) : std::nullopt;
}

// Where the commands of this run find what they ask for.
std::wstring Surroundings(const std::optional<std::wstring>& model) {
    std::wstring home(KiroHostGetFolder("", nullptr, 0), L'\0');
    KiroHostGetFolder("", home.data(), home.size() + 1);
    return L"ホームフォルダ: " + home + L"\r\nモデル: " + model.value_or(L"（空）");
}

void Prepare(Options& options) {
    if (options.home) KiroHostSetHome(options.home->c_str());
    if (!options.model && !options.call) options.model = ModelBesideProgram();
    char message[512] = "";
    if (options.model && KiroHostLoadModel(options.model->c_str(), message, sizeof message) != 0)
        throw UsageError(Utf8FromWide(*options.model) + ": " + message);
}

int Call(const Options& options) {
    const Export* command = FindExport(Utf8FromWide(*options.call));
    if (!command) throw UsageError("there is no export " + Utf8FromWide(*options.call));
    const Json input = options.record ? ReadJson(*options.record) : Json::object();
    // Made before the call, so that a dialog is not confirmed in vain.
    std::ofstream file;
    if (options.result) {
        file.open(std::filesystem::path(*options.result), std::ios::binary);
        if (!file) throw UsageError("cannot write " + Utf8FromWide(*options.result));
    }
    Workbench workbench;
    workbench.Show(*command, input);
    const CallResult result = workbench.Call(*command, input);
    const std::string text = Print(result.json);
    if (options.result)
        file << text;
    else
        std::fwrite(text.data(), 1, text.size(), stdout);
    if (options.result && !file.flush()) throw UsageError("cannot write " + Utf8FromWide(*options.result));
    return result.exitStatus;
}

}  // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    try {
        Options options = ParseOptions();
        Prepare(options);
        if (options.call) return Call(options);
        Workbench workbench;
        workbench.Note(Surroundings(options.model));
        return workbench.Run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "workbench: %s\n", error.what());
        return kUsageError;
    }
}
