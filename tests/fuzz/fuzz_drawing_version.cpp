// The version line of a file of any bytes, read as DXF and as DWG through the host's own functions; only the files
// themselves are this program's, in memory.
#include <cstdint>

#include "dxfin/DrawingVersion.h"
#include "entry/host/kirobc.h"
#include "tests/fuzz/DxfReading.h"

namespace {

std::string_view content;
int openFiles = 0;

struct OpenFile {
    std::size_t position = 0;
};

}  // namespace

void* HxFileIOOpen(const char*, int, int) {
    ++openFiles;
    return new OpenFile;
}

int HxFileIORead(void* file, void* buffer, unsigned int size) {
    auto* open = static_cast<OpenFile*>(file);
    const std::size_t count = content.copy(static_cast<char*>(buffer), size, open->position);
    open->position += count;
    return static_cast<int>(count);
}

void HxFileIOClose(void* file) {
    --openFiles;
    delete static_cast<OpenFile*>(file);
}

// For messages alone, which are not asked for here.
std::size_t HxSjisToEuc(const char*, std::size_t, char*, std::size_t) { return 0; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    content = {reinterpret_cast<const char*>(data), size};
    const DrawingVersion dxf = ReadDxfVersion("x"), dwg = ReadDwgVersion("x");
    Require(dxf.opened && dwg.opened && openFiles == 0);
    if (dxf.code) Require(dxf.code->size() < 64 && content.find(*dxf.code) != std::string_view::npos);
    if (dwg.code) Require(dwg.code->size() <= 6 && content.starts_with(*dwg.code) && dwg.code->starts_with("AC"));
    VersionLine(dxf);
    VersionLine(dwg);
    return 0;
}
