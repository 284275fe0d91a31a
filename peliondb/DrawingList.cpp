#include "peliondb/DrawingList.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "resources/grid.ids.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr int kNumberColumn = 0;
constexpr std::int32_t kChosen = 1;

bool IsWritable(const MEMORY_BASIC_INFORMATION& pages) {
    constexpr DWORD kWritable = PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return pages.State == MEM_COMMIT && (pages.Protect & kWritable) && !(pages.Protect & PAGE_GUARD);
}

// How many drawings, of so many at most, lie in memory of the host's: a count in a record may be anything.
std::size_t DrawingsInMemory(const TarnaDrawing* first, std::size_t most) {
    const auto* const begin = reinterpret_cast<const char*>(first);
    const char* const wanted = begin + most * sizeof *first;
    const char* end = begin;
    MEMORY_BASIC_INFORMATION pages{};
    while (end < wanted && VirtualQuery(end, &pages, sizeof pages) && IsWritable(pages))
        end = static_cast<const char*>(pages.BaseAddress) + pages.RegionSize;
    return static_cast<std::size_t>(std::min(end, wanted) - begin) / sizeof *first;
}

std::span<TarnaDrawing> DrawingsOf(TarnaDatabaseView& info, std::int32_t count) {
    const auto most = static_cast<std::size_t>(std::clamp<std::int32_t>(count, 0, kMostDatabaseDrawings));
    return {info.dbDrawings, DrawingsInMemory(info.dbDrawings, most)};
}

}  // namespace

// ---- Marks ----

DrawingList::DrawingList(int templateId, const char* title, kiro::ui::GridColumns columns, TARNAINFO* info,
                         std::int32_t count)
    : HostDialog(templateId),
      title_(title),
      info_(info->database),
      grid_(*this, kGrid, columns, rows_),
      drawings_(DrawingsOf(info_, count)) {
    grid_.NumberRows();
    grid_.OnMarked([this] { MarksChanged(); });
}

void DrawingList::OnInit() {
    InitUtility();
    Utility().SetCaption(title_);
    for (const TarnaDrawing& drawing : drawings_) {
        Row row;
        Show(drawing, row);
        rows_.Add(std::move(row));
    }
    grid_.Init(rows_.Count(), kKrSelectMultiple);
    if (rows_.Count() > 0) grid_.GoTo(0, grid_.FirstColumnToEdit(0));
    MarksChanged();
}

bool DrawingList::AnyMarked() const {
    for (int row = 0; row < rows_.Count(); ++row) {
        if (IsMarked(row)) return true;
    }
    return false;
}

// A drawing that is not marked is left as the host has filled it.
void DrawingList::Store(TarnaDrawing& drawing, const Row&, bool marked) const {
    if (marked) drawing.selected = kChosen;
}

void DrawingList::OnOk() {
    if (!grid_.EndEdit() || !AnyMarked() || !Check()) return;
    for (int row = 0; row < rows_.Count(); ++row)
        Store(drawings_[static_cast<std::size_t>(row)], rows_[row], IsMarked(row));
    End(IDOK);
}

// ---- Names ----

NamedDrawingList::NamedDrawingList(int templateId, const char* title, kiro::ui::GridColumns columns, TARNAINFO* info,
                                   std::int32_t count, const DrawingNameRules& rules)
    : DrawingList(templateId, title, columns, info, count), rules_(rules) {
    grid_.CheckRowsWith([this](const kiro::ui::RowCheck& check) { CheckRow(check); }, [this] { FindRepeated(); });
    grid_.OnCellMoved([this](int row, int) { CellMoved(row); });
}

void NamedDrawingList::FindRepeated() {
    repeated_.assign(static_cast<std::size_t>(rows_.Count()), -1);
    std::unordered_map<std::string_view, int> nearest;
    for (int row = rows_.Count() - 1; row >= 0; --row) {
        if (!IsChecked(row)) continue;
        const auto [found, isNew] = nearest.try_emplace(rows_[row][kNameColumn], row);
        if (!isNew) repeated_[static_cast<std::size_t>(row)] = std::exchange(found->second, row);
    }
}

void NamedDrawingList::CheckRow(const kiro::ui::RowCheck& check) {
    check.Pass(kNameColumn);
    const int row = check.Row();
    if (!IsChecked(row) || !check.Given(kNameColumn, rules_.missing)) return;
    const std::string& name = check.Text(kNameColumn);
    const int same = repeated_[static_cast<std::size_t>(row)];
    if (name.size() > rules_.longest) {
        check.Fail(kNameColumn, Formatted(rules_.tooLong, row + 1));
    } else if (!HasValidCharacters(name)) {
        check.Fail(kNameColumn, Formatted(rules_.invalid, row + 1));
    } else if (same >= 0) {
        check.Fail(kNameColumn, Formatted(rules_.repeated, row + 1, same + 1));
        kiro::ui::RowCheck(grid_, same).Note(kNameColumn, "");
    }
}

void NamedDrawingList::CellMoved(int row) {
    if (std::exchange(row_, row) == row) return;
    grid_.Changed();  // which rows are marked may be other ones
    if (!grid_.Check()) grid_.ShowFault();
}

bool NamedDrawingList::Check() {
    grid_.Changed();
    if (grid_.Check()) return true;
    grid_.ShowFault();
    kiro::ui::Tell(Handle(), "設定内容に誤りがあります。", rules_.refusalCaption);
    row_ = grid_.Faults().front().row;
    grid_.GoTo(row_, kNameColumn);
    grid_.ShowFault();
    return false;
}
