#include "hostlayer/kirobc/ParamDefaults.h"

#include <cstdint>

namespace {

// FNV-1a: meant for damage, not for forgery.
std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t sum = 2166136261u;
    for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 16777619u;
    return sum;
}

// Nothing but this system's Windows programs reads the file: numbers are little-endian as in memory.
void AppendNumber(std::string& file, std::uint32_t number) {
    file.append(reinterpret_cast<const char*>(&number), sizeof number);
}

}  // namespace

std::string FormatParamDefaults(std::string_view mark, std::string_view block) {
    std::string file(mark);
    AppendNumber(file, static_cast<std::uint32_t>(block.size()));
    file += block;
    AppendNumber(file, Checksum(file));
    return file;
}

std::string_view ParseParamDefaults(std::string_view mark, std::string_view file, std::size_t size) {
    if (file.size() != kParamFrameSize + size) return {};
    const std::string_view block = file.substr(kParamMarkLength + sizeof(std::uint32_t), size);
    return file == FormatParamDefaults(mark, block) ? block : std::string_view();
}
