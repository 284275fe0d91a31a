#include "tablehub/TableIo.h"

#include "tables/FileReplace.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"
#include "ui/Text.h"

namespace {

constexpr char kErrorList[] = "DXF_Interface.lis";

}  // namespace

std::string TablePath(KrUtility& utility, const char* key, std::string_view name) {
    std::string path = KrInternalPath(utility, key, std::string(name));
    if (path.empty()) return {};
    path.resize(kKrPathSize);
    if (!utility.RealPathName(key, path.data(), kKrPathSize)) return {};
    path.resize(path.find('\0'));
    return path;
}

void TableIo::OpenErrorList() {
    const std::string path = TablePath(utility_, "", kErrorList);
    if (path.empty()) return;
    const std::wstring file = kiro::ui::ToWide(path);
    // Whoever still looks at the old list keeps it.
    if (utility_.Access(nullptr, path.c_str()) == 0) _wunlink(file.c_str());
    list_.reset(_wfopen(file.c_str(), L"w"));
}

void TableIo::PrintErrorList(std::string_view text) {
    if (!list_) return;
    std::fwrite(text.data(), 1, text.size(), list_.get());
    std::fflush(list_.get());
}

bool TableIo::ReadBytes(const std::string& path, std::string& bytes) {
    if (path.empty()) return false;
    auto read = ReadWholeFile(kiro::ui::ToWide(path));
    if (read) bytes = std::move(*read);
    return read.has_value();
}

void TableIo::TellOfErrors(const std::string& path, const TableWording& wording) const {
    std::string text = "\nテーブルファイル\n";
    text += path;
    text += "\nにエラーがあります。\n";
    text += kErrorList;
    text += " を参照してください。\n";
    kiro::ui::Tell(owner_, text, wording.caption, kiro::ui::Icon::kError);
}

bool TableIo::WriteTable(const std::string& path, std::string_view text, const TableWording& wording) {
    if (!path.empty() && ReplaceWholeFile(kiro::ui::ToWide(path), TextModeLines(text))) return true;
    std::string message;
    AppendFormat(message, wording.cannotWrite, {std::string_view(path)});
    kiro::ui::Tell(owner_, message, wording.caption);
    return false;
}

std::string TableIo::MakeDateText(std::time_t time) {
    const std::tm* local = std::localtime(&time);
    char text[32] = "";
    if (local) std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", local);
    return text;
}
