// Pictures, classes, revisions and colours: what becomes which layer and which colour of a drawing. Opens the editors
// of all lists and owns the file.
#pragma once

#include <cstdint>
#include <memory>

#include "dxfout_tables/DxfOutLayerTable.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "tablehub/LayerTableOpening.h"
#include "tablehub/TableHub.h"
#include "ui/RadioGroup.h"

class KrDxfOutTbl_Layer final : public TableHub {
  public:
    explicit KrDxfOutTbl_Layer(HWND owner);  // of what SetInfo has to tell

    // Before the dialog is shown. Of the table only fileName and noFileRead count: the rest is read from the file, here
    // and now. fullMode 0: layers are made of one kind alone, of revisions with revisionOnly, otherwise of classes.
    void SetInfo(std::int32_t fullMode, std::int32_t revisionOnly, const DxfOutLayerTable* table);

    // The table as it is edited, for the editors of its lists.
    void GetTable(DxfOutLayerTable* table) const { *table = *table_; }
    void SetTable(const DxfOutLayerTable* table) { *table_ = *table; }

    // Lets the user choose a table and opens it, with all choices. The owner is the utility's parent window.
    static void Choose(KrUtility& utility, HWND owner, LayerTableUse use);

  private:
    void Read() override;
    void Show() override;
    bool Write() override { return io_.WriteLayerTable(table_.get()); }

    template <class Editor>
    void Run();
    void RunClasses(DxfOutLayerControl control);

    bool fullMode_ = true;
    bool revisionOnly_ = false;
    std::unique_ptr<DxfOutLayerTable> table_;
    KrDxfOutTbl_IO io_;
    kiro::ui::RadioGroup pages_;     // how drawing pages are converted
    kiro::ui::RadioGroup pictures_;  // and how pictures are
};
