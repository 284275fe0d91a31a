#include "dxfin_tables/RowsFromDrawing.h"

#include <fcntl.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "drawing/ByteSource.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "text/SlotText.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"
#include "ui/Text.h"
#include "ui/WaitCursor.h"

namespace {

constexpr char kKey[] = "#DXF#";

class HostSource final : public ByteSource {
  public:
    bool Open(const std::string& path) { return file_.Open(path, _O_RDONLY | _O_BINARY, 0); }
    int Read(char* buffer, unsigned size) override { return file_.Read(buffer, size); }

  private:
    HxFileIO file_;
};

// What code page 932 lacks becomes "\U+XXXX".
std::string FromUtf8(std::string_view text) {
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                             wide.data(), static_cast<int>(wide.size()))));
    std::string name;
    for (std::wstring_view rest = wide; !rest.empty();) {
        const std::wstring_view foreign = kiro::ui::FirstForeignCharacter(rest);
        const std::size_t known =
            foreign.empty() ? rest.size() : static_cast<std::size_t>(foreign.data() - rest.data());
        name += kiro::ui::ToSjis(rest.substr(0, known)).value_or("");
        rest.remove_prefix(known + foreign.size());
        if (foreign.empty()) break;
        unsigned value = foreign[0];
        if (foreign.size() == 2) value = 0x10000 + ((value & 0x3FFu) << 10) + (foreign[1] & 0x3FFu);
        char escape[16];
        std::snprintf(escape, sizeof escape, "\\U+%04X", value);
        name += escape;
    }
    return name;
}

// Drawings before 2007 say nothing of their characters, so that names may be no text at all.
bool IsText(const std::string& name) {
    const std::wstring wide = kiro::ui::ToWide(name);
    return std::none_of(wide.begin(), wide.end(), [](wchar_t unit) { return unit < L' ' || unit == 0xFFFD; });
}

std::string RealPath(KrUtility& utility, std::string path) {
    path.resize(kKrPathSize);
    return utility.RealPathName(kKey, path.data(), kKrPathSize) ? path.c_str() : std::string();
}

}  // namespace

RowsFromDrawing::RowsFromDrawing(kiro::ui::HostDialog& dialog, kiro::ui::Grid& grid, const char* caption,
                                 const Names& names, std::string drawing)
    : dialog_(dialog), grid_(grid), caption_(caption), names_(names), drawing_(std::move(drawing)) {
    grid_.OfferUsedNames([this] { Add(); });
}

void RowsFromDrawing::Add() {
    const bool named = !drawing_.empty() && HostSource().Open(drawing_);
    const std::string path = named ? drawing_ : Choose();
    if (!path.empty())
        if (auto used = NamesIn(path)) AddRows(RealPath(dialog_.Utility(), path), std::move(*used));
    SetFocus(grid_.List());
}

std::string RowsFromDrawing::Choose() const {
    KrUtility& utility = dialog_.Utility();
    utility.SetKeyword(kKey);
    utility.SetComment("ＤＸＦファイル");
    utility.SetWildcard("*.dxf");
    return utility.FileDialog(kKrChooseExisting) ? KrInternalPath(utility, kKey, utility.GetFileName()) : "";
}

std::optional<std::vector<drawing::UsedName>> RowsFromDrawing::NamesIn(const std::string& path) const {
    drawing::UsedNames names;
    int result = kDxfCannotOpen;
    {
        const kiro::ui::WaitCursor cursor;
        HostSource source;
        if (source.Open(path)) result = names.Add(source, {FromUtf8});
    }
    if (result == drawing::kDone) return names.SortedByUse(names_.kind);
    char reason[kKrTextSize];
    dialog_.Utility().GetMessageText(-result, reason, sizeof reason);
    const std::string file = RealPath(dialog_.Utility(), path);
    kiro::ui::Tell(dialog_.Handle(), file + "\n\n" + reason + "\n行は追加していません。", caption_);
    return std::nullopt;
}

void RowsFromDrawing::AddRows(const std::string& file, std::vector<drawing::UsedName> used) {
    using Fit = drawing::MissingName::Fit;
    std::vector<std::string> rows;
    for (int row = 0; row < grid_.Rows(); ++row) rows.push_back(grid_.TextAt(row, names_.column));
    const drawing::TableNames table(names_.kind, rows);
    const auto noText = static_cast<int>(std::erase_if(used, [](const auto& name) { return !IsText(name.name); }));

    const auto room = static_cast<std::size_t>(grid_.Control().GetRoom());
    std::vector<std::string> added;
    int unwritable = noText;
    int lost = 0;
    for (drawing::MissingName& name :
         table.Missing(used, {names_.storable.separators, names_.storable.longest, room})) {
        if (name.fit == Fit::kFits)
            added.push_back(std::move(name.text));
        else
            ++(name.fit == Fit::kNoRoom ? lost : unwritable);
    }
    std::vector<int> unused;
    for (const std::size_t row : table.Unused(used))
        if (!rows[row].empty()) unused.push_back(static_cast<int>(row));

    if (!added.empty()) grid_.AddNames(names_.column, added);
    grid_.Fade(unused);
    std::string text(FileNameOf(file));
    text += added.empty() ? "：追加する名前はありません。"
                          : Formatted("：%d 行を追加しました。", static_cast<int>(added.size()));
    if (unwritable > 0) text += Formatted("書けない名前 %d 件は除きました。", unwritable);
    if (lost > 0) text += Formatted("表に入らない名前が %d 件あります。", lost);
    if (!unused.empty()) text += Formatted("灰色の %d 行は図面にありません。", static_cast<int>(unused.size()));
    grid_.Control().MessageText(text.c_str());
}
