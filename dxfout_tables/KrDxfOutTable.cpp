#include "dxfout_tables/KrDxfOutTable.h"

#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "resources/dxfout_tables/KrDxfOutTable.ids.h"

KrDxfOutTable::KrDxfOutTable() : HostDialog(kOutTableDialog) {
    Bind(kNewOutLayerTableButton, BN_CLICKED,
         [this] { KrDxfOutTbl_Layer::Choose(Utility(), Handle(), LayerTableUse::kNew); });
    Bind(kChangeOutLayerTableButton, BN_CLICKED,
         [this] { KrDxfOutTbl_Layer::Choose(Utility(), Handle(), LayerTableUse::kChange); });
}
