#include "catalogue/Catalogue.h"

#include <algorithm>

#include "catalogue/DatabaseChoices.h"
#include "catalogue/DatabaseOpenings.h"
#include "catalogue/Openings.h"
#include "dxfin_tables/KrDxfInTable.h"
#include "dxfin_tables/KrDxfInTbl_Arrow.h"
#include "dxfin_tables/KrDxfInTbl_CLayer.h"
#include "dxfin_tables/KrDxfInTbl_CWidth.h"
#include "dxfin_tables/KrDxfInTbl_Color.h"
#include "dxfin_tables/KrDxfInTbl_LStyle.h"
#include "dxfin_tables/KrDxfInTbl_LWidth.h"
#include "dxfin_tables/KrDxfInTbl_Line.h"
#include "dxfin_tables/KrDxfInTbl_PWidth.h"
#include "dxfin_tables/KrDxfInTbl_TFont.h"
#include "dxfin_tables/KrDxfInTbl_TFont2.h"
#include "dxfout/KrDxfOutAll.h"
#include "dxfout/KrDxfOutFiles.h"
#include "dxfout_tables/KrDxfOutTbl_Arrow.h"
#include "dxfout_tables/KrDxfOutTbl_CLayer.h"
#include "dxfout_tables/KrDxfOutTbl_Color.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "dxfout_tables/KrDxfOutTbl_PLayer.h"
#include "dxfout_tables/KrDxfOutTbl_TFont2.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirovanteo.h"
#include "model/KrDxfWarning1.h"
#include "resources/catia/KrCatiaIn.ids.h"
#include "resources/catia/KrDxfPass.ids.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAll.ids.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "resources/dxfin/KrDxfInAttrHelp.ids.h"
#include "resources/dxfin/KrDxfInHelp.ids.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/dxfin/KrDxfInParam.ids.h"
#include "resources/dxfin_tables/KrDxfInTable.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Arrow.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_CLayer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_CWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Color.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_LStyle.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_LWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_PWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "resources/dxfout/KrDxfOut.ids.h"
#include "resources/dxfout/KrDxfOutAll.ids.h"
#include "resources/dxfout/KrDxfOutAttr.ids.h"
#include "resources/dxfout/KrDxfOutAttrHelp.ids.h"
#include "resources/dxfout/KrDxfOutFiles.ids.h"
#include "resources/dxfout/KrDxfOutParam.ids.h"
#include "resources/dxfout_tables/KrDxfOutTable.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Arrow.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_CLayer.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Color.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle2.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LWidth.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Layer.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Line.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_PLayer.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_TFont.ids.h"
#include "resources/model/KrDxfLayerName.ids.h"
#include "resources/model/KrDxfLineType.ids.h"
#include "resources/model/KrDxfLineWidth.ids.h"
#include "resources/model/KrDxfWarning1.ids.h"
#include "resources/peliondb/KrPlDraw.ids.h"
#include "resources/peliondb/KrPlIn.ids.h"
#include "resources/peliondb/KrPlInDrive.ids.h"
#include "resources/peliondb/KrPlOut.ids.h"
#include "resources/peliondb/KrPlOutParam.ids.h"
#include "resources/varosdb/KrVrIn.ids.h"
#include "resources/varosdb/KrVrOut.ids.h"
#include "resources/varosdb/KrVrOutParam.ids.h"

