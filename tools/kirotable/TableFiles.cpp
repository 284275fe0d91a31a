#include "TableFiles.h"

#include <cstdio>
#include <system_error>

#include "tables/FileReplace.h"
#include "tools/cli/Console.h"
#include "tools/cli/Text.h"

namespace fs = std::filesystem;

namespace kirotable {

using cli::Failure;
using cli::PrintError;

namespace {

constexpr std::uintmax_t kLargestFile = 64 << 20;
constexpr char kTooLarge[] = "大きすぎます (64 MB まで)";
constexpr char kBackup[] = ".bak";

std::string ReadTableFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) throw Failure("ファイルがありません");
    if (status.type() == fs::file_type::directory) throw Failure("フォルダです");
    // A pipe or a device may have no end.
    if (status.type() != fs::file_type::regular) throw Failure("ふつうのファイルではありません");
    if (fs::file_size(path, error) > kLargestFile || error) throw Failure(kTooLarge);
    auto bytes = ReadWholeFile(path);
    if (!bytes) throw Failure("読めません");
    return std::move(*bytes);
}

std::string ReadStandardInput() {
    std::string bytes;
    char piece[1 << 16];
    for (std::size_t count; (count = std::fread(piece, 1, sizeof piece, stdin)) > 0;) {
        bytes.append(piece, count);
        if (bytes.size() > kLargestFile) throw Failure(kTooLarge);
    }
    if (std::ferror(stdin)) throw Failure("読めません");
    return bytes;
}

Decoded TextOf(std::string bytes, Charset from) {
    const Charset likely = CharsetOf(bytes);
    if (from == Charset::kCp932 && likely != Charset::kCp932) {
        const std::string name(NameOfCharset(likely));
        throw Failure(std::string("シフト JIS ではなく ") + (likely == Charset::kUtf8 ? "UTF-8" : "UTF-16") +
                      " のファイルです。--from " + name + " を付けると読めます。format --from " + name +
                      " --force でシフト JIS に書き直せます");
    }
    return Decode(std::move(bytes), from);
}

}  // namespace

OpenedTable OpenTable(const std::string& name, const CommonOptions& options, const TableKind* otherwise) {
    const bool standard = name == cli::kStandard;
    OpenedTable opened = {options.kind, {}, {}, name};
    if (standard) opened.name = options.name.empty() ? "標準入力" : options.name;
    if (!opened.kind) opened.kind = KindOfFile(cli::PathOf(standard ? options.name : name));
    if (!opened.kind) opened.kind = otherwise;
    try {
        Decoded decoded = TextOf(standard ? ReadStandardInput() : ReadTableFile(cli::PathOf(name)), options.from);
        if (!opened.kind)
            throw Failure(standard ? "種類が分かりません。--kind か --name で指定してください"
                                   : "名前から種類が分かりません。--kind で指定してください");
        opened.text = std::move(decoded.text);
        opened.reading = ReadTable(*opened.kind, opened.text, options.read);
        for (const std::size_t line : decoded.lines)
            opened.reading.errors.Add(line, "シフト JIS にない文字です。「〓」になります");
        return opened;
    } catch (const Failure& failure) {
        throw Failure(opened.name + ": " + failure.what());
    }
}

std::string FindingText(const std::string& file, const Finding& finding) {
    const std::string line = finding.line > 0 ? ":" + std::to_string(finding.line) : "";
    return cli::Printable(file + line + ": " + finding.message);
}

void WarnOfErrors(const OpenedTable& opened) {
    const std::size_t count = opened.reading.errors.Count();
    if (count > 0)
        PrintError(opened.name + ": 誤りのある行が " + std::to_string(count) + " 行あります。check で調べてください");
}

int SaveTable(const std::string& text, const std::string& output, const CommonOptions& options) {
    const std::string bytes = TextModeLines(text);
    if (output == cli::kStandard) {
        cli::Print(bytes);
        return cli::kFine;
    }
    const fs::path path = cli::PathOf(output);
    std::error_code error;
    if (fs::exists(path, error)) {
        if (!options.force) {
            PrintError(output + ": すでにあるので書きません。置き換えてよければ --force を付けてください");
            return cli::kFindings;
        }
        if (!options.noBackup && fs::is_regular_file(path, error)) {
            const auto old = ReadWholeFile(path);
            if (!old || !ReplaceWholeFile(cli::PathOf(output + kBackup), *old))
                throw Failure(output + kBackup + ": 前のファイルの控えを書けません。何も変えていません");
        }
    }
    if (!ReplaceWholeFile(path, bytes))
        throw Failure(output + ": 書けません。前のファイルがあれば、そのまま残っています");
    return cli::kFine;
}

std::string PathInHeader(const TableKind& kind, const std::string& output) {
    return output == cli::kStandard ? std::string(kind.file) : cli::ToCp932(cli::FullName(output));
}

}  // namespace kirotable
