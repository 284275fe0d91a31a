#include "model/KrDxfLayerName.h"

#include "entry/host/kirocontrol.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "model/ModelGrid.h"
#include "resources/grid.ids.h"
#include "resources/model/KrDxfLayerName.ids.h"

using kiro::ui::RowCheck;

namespace {

enum Column { kNumberColumn, kNameColumn };

constexpr kiro::ui::GridColumn kColumns[] = {{"番号", 1.0}, {"名前", 9.0, 256, "名前を入力して下さい"}};
constexpr std::int32_t kUsed = 1;

}  // namespace

KrDxfLayerName::KrDxfLayerName(bool revisions, const std::int32_t* layers)
    : HostDialog(kDxfLayerNameDialog), revisions_(revisions), grid_(*this, kGrid, kColumns, rows_) {
    for (int number = 1; number <= kHxListNames; ++number) {
        if (layers[number] != kUsed) continue;
        LayerNameRow row;
        row.number = number;
        row[kNumberColumn] = std::to_string(number);
        row[kNameColumn] = row.name.Open(HxNameListGetName(Names(), number));
        rows_.Add(std::move(row));
    }
    Bind(kNamesFromZeroButton, BN_CLICKED, [this] { NumberFrom(0); });
    Bind(kNamesFromOneButton, BN_CLICKED, [this] { NumberFrom(1); });
    On(kRestoreLayerNamesButton, BN_CLICKED, &KrDxfLayerName::Restore);
    grid_.OnCellChanged([this](int row, int) { grid_.Control().SetErrorFlag(row, kNumberColumn, 0); });
}

HxNameList* KrDxfLayerName::Names() const {
    HxModel* const model = GetActiveModel();
    return revisions_ ? HxModelGetRevisionNameList(model) : HxModelGetClassNameList(model);
}

void KrDxfLayerName::OnInit() {
    InitUtility();
    grid_.Init(kHxListNames);
    if (rows_.Count() > 0) grid_.GoTo(0, kNameColumn);
}

// By the place of the row, whatever the layer's number.
void KrDxfLayerName::NumberFrom(int first) {
    if (!grid_.EndEdit()) return;
    ClearMarks(grid_);
    for (int row = 0; row < rows_.Count(); ++row) grid_.SetTextAt(row, kNameColumn, std::to_string(first + row));
    BackToGrid(grid_);
}

void KrDxfLayerName::Restore() {
    if (!grid_.EndEdit()) return;
    ClearMarks(grid_);
    for (int row = 0; row < rows_.Count(); ++row) {
        LayerNameRow& layer = rows_[row];
        grid_.SetTextAt(row, kNameColumn, layer.name.Open(HxNameListGetName(Names(), layer.number)));
    }
    BackToGrid(grid_);
}

bool KrDxfLayerName::IsRepeated(int row) const {
    for (int above = 0; above < row; ++above)
        if (dxfstrcmp(rows_[above][kNameColumn].c_str(), rows_[row][kNameColumn].c_str()) == 0) return true;
    return false;
}

bool KrDxfLayerName::Check() {
    return CheckModelGrid(grid_, "名前が入力されていません",
                          [](const RowCheck& check) {
                              if (check.Text(kNameColumn).empty()) check.Note(kNumberColumn, "");
                          }) &&
           CheckModelGrid(grid_, "名前が重複しています",
                          [this](const RowCheck& check) {
                              if (IsRepeated(check.Row())) check.Note(kNameColumn, "");
                          }) &&
           CheckModelGrid(grid_, kNameTooLong, [this](const RowCheck& check) {
               if (!rows_[check.Row()].name.HasRoom(check.Text(kNameColumn))) check.Note(kNameColumn, "");
           });
}

void KrDxfLayerName::OnOk() {
    if (!grid_.EndEdit() || !Check()) return;
    for (const LayerNameRow& row : rows_)
        HxNameListSetName(Names(), row.number, row.name.Stored(row[kNameColumn]).c_str());
    End(IDOK);
}
