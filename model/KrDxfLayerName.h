// The names of the model's layers: of its classes or its revisions.
#pragma once

#include <cstdint>

#include "model/ModelNames.h"
#include "ui/Grid.h"

typedef struct HxNameList HxNameList;

struct LayerNameRow : kiro::ui::GridRow<2> {
    int number = 0;
    OpenedName name;
};

class KrDxfLayerName final : public kiro::ui::HostDialog {
  public:
    // layers: the 257 words of the command, which are read only; those of the layers that are used are 1.
    KrDxfLayerName(bool revisions, const std::int32_t* layers);

  private:
    void OnInit() override;
    void OnOk() override;

    HxNameList* Names() const;
    void NumberFrom(int first);
    void Restore();
    bool Check();
    bool IsRepeated(int row) const;

    bool revisions_;
    kiro::ui::GridRows<LayerNameRow> rows_;
    kiro::ui::Grid grid_;
};
