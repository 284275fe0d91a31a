#include <cstdint>

#include "tests/fuzz/DxfReading.h"

namespace {

// The lines as one would write them down with the whole file at hand.
std::vector<std::string> SplitLines(std::string bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n", start), bytes.size());
        lines.push_back(bytes.substr(start, end - start).substr(0, bytes.substr(start, end - start).find('\0')));
        lines.back().resize(std::min<std::size_t>(lines.back().size(), ValueText::kCapacity));
        start = end + (bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string_view sizes = bytes.substr(size - std::min<std::size_t>(size, 4));

    MemorySource inOne(bytes), inPieces(bytes, sizes);
    const std::vector<DxfItem> lines = ReadAll(inOne, false);
    Require(lines == ReadAll(inPieces, false));

    const std::vector<std::string> expected = SplitLines(std::string(bytes));
    Require(std::equal(lines.begin(), lines.end(), expected.begin(), expected.end(),
                       [](const DxfItem& line, const std::string& text) { return line.text == text; }));
    for (const DxfItem& line : lines) Require(line.code >= DxfReader::kNoCode);

    MemorySource failing(bytes, sizes, size ? data[0] * size / 256 : 0);
    Require(IsStartOf(ReadAll(failing, false), lines));
    return 0;
}
