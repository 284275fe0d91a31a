#include "TableKind.h"

#include <algorithm>
#include <iterator>

namespace kirotable {

const TableKind kTableKinds[8] = {
    {"dxfin-layer", "DXFKIRO_LAYER", "読込み：レイヤ・色割当", MakeDxfInLayer},
    {"dxfin-line", "DXFKIRO_LINE", "読込み：線種・線幅割当", MakeDxfInLine},
    {"dxfin-style", "DXFKIRO_STYLE", "読込み：文字スタイル割当", MakeDxfInStyle},
    {"dxfin-arrow", "DXFKIRO_ARROW", "読込み：矢印割当", MakeDxfInArrow},
    {"dxfout-layer", "KIRODXF_LAYER", "書込み：レイヤ・色割当", MakeDxfOutLayer},
    {"dxfout-line", "KIRODXF_LINE", "書込み：線種・線幅割当", MakeDxfOutLine},
    {"dxfout-style", "KIRODXF_STYLE", "書込み：文字スタイル割当", MakeDxfOutStyle},
    {"dxfout-arrow", "KIRODXF_ARROW", "書込み：矢印割当", MakeDxfOutArrow},
};

const TableKind* FindKind(std::string_view name) {
    const auto* kind = std::find_if(std::begin(kTableKinds), std::end(kTableKinds),
                                    [name](const TableKind& row) { return row.name == name; });
    return kind == std::end(kTableKinds) ? nullptr : kind;
}

const TableKind* KindOfFile(const std::filesystem::path& path) {
    // Letter case means nothing in the names of files on Windows.
    const auto name = path.filename().native();
    for (const TableKind& kind : kTableKinds) {
        const auto same = [](auto c, char upper) { return c == upper || c == upper - 'A' + 'a'; };
        if (name.size() >= kind.file.size() && std::equal(kind.file.begin(), kind.file.end(), name.begin(),
                                                          [&](char upper, auto c) { return same(c, upper); }))
            return &kind;
    }
    return nullptr;
}

}  // namespace kirotable
