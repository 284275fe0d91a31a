#include "dxfin_tables/KrDxfInTable.h"

#include "dxfin_tables/KrDxfInTbl_Arrow.h"
#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "dxfin_tables/KrDxfInTbl_Line.h"
#include "dxfin_tables/KrDxfInTbl_TFont.h"
#include "resources/dxfin_tables/KrDxfInTable.ids.h"

KrDxfInTable::KrDxfInTable() : HostDialog(kInTableDialog) {
    Bind(kNewLayerTableButton, BN_CLICKED,
         [this] { KrDxfInTbl_Layer::Choose(Utility(), Handle(), LayerTableUse::kNew); });
    Bind(kChangeLayerTableButton, BN_CLICKED,
         [this] { KrDxfInTbl_Layer::Choose(Utility(), Handle(), LayerTableUse::kChange); });
    Bind(kLineTableButton, BN_CLICKED, [this] { KrDxfInTbl_Line().DoModal(Handle()); });
    Bind(kFontTableButton, BN_CLICKED, [this] { KrDxfInTbl_TFont().DoModal(Handle()); });
    Bind(kArrowTableButton, BN_CLICKED, [this] { KrDxfInTbl_Arrow().DoModal(Handle()); });
}
