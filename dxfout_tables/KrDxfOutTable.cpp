#include "dxfout_tables/KrDxfOutTable.h"

#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "dxfout_tables/KrDxfOutTbl_TFont.h"
#include "resources/dxfout_tables/KrDxfOutTable.ids.h"

KrDxfOutTable::KrDxfOutTable() : HostDialog(kOutTableDialog) {
    Bind(kNewOutLayerTableButton, BN_CLICKED,
         [this] { KrDxfOutTbl_Layer::Choose(Utility(), Handle(), LayerTableUse::kNew); });
    Bind(kChangeOutLayerTableButton, BN_CLICKED,
         [this] { KrDxfOutTbl_Layer::Choose(Utility(), Handle(), LayerTableUse::kChange); });
    Bind(kOutLineTableButton, BN_CLICKED, [this] { KrDxfOutTbl_Line().DoModal(Handle()); });
    Bind(kOutFontTableButton, BN_CLICKED, [this] { KrDxfOutTbl_TFont(info_).DoModal(Handle()); });
}
