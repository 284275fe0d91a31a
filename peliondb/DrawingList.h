// The record's list of drawings, of which the user marks those that are to be read or written.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "entry/host/TARNAINFO.h"
#include "ui/Grid.h"

class DrawingList : public kiro::ui::HostDialog {
  protected:
    struct Row : kiro::ui::GridRow<3> {};

    // count: how many drawings the record says that it has.
    DrawingList(int templateId, const char* title, kiro::ui::GridColumns columns, TARNAINFO* info, std::int32_t count);

    void OnInit() override;
    void OnOk() override;

    // Fills the row of a drawing but for its number.
    virtual void Show(const TarnaDrawing& drawing, Row& row) const = 0;
    virtual bool Check() { return true; }  // false: the user has been told, and the dialog stays
    // Once every check has passed.
    virtual void Store(TarnaDrawing& drawing, const Row& row, bool marked) const;
    virtual void MarksChanged() { Item<kiro::ui::Button>(IDOK).Enable(AnyMarked()); }

    bool IsMarked(int row) const { return grid_.Control().GetSelectFlag(row) != 0; }
    bool AnyMarked() const;

    const char* title_;
    TarnaDatabaseView& info_;
    kiro::ui::GridRows<Row> rows_;
    kiro::ui::Grid grid_;

  private:
    std::span<TarnaDrawing> drawings_;
};

// What is wrong with a name that the user gives each drawing or model. The messages have %d for the row.
struct DrawingNameRules {
    const char* missing;
    std::size_t longest;  // bytes
    const char* tooLong;
    const char* invalid;
    const char* repeated;  // and %d for the other row
    const char* refusalCaption;
};

// One whose last column is such a name.
class NamedDrawingList : public DrawingList {
  protected:
    NamedDrawingList(int templateId, const char* title, kiro::ui::GridColumns columns, TARNAINFO* info,
                     std::int32_t count, const DrawingNameRules& rules);

    bool Check() override;

    virtual bool IsChecked(int row) const = 0;
    virtual bool HasValidCharacters(const std::string& name) const = 0;

    static constexpr int kNameColumn = 2;

  private:
    void FindRepeated();
    void CheckRow(const kiro::ui::RowCheck& check);
    void CellMoved(int row);

    const DrawingNameRules& rules_;
    std::vector<int> repeated_;  // by row: the next checked row with the same name, or -1
    int row_ = -1;               // that was current when the names were checked last
};
