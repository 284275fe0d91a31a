#include "NameUse.h"

#include <algorithm>
#include <iterator>

#include "dxfin_tables/DxfInArrowTable.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/DxfInStyleTable.h"
#include "hostlayer/kirobc/EucCodec.h"
#include "tools/cli/Drawings.h"
#include "tools/cli/Status.h"
#include "tools/cli/Text.h"

namespace kirotable {

namespace {

using drawing::NameKind;

constexpr NameRole kRoles[] = {
    {"dxfin-layer", NameKind::kLayer, "layerClass", "LAYER", kDxfInLongestClassLayer, kDxfInLayerSlots, "=", "レイヤ"},
    {"dxfin-line", NameKind::kLineType, "lineTypes", "LINE-TYPE", kDxfInLongestLineType, kDxfInLineTypes, "=", "線種"},
    {"dxfin-style", NameKind::kTextStyle, "styles", "STYLE", kDxfInLongestStyle, kDxfInStyles, ",", "文字スタイル"},
    {"dxfin-arrow", NameKind::kArrow, "arrows", "ARROW", kDxfInLongestArrow, kDxfInArrows, "=", "矢印"},
};

std::string FromEuc(std::string_view text) { return kirobc::EucToSjis(text); }

}  // namespace

const NameRole& RoleOf(const TableKind& kind) {
    const auto* role =
        std::find_if(std::begin(kRoles), std::end(kRoles), [&](const NameRole& row) { return row.kind == kind.name; });
    if (role == std::end(kRoles))
        throw cli::Failure(std::string(kind.name) + " は書込みのテーブルです。図面の名前は読込みのテーブルで調べます");
    return *role;
}

NameRows::NameRows(const NameRole& role, const Reading& reading)
    : view_(reading.table->View()), keyword_(role.keyword), longest_(role.longest) {
    std::string_view name = role.section;
    if (role.names == NameKind::kLayer && view_.fields[0].second.integer != 0) {
        name = "layerRevision";
        keyword_ = "LAYER-REVISION";
        longest_ = kDxfInLongestRevisionLayer;
    }
    for (const Section& section : view_.sections)
        if (section.name == name) section_ = &section;
    for (const auto& row : section_->rows) {
        const auto line = reading.lines.find(RecordKey(keyword_, cli::ToCp932(row[0].text)));
        rows_.push_back({&row, line == reading.lines.end() ? 0 : line->second});
    }
    std::vector<std::string> names;
    for (const TableRow& row : rows_) names.push_back(cli::ToCp932((*row.values)[0].text));
    names_.emplace(role.names, names);
}

const TableRow* NameRows::Find(std::string_view name) const { return RowAt(names_->Find(name)); }

NameCover CoverOf(const TableKind& kind, const NameRows& rows, const std::vector<drawing::UsedName>& used) {
    NameCover cover = {&kind, &rows.Rows(), {}, {}};
    for (const drawing::UsedName& name : used) {
        const TableRow* row = rows.Find(name.name);
        const bool byDefault = !row || row == rows.Default();
        if (byDefault) row = rows.Default();
        cover.notCovered += byDefault;
        cover.names.push_back({cli::FromCp932(name.name), name.count, row, byDefault});
    }
    for (const std::size_t row : rows.Names().Unused(used))
        if (rows.All()[row].line > 0) cover.unused.push_back(&rows.All()[row]);
    return cover;
}

drawing::UsedNames NamesOf(const std::vector<std::string>& drawings, bool euc) {
    const drawing::NameConversion conversion = {cli::ToCp932Escaped, euc ? FromEuc : nullptr};
    drawing::UsedNames names;
    for (const std::string& file : drawings) {
        cli::FileSource source;
        drawing::Result result = source.Open(file);
        if (result == drawing::kDone) result = names.Add(source, conversion);
        if (result != drawing::kDone) throw cli::Failure(file + ": " + cli::TextOf(result));
    }
    return names;
}

}  // namespace kirotable
