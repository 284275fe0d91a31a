#include "hostlayer/kirodxf/DxfInDefaults.h"

#include <cstring>
#include <type_traits>

namespace {

constexpr std::string_view kMark = "KIRODXFIN  1";  // the version is part of it

// The file's bytes. Nothing but this system's Windows programs reads them: numbers are little-endian as in memory.
struct DefaultsFile {
    char mark[12];
    std::uint32_t length;
    DxfInParamBlock params;
    std::uint32_t checksum;  // of all before it
};
static_assert(sizeof(DefaultsFile) == kDxfInDefaultsSize && kMark.size() == sizeof DefaultsFile::mark);
static_assert(std::is_trivially_copyable_v<DefaultsFile>);

// FNV-1a: meant for damage, not for forgery.
std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t sum = 2166136261u;
    for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 16777619u;
    return sum;
}

std::string_view Bytes(const DefaultsFile& file) { return {reinterpret_cast<const char*>(&file), sizeof file}; }

DefaultsFile FileOf(const DxfInParamBlock& params) {
    DefaultsFile file;
    kMark.copy(file.mark, sizeof file.mark);
    file.length = sizeof params;
    file.params = params;
    file.checksum = Checksum(Bytes(file).substr(0, offsetof(DefaultsFile, checksum)));
    return file;
}

}  // namespace

std::string FormatDxfInDefaults(const DxfInParamBlock& params) { return std::string(Bytes(FileOf(params))); }

bool ParseDxfInDefaults(std::string_view file, DxfInParamBlock& params) {
    if (file.size() != sizeof(DefaultsFile)) return false;
    DxfInParamBlock read;
    std::memcpy(&read, file.data() + offsetof(DefaultsFile, params), sizeof read);
    if (file != Bytes(FileOf(read))) return false;
    params = read;
    return true;
}
