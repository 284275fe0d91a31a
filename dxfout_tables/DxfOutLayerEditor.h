// The grid editor of a list of the layer table. It works on a copy of the table, which the hub gets back when the
// dialog is confirmed. An editor of this kind is data.
#pragma once

#include <memory>
#include <string>

#include "dxfout_tables/DxfOutLayerTable.h"
#include "text/SlotText.h"
#include "ui/GridEditor.h"

class KrDxfOutTbl_Layer;

class DxfOutLayerEditor : public kiro::ui::GridEditor<kiro::ui::GridRow<2>> {
  public:
    void SetInfo(KrDxfOutTbl_Layer* hub);  // before the dialog is shown

    static constexpr int kNumberColumn = 0;
    static constexpr int kTextColumn = 1;

    // How an entry of the list is shown, kept and checked. The first row is entry 1: entry 0 has none.
    struct List {
        kiro::ui::GridForm form;
        std::string (*text)(const DxfOutLayerTable& table, int entry);
        void (*keep)(DxfOutLayerTable& table, int entry, const std::string& text);
        void (*check)(const kiro::ui::RowCheck& check);
    };

  protected:
    explicit DxfOutLayerEditor(const List& list) : GridEditor(list.form), list_(&list) {}

    void Load() override;
    void Dress() override;
    void CheckRow(const kiro::ui::RowCheck& check) override { list_->check(check); }
    void Store() override;

    void Edit(const List& list);  // another one, before it is loaded; of its form the columns count
    DxfOutLayerTable& Table() { return *table_; }

  private:
    const List* list_;
    KrDxfOutTbl_Layer* hub_ = nullptr;
    std::unique_ptr<DxfOutLayerTable> table_;
};

// ---- Lists of layer names ----

inline constexpr kiro::ui::GridColumn DxfOutLayerColumn(double width) {
    return {"レイヤ名", width, 24, "レイヤ名を入力してください"};
}
inline constexpr char kDxfOutLayerBlanks[] = "レイヤ名に空白は使えません %d : %s";

template <auto names, const kiro::ui::GridStorable& storable>
constexpr DxfOutLayerEditor::List DxfOutLayerNames(const kiro::ui::GridForm& form) {
    constexpr int column = DxfOutLayerEditor::kTextColumn;
    return {form, [](const DxfOutLayerTable& table, int entry) { return std::string(SlotText((table.*names)[entry])); },
            [](DxfOutLayerTable& table, int entry, const std::string& text) { StoreText((table.*names)[entry], text); },
            [](const kiro::ui::RowCheck& check) {
                if (check.Given(column, "レイヤ名が入力されていません %d")) check.Storable(column, storable);
            }};
}
