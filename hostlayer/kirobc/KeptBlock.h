// A parameter block that is kept as the user's default, in a file of HOME\settings: the new file is there whole before
// it takes the place of the old one.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>
#include <type_traits>

#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/ParamDefaults.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"

namespace kirobc {

// "" when there is no home folder.
inline std::wstring SettingsFolder() {
    std::wstring folder(KiroHostGetFolder("", nullptr, 0), L'\0');
    if (folder.empty()) return folder;
    KiroHostGetFolder("", folder.data(), folder.size() + 1);
    return folder + (folder.ends_with(L'\\') ? L"settings" : L"\\settings");
}

inline bool WriteWhole(const std::wstring& path, const std::string& bytes) {
    const FileHandle file = OpenFileHandle(path, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

template <class Block>
class KeptBlock {
    static_assert(std::is_trivially_copyable_v<Block>);

  public:
    // mark: that of FormatParamDefaults.
    constexpr KeptBlock(const wchar_t* name, const char (&mark)[kParamMarkLength + 1]) : name_(name), mark_(mark) {}

    bool Write(const Block& params) const {
        const std::wstring folder = SettingsFolder();
        if (folder.empty()) return false;
        CreateDirectoryW(folder.c_str(), nullptr);
        const std::wstring path = folder + L'\\' + name_;
        const std::wstring fresh = path + L".new";
        const std::string_view block(reinterpret_cast<const char*>(&params), sizeof params);
        if (WriteWhole(fresh, FormatParamDefaults(mark_, block)) &&
            MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        DeleteFileW(fresh.c_str());
        return false;
    }
    // False, and the block as before, when there is no file or a damaged one.
    bool Read(Block& params) const {
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

  private:
    const wchar_t* name_;
    std::string_view mark_;
};

}  // namespace kirobc
