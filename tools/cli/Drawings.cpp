#include "Drawings.h"

#include <system_error>

#include "Files.h"
#include "Text.h"
#include "hostlayer/kirodxf/DxfErrorText.h"

namespace fs = std::filesystem;

namespace cli {

drawing::Result FileSource::Open(const std::string& name) {
    std::error_code error;
    const fs::path path = PathOf(name);
    if (fs::is_regular_file(path, error)) file_ = OpenFile(path.native(), "rb");
    if (!file_) return fs::exists(path, error) ? drawing::kCannotRead : drawing::kNoFile;
    return drawing::kDone;
}

int FileSource::Read(char* buffer, unsigned size) {
    const std::size_t count = std::fread(buffer, 1, size, file_.get());
    return count == 0 && std::ferror(file_.get()) ? -1 : static_cast<int>(count);
}

std::string TextOf(int error) {
    char text[256];
    const std::size_t length = DxfErrorText(error, text, sizeof text);
    return FromCp932({text, length});
}

}  // namespace cli
