#include "tablehub/TableIo.h"

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
    const std::wstring file = kiro::ui::ToWide(path);
    // Whoever still looks at the old list keeps it.
    if (!path.empty() && utility_.Access(nullptr, path.c_str()) == 0) _wunlink(file.c_str());
    list_.OpenErrorList(file);
}

const std::string* TableIo::Load(const std::string& path) {
    if (path.empty()) return nullptr;
    const auto& bytes = known_[path] = ReadWholeFile(kiro::ui::ToWide(path));
    return bytes ? &*bytes : nullptr;
}

void TableIo::TellOfErrors(const std::string& path, const TableWording& wording) const {
    std::string text = "\nテーブルファイル\n" + path + "\nにエラーがあります。\n" + kErrorList;
    if (list_.IsWhole())
        text += " を参照してください。\n";
    else
        text += " に書き込めません。最初のエラーは次のとおりです。\n" + list_.FirstErrors();
    kiro::ui::Tell(owner_, text, wording.caption, kiro::ui::Icon::kError);
}

// A file that is gone is nobody's loss.
bool TableIo::MayReplace(const std::string& path, const TableWording& wording) const {
    const auto known = known_.find(path);
    if (known == known_.end()) return true;
    const auto now = ReadWholeFile(kiro::ui::ToWide(path));
    return !now || now == known->second ||
           kiro::ui::Ask(owner_, path + "\n\nこのファイルは、開いた後に他で変更されています。\n上書きしますか。",
                         wording.caption, kiro::ui::Icon::kWarning, kiro::ui::Default::kNo);
}

bool TableIo::WriteText(const std::string& path, std::string_view text, const TableWording& wording) {
    if (!MayReplace(path, wording)) return false;
    std::string bytes = TextModeLines(text);
    if (!path.empty() && ReplaceWholeFile(kiro::ui::ToWide(path), bytes)) {
        known_[path] = std::move(bytes);
        return true;
    }
    kiro::ui::Tell(owner_, Formatted(wording.cannotWrite, std::string_view(path)), wording.caption);
    return false;
}
