// The exported functions for the parameters of imports and exports. The defaults are kept in files of HOME\settings.
#include <windows.h>

#include <cstring>
#include <optional>
#include <string>
#include <type_traits>

#include "entry/host/kirodxf.h"
#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirocontrol/CallNote.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"
#include "hostlayer/kirodxf/CurrentParams.h"
#include "hostlayer/kirodxf/ParamDefaults.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

// "" when there is no home folder.
std::wstring SettingsFolder() {
    std::wstring folder(KiroHostGetFolder("", nullptr, 0), L'\0');
    if (folder.empty()) return folder;
    KiroHostGetFolder("", folder.data(), folder.size() + 1);
    return folder + (folder.ends_with(L'\\') ? L"settings" : L"\\settings");
}

bool WriteWhole(const std::wstring& path, const std::string& bytes) {
    const FileHandle file = OpenFileHandle(path, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

// The parameters of the next conversion in one direction, and the file of their defaults.
template <class Block>
class KeptParams {
    static_assert(std::is_trivially_copyable_v<Block>);

  public:
    constexpr KeptParams(const wchar_t* name, const char (&mark)[kParamMarkLength + 1]) : name_(name), mark_(mark) {}

    void Set(const Block* params) {
        if (params) params_ = *params;
    }
    int Write() const {
        return kirobc::Guarded(kFailure, [this] { return params_ && Keep() ? kSuccess : kFailure; });
    }
    int Read(Block* params) const {
        return kirobc::Guarded(kFailure, [=, this] { return params && ReadKept(*params) ? kSuccess : kFailure; });
    }

    Block Current(const Block& otherwise) const {
        Block params = params_.value_or(otherwise);
        if (!params_) Read(&params);
        return params;
    }

  private:
    bool Keep() const {
        const std::wstring folder = SettingsFolder();
        if (folder.empty()) return false;
        CreateDirectoryW(folder.c_str(), nullptr);
        const std::wstring path = folder + L'\\' + name_;
        const std::wstring fresh = path + L".new";
        const std::string_view block(reinterpret_cast<const char*>(&*params_), sizeof *params_);
        if (WriteWhole(fresh, FormatParamDefaults(mark_, block)) &&
            MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        DeleteFileW(fresh.c_str());
        return false;
    }
    bool ReadKept(Block& params) const {
        const std::wstring folder = SettingsFolder();
        if (folder.empty()) return false;
        const FileHandle file =
            OpenFileHandle(folder + L'\\' + name_, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
        char bytes[kParamFrameSize + sizeof(Block) + 1];  // one more shows a file that is too long
        DWORD read = 0;
        if (!file || !ReadFile(file.get(), bytes, sizeof bytes, &read, nullptr)) return false;
        const std::string_view block = ParseParamDefaults(mark_, {bytes, read}, sizeof params);
        if (block.empty()) return false;
        std::memcpy(&params, block.data(), sizeof params);
        return true;
    }

    const wchar_t* name_;
    std::string_view mark_;
    std::optional<Block> params_;
};

KeptParams<DxfInParamBlock> importParams(L"dxfin_params", "KIRODXFIN  1");
KeptParams<DxfOutParamBlock> exportParams(L"dxfout_params", "KIRODXFOUT 1");

}  // namespace

void setdxfinparam(const DxfInParamBlock* params) {
    importParams.Set(params);
    NoteCall("setdxfinparam", {HostPointer(kKiroHostInParams, "params", params)});
}

int DxfInWriteParam() {
    const int result = importParams.Write();
    NoteCall("DxfInWriteParam", {}, result);
    return result;
}

int DxfInReadParam(DxfInParamBlock* params) { return importParams.Read(params); }

void setdxfotparam(const DxfOutParamBlock* params) {
    exportParams.Set(params);
    NoteCall("setdxfotparam", {HostPointer(kKiroHostOutParams, "params", params)});
}

int DxfOutWriteParam() {
    const int result = exportParams.Write();
    NoteCall("DxfOutWriteParam", {}, result);
    return result;
}

// What there is to save of this host is its model, and that only its program saves.
void d161907cnsout() { NoteCall("d161907cnsout", {}); }

int DxfOutReadParam(DxfOutParamBlock* params) { return exportParams.Read(params); }

DxfInParamBlock CurrentImportParams() { return importParams.Current({}); }

DxfOutParamBlock CurrentExportParams() {
    DxfOutParamBlock newest{};
    newest.outputVersion = 7;
    return exportParams.Current(newest);
}
