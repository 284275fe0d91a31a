// The fields of the records, as entry/host has them.
#include <cstddef>
#include <type_traits>

#include "RecordJson.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"

namespace kiro {
namespace {

constexpr std::size_t kPatternSlot = offsetof(TarnaDatabaseView, patternSlot);

template <class T>
constexpr FieldKind NumberKind() {
    static_assert(std::is_same_v<T, std::int32_t> || std::is_same_v<T, double>);
    return std::is_same_v<T, double> ? FieldKind::kReal : FieldKind::kInteger;
}

#define NUMBER(view, field) \
    { #field, offsetof(view, field), NumberKind < decltype(view::field)>(), sizeof(view::field) }
#define EUC(view, field) \
    { #field, offsetof(view, field), FieldKind::kEuc, sizeof(view::field) }
#define SHIFT_JIS(view, field) \
    { #field, offsetof(view, field), FieldKind::kShiftJis, sizeof(view::field) }
#define NUMBERED(view, field, kind, first)                                      \
    {                                                                           \
#field, offsetof(view, field), FieldKind::kind, sizeof(view::field[0]), \
            std::extent_v < decltype(view::field)>, first                       \
    }

constexpr Field kImportFields[] = {
    NUMBER(TarnaImportView, inputIsDwg),    NUMBER(TarnaImportView, inputStatus),
    NUMBER(TarnaImportView, addMode),       NUMBER(TarnaImportView, dataType),
    NUMBER(TarnaImportView, pictureNumber), NUMBER(TarnaImportView, pictureMatrix),
    NUMBER(TarnaImportView, scale),         EUC(TarnaImportView, inputFileName),
    EUC(TarnaImportView, subModelName),     EUC(TarnaImportView, layerTableFileName),
    SHIFT_JIS(TarnaImportView, password),
};

constexpr Field kExportFields[] = {
    NUMBER(TarnaExportView, outputIsDwg),     NUMBER(TarnaExportView, mediaKind),
    NUMBER(TarnaExportView, pictureMode),     NUMBER(TarnaExportView, pictureNumber),
    NUMBER(TarnaExportView, drawingNumber),   EUC(TarnaExportView, outputFileName),
    EUC(TarnaExportView, layerTableFileName),
};

constexpr Field kPelionInputFields[] = {EUC(TarnaDatabaseView, dbFileName), EUC(TarnaDatabaseView, dbSubModelName)};

constexpr Field kVarosInputFields[] = {EUC(TarnaDatabaseView, dbFileName),
                                       SHIFT_JIS(TarnaDatabaseView, dbSubModelName)};

// The fields of the slot that only output has.
constexpr Field kDatabaseOutputFields[] = {
    {"dbFileName", kPatternSlot + offsetof(TarnaModelPatternSlot, dbOutFileName), FieldKind::kEuc,
     sizeof TarnaModelPatternSlot::dbOutFileName},
    {"dbModelPattern", kPatternSlot + offsetof(TarnaModelPatternSlot, dbModelPattern), FieldKind::kShiftJis,
     sizeof TarnaModelPatternSlot::dbModelPattern},
    EUC(TarnaDatabaseView, dbSubModelName),
};

constexpr Field kDatabaseFields[] = {
    SHIFT_JIS(TarnaDatabaseView, dbInputView),
    NUMBER(TarnaDatabaseView, plDriveKnown),
    NUMBER(TarnaDatabaseView, plGroupKnown),
    NUMBER(TarnaDatabaseView, plSelectSettingMode),
    SHIFT_JIS(TarnaDatabaseView, plDrive),
    SHIFT_JIS(TarnaDatabaseView, plGroup),
    SHIFT_JIS(TarnaDatabaseView, plUser),
    SHIFT_JIS(TarnaDatabaseView, dbDrawingName),
    NUMBER(TarnaDatabaseView, plwVariant),
    NUMBER(TarnaDatabaseView, vrFacom),
    NUMBER(TarnaDatabaseView, dbSource),
    NUMBER(TarnaDatabaseView, dbMode),
    NUMBER(TarnaDatabaseView, dbModelByName),
    NUMBER(TarnaDatabaseView, dbOutPage),
    NUMBER(TarnaDatabaseView, dbPicture),
    NUMBER(TarnaDatabaseView, plSymbolMode),
    NUMBER(TarnaDatabaseView, dbFromActiveList),
    NUMBER(TarnaDatabaseView, dbActiveListCount),
    NUMBER(TarnaDatabaseView, dbNoErrorOutput),
    NUMBER(TarnaDatabaseView, vrCharSpacing),
    NUMBER(TarnaDatabaseView, vrLineSpacing),
    // The counts begin with page and picture 1, the names have an unused slot 0.
    NUMBERED(TarnaDatabaseView, dbPageCounts, kInteger, 1),
    NUMBERED(TarnaDatabaseView, dbPageNames, kEuc, 0),
    NUMBERED(TarnaDatabaseView, dbPictureCounts, kInteger, 1),
    NUMBERED(TarnaDatabaseView, dbPictureNames, kEuc, 0),
    NUMBER(TarnaDatabaseView, plFloppyGroupCount),
    NUMBERED(TarnaDatabaseView, plFloppyGroups, kShiftJis, 0),
    NUMBER(TarnaDatabaseView, plFloppyUserCount),
    NUMBERED(TarnaDatabaseView, plFloppyUsers, kShiftJis, 0),
    NUMBER(TarnaDatabaseView, dbDrawingCount),
    NUMBER(TarnaDatabaseView, dbOutModelCount),
    NUMBER(TarnaDatabaseView, dbSelectAllAllowed),
};

constexpr Field kCatiaFields[] = {
    NUMBER(CATIAINFO, addMode),
    NUMBER(CATIAINFO, pictureNumber),
    NUMBER(CATIAINFO, convertHidden),
    EUC(CATIAINFO, fileName),
};

constexpr Field kDxfInFields[] = {
    {"words", 0, FieldKind::kInteger, sizeof(std::int32_t), kDxfInParamWords, 0, true},
    NUMBER(DxfInParamBlock, kanjiCode),
    NUMBER(DxfInParamBlock, fill),
    NUMBER(DxfInParamBlock, dimension),
    NUMBER(DxfInParamBlock, textAngle),
    NUMBER(DxfInParamBlock, dimensionAngle),
    NUMBER(DxfInParamBlock, splitItemCount),
    NUMBER(DxfInParamBlock, maxItemCount),
    NUMBER(DxfInParamBlock, reserved7),
    NUMBER(DxfInParamBlock, roundingDigits),
    NUMBER(DxfInParamBlock, angleDigits),
    NUMBER(DxfInParamBlock, convertHidden),
    NUMBER(DxfInParamBlock, viewZone),
    NUMBER(DxfInParamBlock, singleRounding),
    NUMBER(DxfInParamBlock, blockData),
    NUMBER(DxfInParamBlock, symbolOverwrite),
    NUMBER(DxfInParamBlock, paperSpaceTarget),
    NUMBER(DxfInParamBlock, lineBreaks),
    NUMBER(DxfInParamBlock, layerConversion),
    NUMBER(DxfInParamBlock, convertLayerNames),
    NUMBER(DxfInParamBlock, lineTypeConversion),
    NUMBER(DxfInParamBlock, lineWidthConversion),
    NUMBER(DxfInParamBlock, defaultLineWeight),
    NUMBER(DxfInParamBlock, colorConversion),
    NUMBER(DxfInParamBlock, arrowConversion),
    NUMBER(DxfInParamBlock, fontTablePresent),
    NUMBER(DxfInParamBlock, textWidthConversion),
    NUMBER(DxfInParamBlock, layerTarget),
};

constexpr Field kDxfOutFields[] = {
    NUMBER(DxfOutParamBlock, pidAvailable),    NUMBER(DxfOutParamBlock, pidConvert),
    NUMBER(DxfOutParamBlock, outputVersion),   NUMBER(DxfOutParamBlock, binaryFormat),
    NUMBER(DxfOutParamBlock, kanjiCode),       NUMBER(DxfOutParamBlock, modelCoordinates),
    NUMBER(DxfOutParamBlock, curveExpand),     NUMBER(DxfOutParamBlock, hiddenSkip),
    NUMBER(DxfOutParamBlock, textTwoPoints),   NUMBER(DxfOutParamBlock, annotationPerChar),
    NUMBER(DxfOutParamBlock, curveDivision),   NUMBER(DxfOutParamBlock, submodelExpand),
    NUMBER(DxfOutParamBlock, symbolExpand),    NUMBER(DxfOutParamBlock, useSymbolName),
    NUMBER(DxfOutParamBlock, markExpand),      NUMBER(DxfOutParamBlock, fcsExpand),
    NUMBER(DxfOutParamBlock, compositeExpand), NUMBER(DxfOutParamBlock, hatchExpand),
    NUMBER(DxfOutParamBlock, dimensionExpand), SHIFT_JIS(DxfOutParamBlock, submodelBlock),
    SHIFT_JIS(DxfOutParamBlock, symbolBlock),  SHIFT_JIS(DxfOutParamBlock, markBlock),
    SHIFT_JIS(DxfOutParamBlock, fcsBlock),     SHIFT_JIS(DxfOutParamBlock, compositeBlock),
    SHIFT_JIS(DxfOutParamBlock, hatchBlock),   SHIFT_JIS(DxfOutParamBlock, dimensionBlock),
};

constexpr Field kPlOutFields[] = {
    NUMBER(PlOutParamBlock, version),
    NUMBER(PlOutParamBlock, doublePrecision),
    NUMBER(PlOutParamBlock, symbolsAsSymbols),
    NUMBER(PlOutParamBlock, frameMode),
    NUMBER(PlOutParamBlock, detailMode),
    NUMBER(PlOutParamBlock, convertOverlays),
    NUMBER(PlOutParamBlock, skipHiddenItems),
    NUMBER(PlOutParamBlock, mergeViews),
    NUMBER(PlOutParamBlock, drawingCapacity),
    NUMBER(PlOutParamBlock, textHeightRatio),
    NUMBER(PlOutParamBlock, textWidthRatio),
    EUC(PlOutParamBlock, drive),
    EUC(PlOutParamBlock, group),
    EUC(PlOutParamBlock, user),
};

constexpr Field kVrOutFields[] = {
    NUMBER(VrOutParamBlock, symbolsAsSymbols),
    NUMBER(VrOutParamBlock, frameMode),
    NUMBER(VrOutParamBlock, skipDetails),
    NUMBER(VrOutParamBlock, skipOverlays),
    NUMBER(VrOutParamBlock, skipHiddenItems),
    NUMBER(VrOutParamBlock, mergeViews),
    NUMBER(VrOutParamBlock, drawingCapacity),
    NUMBER(VrOutParamBlock, textHeightRatio),
    NUMBER(VrOutParamBlock, textWidthRatio),
    EUC(VrOutParamBlock, labelName),
    EUC(VrOutParamBlock, group),
    EUC(VrOutParamBlock, user),
};

}  // namespace

const RecordView kImportView{"TarnaImportView", kImportFields};
const RecordView kExportView{"TarnaExportView", kExportFields};
const RecordView kDatabaseInputView{"TarnaDatabaseView", kPelionInputFields, kDatabaseFields, Drawings::kToRead};
const RecordView kVarosInputView{"TarnaDatabaseView", kVarosInputFields, kDatabaseFields, Drawings::kToRead};
const RecordView kDatabaseOutputView{"TarnaDatabaseView", kDatabaseOutputFields, kDatabaseFields, Drawings::kToWrite};
const RecordView kCatiaView{"CATIAINFO", kCatiaFields};
const RecordView kDxfInParams{"DxfInParamBlock", kDxfInFields};
const RecordView kDxfOutParams{"DxfOutParamBlock", kDxfOutFields};
const RecordView kPlOutParams{"PlOutParamBlock", kPlOutFields};
const RecordView kVrOutParams{"VrOutParamBlock", kVrOutFields};

}  // namespace kiro