namespace kiro {
namespace {

constexpr std::int32_t kNotSet = 1;    // a state word with which the user is asked
constexpr std::int32_t kRefused = -1;  // and one with which the command refuses
constexpr std::int32_t kDirectly = 0;  // and one without a question
constexpr std::int32_t kStandardWidths = 0;
constexpr std::int32_t kFreeWidths = 2;
constexpr bool kToClasses = false;
constexpr bool kToRevisions = true;

template <std::int32_t state>
void AskLayerNames() {
    std::int32_t words[257] = {state};
    DxfLayerNameDialog(0, words);
}
template <std::int32_t state>
void AskLineTypes() {
    std::int32_t words[64] = {state};
    DxfLineTypeDialog(words);
}
template <std::int32_t state>
void AskLineWidths() {
    std::int32_t words[17] = {state};
    DxfLineWidthDialog(0, words);
}
void TellWarning() {
    const auto euc = [](const char* text) { return HxEucEncoder::Sjis2Euc(text); };
    WarningMessageBox(euc("変換できない要素があります。\nエラーリストを確認してください。").c_str(),
                      euc("ＤＸＦ読込み").c_str());
}

const CatalogueDialog kDialogs[] = {
    // The import.
    {"import-dxf", kDxfInDialog, [] { return ImportCommand(false); }},
    {"import-dwg", kDxfInDialog, [] { return ImportCommand(true); }},
    {"import-parameters", kDxfInParamDialog, ImportParameters, kForms},
    {"import-batch", kDxfInAllDialog, ImportBatch},
    {"import-list", kDxfInListDialog, ImportList, kHasGrid},
    {"import-go-on", kDxfInGoOnDialog, ImportGoOn},
    {"import-attributes", kDxfInAttrDialog, ImportAttributes, kForms},
    {"password", kDxfPassDialog, PasswordCommand},
    // The export.
    {"export-dxf", kDxfOutDialog, [] { return ExportCommand(false); }},
    {"export-dwg", kDxfOutDialog, [] { return ExportCommand(true); }},
    {"export-parameters", kDxfOutParamDialog, [] { return ExportParameters(false); }, kForms},
    {"export-parameters-dwg", kDxfOutParamDialog, [] { return ExportParameters(true); }, kForms},
    {"export-batch", kDxfOutAllDialog, OverExport<KrDxfOutAll>},
    {"export-pages", kDxfOutPageDialog, OverExport<KrDxfOutPage>, kLooksAround},
    {"export-pictures", kDxfOutPictureDialog, OverExport<KrDxfOutPicture>, kLooksAround},
    {"export-attributes", kDxfOutAttrDialog, ExportAttributes, kForms},
    // The tables of the import.
    {"table-launcher", kInTableDialog, Plain<KrDxfInTable>},
    {"table-layer", kLayerTableDialog, LayerHub, kReadsFile},
    {"table-layer-classes", kDxfInLayerGridDialog, [] { return EditorOf<KrDxfInTbl_CLayer>(DemoLayers(kToClasses)); },
     kHasGrid},
    {"table-layer-revisions", kDxfInLayerGridDialog,
     [] { return EditorOf<KrDxfInTbl_CLayer>(DemoLayers(kToRevisions)); }, kHasGrid},
    {"table-colors", kDxfInColorGridDialog, [] { return EditorOf<KrDxfInTbl_Color>(DemoLayers(kToClasses)); },
     kHasGrid},
    {"table-color-classes", kDxfInColorGridDialog, [] { return EditorOf<KrDxfInTbl_Color>(DemoLayers(kToRevisions)); },
     kHasGrid},
    {"table-lines", kLineTableDialog, Plain<KrDxfInTbl_Line>, kForms},
    {"table-line-types", kDxfInLineTypeGridDialog, [] { return EditorOf<KrDxfInTbl_LStyle>(DemoLines()); }, kHasGrid},
    {"table-polylines", kDxfInPolyWidthGridDialog, [] { return EditorOf<KrDxfInTbl_PWidth>(DemoLines()); }, kHasGrid},
    {"table-color-widths", kDxfInColorWidthGridDialog, [] { return EditorOf<KrDxfInTbl_CWidth>(DemoLines()); },
     kHasGrid},
    {"table-line-widths", kDxfInLineWidthGridDialog, [] { return EditorOf<KrDxfInTbl_LWidth>(DemoLines()); }, kHasGrid},
    {"table-fonts", kDxfInTextFontDialog, Plain<KrDxfInTbl_TFont>, kHasGrid, L"DXFKIRO_STYLE"},
    {"table-fonts-help", kDxfInTextFontHelpDialog, Plain<KrDxfInTbl_TFont2>},
    {"table-arrows", kDxfInArrowDialog, Plain<KrDxfInTbl_Arrow>, kHasGrid, L"DXFKIRO_ARROW"},
    // The tables of the export.
    {"export-table-launcher", kOutTableDialog, OutTables},
    {"export-table-layer", kOutLayerTableDialog, OutLayerHub, kForms},
    {"export-table-pictures", kDxfOutPictureGridDialog, OutLayerEditor<KrDxfOutTbl_PLayer>, kHasGrid},
    {"export-table-classes", kDxfOutClassGridDialog, OutLayerEditor<KrDxfOutTbl_CLayer>, kHasGrid},
    {"export-table-revisions", kDxfOutClassGridDialog, OutLayerEditor<KrDxfOutTbl_CLayer, kLayerControlRevision>,
     kHasGrid},
    {"export-table-colors", kDxfOutColorGridDialog, OutLayerEditor<KrDxfOutTbl_Color>, kHasGrid},
    {"export-table-arrows", kDxfOutArrowDialog, Plain<KrDxfOutTbl_Arrow>, kHasGrid, L"KIRODXF_ARROW"},
    {"export-table-lines", kDxfOutLineTableDialog, Plain<KrDxfOutTbl_Line>, kForms},
    {"export-table-line-types", kDxfOutLineTypeGridDialog, ExportLineTypes, kHasGrid},
    {"export-table-patterns", kDxfOutPatternGridDialog, ExportPatterns, kHasGrid},
    {"export-table-line-widths", kDxfOutLineWidthGridDialog, ExportLineWidths, kHasGrid},
    {"export-table-fonts", kDxfOutTextFontDialog, ExportTextFonts, kHasGrid, L"KIRODXF_STYLE"},
    {"export-table-fonts-help", kDxfOutTextFontHelpDialog, Plain<KrDxfOutTbl_TFont2>},
    // The databases.
    {"pelion-input", kPlInDialog, [] { return DatabaseInput(DatabaseKind::kPelion); }, kForms},
    {"pelion-input-plw", kPlInDialog, [] { return DatabaseInput(DatabaseKind::kPlw); }, kForms},
    {"pelion-output", kPlOutDialog, [] { return DatabaseOutput(DatabaseKind::kPelion); }, kForms},
    {"pelion-output-plw", kPlOutDialog, [] { return DatabaseOutput(DatabaseKind::kPlw); }, kForms},
    {"varos-input", kVrInDialog, [] { return DatabaseInput(DatabaseKind::kVaros); }, kForms},
    {"varos-output", kVrOutDialog, [] { return DatabaseOutput(DatabaseKind::kVarosFacom); }, kForms},
    // What the commands of the databases open on their way.
    {"pelion-drives", kPlInDriveDialog, PelionDrives, kHasGrid},
    {"pelion-users", kPlInDriveDialog, PelionUsers, kHasGrid},
    {"pelion-floppy", kPlInDrive1Dialog, PelionFloppy, kHasGrid},
    {"pelion-drawings", kPlInDraw1Dialog, PelionDrawings, kHasGrid},
    {"pelion-drawing-models", kPlInDraw2Dialog, PelionDrawingModels, kHasGrid},
    {"pelion-models", kPlOutDrawDialog, PelionModels, kHasGrid},
    {"pelion-parameters", kPlOutParamDialog, [] { return PelionParameters(false); }, kForms},
    {"pelion-parameters-plw", kPlOutParamDialog, [] { return PelionParameters(true); }, kForms},
    {"varos-parameters", kVrOutParamDialog, VarosParameters, kForms},
    // The other commands.
    {"catia-input", kCatiaInDialog,
     [] { return Cleared<CATIAINFO>([](CATIAINFO& info) { return CatiaInputDlg(&info); }); }},
    {"layer-names", kDxfLayerNameDialog, LayerNames, kHasGrid},
    {"line-types", kDxfLineTypeDialog, [] { return LineTypes(kDirectly); }, kHasGrid},
    {"line-types-conversion", kDxfLineTypeDialog, [] { return LineTypes(kNotSet); }, kHasGrid},
    {"line-widths", kDxfLineWidthDialog, [] { return LineWidths(kStandardWidths, kDirectly); }, kHasGrid},
    {"line-widths-conversion", kDxfLineWidthDialog, [] { return LineWidths(kFreeWidths, kNotSet); }, kHasGrid},
    {"conversion-warning", kDxfWarning1Dialog, Plain<KrDxfWarning1>},
    // What commands ask and tell before their dialogs, or without one.
    {"layer-names-question", kNoTemplate, [] { return BoxOf(AskLayerNames<0>); }},
    {"layer-names-error", kNoTemplate, [] { return BoxOf(AskLayerNames<kNotSet>); }},
    {"line-types-question", kNoTemplate, [] { return BoxOf(AskLineTypes<kNotSet>); }},
    {"line-types-error", kNoTemplate, [] { return BoxOf(AskLineTypes<kRefused>); }},
    {"line-widths-question", kNoTemplate, [] { return BoxOf(AskLineWidths<kNotSet>); }},
    {"line-widths-error", kNoTemplate, [] { return BoxOf(AskLineWidths<kRefused>); }},
    {"error-box", kNoTemplate, [] { return BoxOf([] { ErrorMessageBox(1); }); }},
    {"warning-box", kNoTemplate, [] { return BoxOf(TellWarning); }},
};

constexpr Explanation kExplanations[] = {
    {"import-help-type", "import-dxf", kDataTypeZone, kDataTypeHelp},
    {"import-help-mode", "import-dxf", kModeZone, kModeHelp},
    {"import-help-picture", "import-dxf", kPictureZone, kPictureHelp},
    {"import-help-matrix", "import-dxf", kMatrixZone, kMatrixHelp},
    {"import-help-scale", "import-dxf", kScaleZone, kScaleHelp},
    {"attributes-help-layer", "import-attributes", kLayerHelpLabel, kLayerConversionHelp},
    {"attributes-help-line-type", "import-attributes", kLineTypeHelpLabel, kLineTypeConversionHelp},
    {"attributes-help-line-width", "import-attributes", kLineWidthHelpLabel, kLineWidthConversionHelp},
    {"attributes-help-color", "import-attributes", kColorHelpLabel, kColorConversionHelp},
    {"attributes-help-arrow", "import-attributes", kArrowHelpLabel, kArrowConversionHelp},
    {"attributes-help-text-width", "import-attributes", kTextWidthHelpLabel, kTextWidthConversionHelp},
    {"export-attributes-help-layer", "export-attributes", kOutLayerHelpLabel, kOutLayerConversionHelp},
    {"export-attributes-help-color", "export-attributes", kOutColorHelpLabel, kOutColorConversionHelp},
    {"export-attributes-help-line", "export-attributes", kOutLineHelpLabel, kOutLineConversionHelp},
    {"export-attributes-help-font", "export-attributes", kOutFontHelpLabel, kOutFontConversionHelp},
    {"export-attributes-help-arrow", "export-attributes", kOutArrowHelpLabel, kOutArrowConversionHelp},
};

}  // namespace

std::span<const CatalogueDialog> Catalogue() { return kDialogs; }

const CatalogueDialog* FindDialog(std::string_view name) {
    const auto found = std::ranges::find(kDialogs, name, &CatalogueDialog::name);
    return found == std::end(kDialogs) ? nullptr : found;
}

std::span<const Explanation> Explanations() { return kExplanations; }

}  // namespace kiro
