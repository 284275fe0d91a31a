#include <cstdint>

#include "tests/fuzz/DxfReading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The mark is put before the data, or few inputs would pass it. The first byte says where the input breaks off.
    static const std::string mark("AutoCAD Binary DXF\r\n\x1a\0", 22);
    std::string file(reinterpret_cast<const char*>(data), size);
    const std::string sizes = file.substr(size - std::min<std::size_t>(size, 4));
    if (!file.starts_with(mark)) file.insert(0, mark);

    MemorySource inOne(file), inPieces(file, sizes);
    const std::vector<DxfItem> pairs = ReadAll(inOne, true);
    Require(pairs == ReadAll(inPieces, true));
    for (const DxfItem& pair : pairs) Require(pair.code <= 1071 && pair.text.find('\0') == std::string::npos);

    const std::size_t cut = file.size() * (size ? data[size - 1] : 0u) / 256;
    MemorySource truncated(std::string_view(file).substr(0, cut)), failing(file, sizes, cut);
    const std::vector<DxfItem> start = ReadAll(truncated, true);
    // A cut before that hides how wide the codes are, and then nothing can be said.
    if (cut >= kDxfStartLength) Require(IsStartOf(start, pairs) && start == ReadAll(failing, true));

    MemorySource asText(file, sizes);
    ReadAll(asText, false);
    return 0;
}
