#include "TableFiles.h"

#include <system_error>

#include "Console.h"
#include "Text.h"
#include "tables/FileReplace.h"

namespace fs = std::filesystem;

namespace kirotable {

namespace {

constexpr std::uintmax_t kLargestFile = 64 << 20;

std::string NameOf(const fs::path& path) {
#ifdef _WIN32
    const auto name = path.u8string();
    return std::string(name.begin(), name.end());
#else
    return path.native();
#endif
}

std::string ReadTableFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) throw FileFailure("ファイルがありません");
    if (status.type() == fs::file_type::directory) throw FileFailure("フォルダです");
    // A pipe or a device may have no end.
    if (status.type() != fs::file_type::regular) throw FileFailure("ふつうのファイルではありません");
    if (fs::file_size(path, error) > kLargestFile || error) throw FileFailure("大きすぎます (64 MB まで)");
    auto bytes = ReadWholeFile(path);
    if (!bytes) throw FileFailure("読めません");
    return std::move(*bytes);
}

}  // namespace

fs::path PathOf(const std::string& name) {
#ifdef _WIN32
    return std::u8string(name.begin(), name.end());
#else
    return name;
#endif
}

std::string FullName(const std::string& name) {
    std::error_code error;
    const fs::path full = fs::absolute(PathOf(name), error).lexically_normal();
    return error ? name : NameOf(full);
}

OpenedTable OpenTable(const std::string& name, const CommonOptions& options) {
    const fs::path path = PathOf(name);
    const TableKind* kind = options.kind ? options.kind : KindOfFile(path);
    try {
        const std::string bytes = ReadTableFile(path);
        if (!kind) throw FileFailure("名前から種類が分かりません。--kind で指定してください");
        return {kind, ReadTable(*kind, bytes, options.read)};
    } catch (const FileFailure& failure) {
        throw FileFailure(name + ": " + failure.what());
    }
}

std::string FindingText(const std::string& file, const Finding& finding) {
    const std::string line = finding.line > 0 ? ":" + std::to_string(finding.line) : "";
    return Printable(file + line + ": " + finding.message);
}

void WarnOfErrors(const std::string& file, const OpenedTable& opened) {
    const std::size_t count = opened.reading.errors.size();
    if (count > 0) PrintError(file + ": 読めない行が " + std::to_string(count) + " 行あります。check で調べてください");
}

}  // namespace kirotable
