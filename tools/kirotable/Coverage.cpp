#include "Commands.h"
#include "Comparison.h"
#include "JsonOutput.h"
#include "TableFiles.h"
#include "tools/cli/Console.h"
#include "tools/cli/Text.h"

namespace kirotable {

using cli::Print;

namespace {

std::string ValuesOf(const NameCover& cover, const TableRow& row) {
    std::string text;
    for (std::size_t i = 1; i < row.values->size(); ++i)
        text += (i == 1 ? "" : ", ") + std::string(cover.section->columns[i]) + " = " + TextOf((*row.values)[i]);
    if (row.line > 0) text += " (" + std::to_string(row.line) + " 行目)";
    return text;
}

void PrintCover(const std::string& table, std::size_t drawings, const NameRole& role, const NameCover& cover) {
    const auto list = [&](const std::string& title, auto has, auto textOf) {
        std::size_t width = 0, rows = 0;
        for (const NameCover::Name& name : cover.names)
            if (has(name)) width = std::max(width, cli::ColumnsOf(cli::Printable(name.text))), ++rows;
        if (rows == 0) return;
        Print("\n[" + title + "]\n");
        for (const NameCover::Name& name : cover.names) {
            if (!has(name)) continue;
            const std::string count = std::to_string(name.count), text = cli::Printable(name.text);
            const std::string blanks(width - cli::ColumnsOf(text), ' ');
            Print("  " + std::string(count.size() < 8 ? 8 - count.size() : 0, ' ') + count + "  " + text + blanks +
                  textOf(name) + "\n");
        }
    };
    Print(cli::Printable(table) + "  図面 " + std::to_string(drawings) + " 枚の" + role.title + "\n");
    list(
        "割当てのある名前", [](const NameCover::Name& name) { return !name.byDefault; },
        [&](const NameCover::Name& name) { return "  " + ValuesOf(cover, *name.row); });
    list(
        "割当てのない名前", [](const NameCover::Name& name) { return name.byDefault; },
        [&](const NameCover::Name& name) { return name.row ? "  OTHER: " + ValuesOf(cover, *name.row) : ""; });
    if (!cover.unused.empty()) {
        Print("\n[図面で使われていない割当て]\n");
        for (const TableRow* row : cover.unused)
            Print("  " + cli::Printable(TextOf((*row->values)[0])) + "  " + ValuesOf(cover, *row) + "\n");
    }
    Print("\n名前 " + std::to_string(cover.names.size()) + " 件: 割当てあり " +
          std::to_string(cover.names.size() - cover.notCovered) + " 件、割当てなし " +
          std::to_string(cover.notCovered) + " 件。使われていない割当て " + std::to_string(cover.unused.size()) +
          " 件\n");
}

}  // namespace

int Coverage(const std::string& table, const std::vector<std::string>& drawings, const CommonOptions& options) {
    const OpenedTable opened = OpenTable(table, options);
    const NameRole& role = RoleOf(*opened.kind);
    WarnOfErrors(opened);
    const NameRows rows(role, opened.reading);
    const drawing::UsedNames names = NamesOf(drawings, options.euc);
    const NameCover cover = CoverOf(*opened.kind, rows, names.SortedByUse(role.names));
    if (options.json)
        PrintJson(opened.name, drawings, cover);
    else
        PrintCover(opened.name, drawings.size(), role, cover);
    return cover.notCovered > 0 ? cli::kFindings : cli::kFine;
}

}  // namespace kirotable
