#include "hostlayer/kirobc/ParamDefaults.h"

#include <cstdint>

#include "hostlayer/kirobc/ByteFile.h"

std::string FormatParamDefaults(std::string_view mark, std::string_view block) {
    std::string file(mark);
    kirobc::AppendNumber(file, static_cast<std::uint32_t>(block.size()));
    file += block;
    kirobc::AppendNumber(file, kirobc::Checksum<std::uint32_t>(file));
    return file;
}

std::string_view ParseParamDefaults(std::string_view mark, std::string_view file, std::size_t size) {
    if (file.size() != kParamFrameSize + size) return {};
    const std::string_view block = file.substr(kParamMarkLength + sizeof(std::uint32_t), size);
    return file == FormatParamDefaults(mark, block) ? block : std::string_view();
}
