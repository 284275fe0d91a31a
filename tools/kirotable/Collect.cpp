#include <algorithm>
#include <ctime>
#include <set>

#include "Commands.h"
#include "Comparison.h"
#include "NameUse.h"
#include "TableFiles.h"
#include "dxfin_tables/DxfInStyleTable.h"
#include "tools/cli/Console.h"
#include "tools/cli/Text.h"

namespace kirotable {

namespace {

using drawing::NameKind;

// The numbers that are proposed, in order, without those that the table gives already. What comes after the last one
// has that of all that find none free.
class FreeNumbers {
  public:
    FreeNumbers(const NameRole& role, const NameRows& rows) {
        struct Range {
            std::int32_t first, last, otherwise;
        };
        // Line fonts 1 to 4 are the program's own: those of CONTINUOUS, DASHED, CENTER and PHANTOM.
        const Range range = role.names == NameKind::kLayer      ? Range{1, 255, 256}
                            : role.names == NameKind::kLineType ? Range{5, 63, 1}
                                                                : Range{1, 4095, 1};
        next_ = range.first, last_ = range.last, otherwise_ = range.otherwise;
        if (role.names != NameKind::kTextStyle)
            for (const TableRow& row : rows.All()) taken_.insert((*row.values)[1].integer);
    }
    std::int32_t Take() {
        while (next_ <= last_ && taken_.contains(next_)) ++next_;
        return next_ <= last_ ? next_++ : otherwise_;
    }

  private:
    std::set<std::int32_t> taken_;
    std::int32_t next_, last_, otherwise_;
};

std::string Record(const NameRole& role, std::string_view keyword, std::string_view name, FreeNumbers& numbers) {
    const auto& r = kDxfInNewStyle.reals;
    const auto& n = kDxfInNewStyle.ints;
    switch (role.names) {
        case NameKind::kLayer:
            return Formatted("%s %s = %d\n", keyword, name, numbers.Take());
        case NameKind::kLineType:
            return Formatted("%s  %s = %d,%d\n", keyword, name, numbers.Take(), 1);
        case NameKind::kTextStyle:
            return Formatted("STYLE = %s, %g, %d, %g, %g, %g, %d, %d, %g, %g\n", name, r[kStyleR1], n[kStyleI1],
                             r[kStyleR2], r[kStyleR4], r[kStyleR3], n[kStyleI2], n[kStyleI3], r[kStyleR5], r[kStyleR6]);
        case NameKind::kArrow:
            break;
    }
    return Formatted("%s %s = %4d, %3d, %4d\n", keyword, name, numbers.Take(), 0, 300);
}

struct Additions {
    std::string text;
    std::size_t count = 0;
    std::vector<std::string> left;  // why, of names that a table cannot hold
};

Additions AdditionsFor(const NameRole& role, const NameRows& rows, const std::vector<drawing::UsedName>& used) {
    using Fit = drawing::MissingName::Fit;
    Additions add;
    // The first LINE-TYPE of a file takes the place of the default line types: these are to stay.
    const bool defaults =
        std::all_of(rows.All().begin(), rows.All().end(), [](const TableRow& row) { return row.line == 0; });
    FreeNumbers numbers(role, rows);
    const std::size_t room = role.most - std::min(role.most, rows.All().size());
    for (const drawing::MissingName& name : rows.Names().Missing(used, {role.separator, rows.LongestName(), room})) {
        const std::string shown = cli::FromCp932(name.used->name);
        switch (name.fit) {
            case Fit::kUnwritable:
                add.left.push_back(shown + ": テーブルに書けない文字があります");
                break;
            case Fit::kTooLong:
                add.left.push_back(shown + ": 長すぎます");
                break;
            case Fit::kNoRoom:
                add.left.push_back(shown + ": テーブルに入りきりません");
                break;
            case Fit::kFits:
                add.text += Record(role, rows.Keyword(), name.text, numbers), ++add.count;
                break;
        }
    }
    if (add.count == 0 || role.names != NameKind::kLineType || !defaults) return add;
    std::string kept;
    for (const TableRow& row : rows.All())
        kept += Formatted("%s  %s = %d,%d\n", rows.Keyword(), std::string_view(cli::ToCp932((*row.values)[0].text)),
                          (*row.values)[1].integer, (*row.values)[2].integer);
    add.text.insert(0, kept);
    return add;
}

// Before the end that the program writes, or behind all that is read.
std::string Inserted(std::string text, std::string_view more) {
    text.erase(std::find(text.begin(), text.end(), '\x1a'), text.end());
    std::erase(text, '\r');
    if (!text.empty() && !text.ends_with('\n')) text += '\n';
    constexpr std::string_view kEnd = "/\n/ Eof\n";
    text.insert(text.ends_with(kEnd) ? text.size() - kEnd.size() : text.size(), more);
    return text;
}

}  // namespace

int Collect(const std::vector<std::string>& drawings, const std::string& output, const std::string& into,
            const CommonOptions& options) {
    if (output.empty() == into.empty()) throw cli::Failure("-o か --into のどちらかで、書くテーブルを指定してください");
    CommonOptions save = options;
    OpenedTable table = {options.kind, {}, {}, output};
    if (!into.empty()) {
        table = OpenTable(into, options);
        if (table.reading.errors.Count() > 0) {
            WarnOfErrors(table);
            throw cli::Failure(into + ": 誤りのあるテーブルには加えません");
        }
        save.force = true;  // what is there stays
    } else {
        if (!table.kind) table.kind = KindOfFile(cli::PathOf(output));
        if (!table.kind) throw cli::Failure(output + ": 名前から種類が分かりません。--kind で指定してください");
        table.text = ReadTable(*table.kind, {}, options.read)
                         .table->Write({PathInHeader(*table.kind, output), MakeDateText(std::time(nullptr))});
        table.reading = ReadTable(*table.kind, table.text, options.read);
    }
    const NameRole& role = RoleOf(*table.kind);
    const drawing::UsedNames names = NamesOf(drawings, options.euc);
    const NameRows rows(role, table.reading);
    const Additions add = AdditionsFor(role, rows, names.SortedByUse(role.names));
    for (const std::string& name : add.left) cli::PrintError(name);

    const std::string& target = into.empty() ? output : into;
    if (add.count > 0 || into.empty()) {
        const std::string text = Inserted(table.text, add.text);
        const Reading again = ReadTable(*table.kind, text, options.read);
        for (const Change& change : Compare(table.reading.table->View(), again.table->View()))
            if (change.sign != '+')
                throw cli::Failure(target + ": 加えると変わるものがあるので書きません: " + TextOf(change));
        if (const int status = SaveTable(text, target, save)) return status;
    }
    if (target != cli::kStandard)
        cli::Print(target + ": " + role.title + "の名前を " + std::to_string(add.count) + " 件加えました\n");
    return add.left.empty() ? cli::kFine : cli::kFindings;
}

}  // namespace kirotable
