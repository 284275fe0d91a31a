// The exported functions for the parameters of an import. The defaults are kept in HOME\settings\dxfin_params.
#include <windows.h>

#include <optional>
#include <string>

#include "entry/host/kirodxf.h"
#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"
#include "hostlayer/kirodxf/DxfInDefaults.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

std::optional<DxfInParamBlock> importParams;  // those of the next import

// "" when there is no home folder.
std::wstring SettingsFolder() {
    std::wstring folder(KiroHostGetFolder("", nullptr, 0), L'\0');
    if (folder.empty()) return folder;
    KiroHostGetFolder("", folder.data(), folder.size() + 1);
    return folder + (folder.ends_with(L'\\') ? L"settings" : L"\\settings");
}

std::wstring DefaultsFile(const std::wstring& folder) { return folder + L"\\dxfin_params"; }

bool WriteWhole(const std::wstring& path, const std::string& bytes) {
    const FileHandle file = OpenFileHandle(path, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

bool KeepDefaults(const DxfInParamBlock& params) {
    const std::wstring folder = SettingsFolder();
    if (folder.empty()) return false;
    CreateDirectoryW(folder.c_str(), nullptr);
    const std::wstring path = DefaultsFile(folder);
    const std::wstring fresh = path + L".new";
    if (WriteWhole(fresh, FormatDxfInDefaults(params)) &&
        MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return true;
    DeleteFileW(fresh.c_str());
    return false;
}

bool ReadDefaults(DxfInParamBlock& params) {
    const std::wstring folder = SettingsFolder();
    if (folder.empty()) return false;
    const FileHandle file =
        OpenFileHandle(DefaultsFile(folder), GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    char bytes[kDxfInDefaultsSize + 1];  // one more shows a file that is too long
    DWORD read = 0;
    return file && ReadFile(file.get(), bytes, sizeof bytes, &read, nullptr) &&
           ParseDxfInDefaults({bytes, read}, params);
}

}  // namespace

void setdxfinparam(const DxfInParamBlock* params) {
    if (params) importParams = *params;
}

int DxfInWriteParam() {
    return kirobc::Guarded(kFailure, [] { return importParams && KeepDefaults(*importParams) ? kSuccess : kFailure; });
}

int DxfInReadParam(DxfInParamBlock* params) {
    return kirobc::Guarded(kFailure, [=] { return params && ReadDefaults(*params) ? kSuccess : kFailure; });
}
