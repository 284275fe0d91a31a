#include "catalogue/DatabaseChoices.h"

#include "catalogue/Openings.h"
#include "catalogue/PelionDrive.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "peliondb/KrPlInDraw1.h"
#include "peliondb/KrPlInDraw2.h"
#include "peliondb/KrPlInDrive.h"
#include "peliondb/KrPlInDrive1.h"
#include "peliondb/KrPlOutDraw.h"
#include "peliondb/KrPlOutParam.h"
#include "varosdb/KrVrOutParam.h"

namespace kiro {
namespace {

constexpr struct {
    const char* drawing;
    const char* model;
} kDrawings[] = {{"PIPE-001", "配管図１"},   {"PIPE-002", "配管図２"},           {"配管図　ソ", "配管図３"},
                 {"ポンプ組立図", "ポンプ"}, {"ケーシング（上）", "CASE-UPPER"}, {"ケーシング（下）", "CASE-LOWER"},
                 {"ﾎﾟﾝﾌﾟ軸", "軸"}};

struct ChoiceData {
    TARNAINFO info{};
    TarnaDrawing more[std::size(kDrawings)]{};  // behind the record's first drawing
    PlOutParamBlock pelion{};
    VrOutParamBlock varos{};
    std::shared_ptr<PelionDrive> drive;
};

using Data = std::shared_ptr<ChoiceData>;

template <class Dialog>
Opening Over(const Data& data) {
    return {[data] { return RunDialog([&] { return Dialog(&data->info); }); }, {}};
}

template <class Dialog, class Block>
Opening OverParameters(const Data& data, Block& params) {
    Opening opening = Over<Dialog>(data);
    data->info.database.dbOutParams = &params;
    params.drawingCapacity = 64;
    params.textHeightRatio = 1;
    params.textWidthRatio = 0.9;
    WriteFixedText(params.group, "KAN1");
    WriteFixedText(params.user, "SUZUKI");
    opening.kept = {BytesOf(params)};
    return opening;
}

}  // namespace

Opening PelionDrives() {
    const auto data = std::make_shared<ChoiceData>();
    data->drive = DemoPelionDrive();
    return Over<KrPlInDrive>(data);
}

Opening PelionUsers() {
    const auto data = std::make_shared<ChoiceData>();
    data->drive = DemoPelionDrive();
    TarnaDatabaseView& info = data->info.database;
    info.plDriveKnown = info.plGroupKnown = info.plSelectSettingMode = 1;
    info.plDrive[0] = PelionDrive::Folder().root_name().string().front();
    WriteFixedText(info.plGroup, "KAN1");
    return Over<KrPlInDrive>(data);
}

Opening PelionFloppy() { return Over<KrPlInDrive1>(std::make_shared<ChoiceData>()); }

namespace {

// A record with the drawings of the demonstration; count: which of its lists they are.
Data WithDrawings(std::int32_t TarnaDatabaseView::*count) {
    const auto data = std::make_shared<ChoiceData>();
    TarnaDrawing* const drawings = data->info.database.dbDrawings;
    for (const auto& drawing : kDrawings) {
        TarnaDrawing& entry = drawings[data->info.database.*count];
        WriteFixedText(entry.drawingName, drawing.drawing);
        WriteFixedText(entry.modelName, drawing.model);
        ++(data->info.database.*count);
    }
    return data;
}

}  // namespace

Opening PelionDrawings() { return Over<KrPlInDraw1>(WithDrawings(&TarnaDatabaseView::dbDrawingCount)); }

Opening PelionDrawingModels() { return Over<KrPlInDraw2>(WithDrawings(&TarnaDatabaseView::dbDrawingCount)); }

Opening PelionModels() {
    const Data data = WithDrawings(&TarnaDatabaseView::dbOutModelCount);
    TarnaDrawing* const models = data->info.database.dbDrawings;
    for (std::size_t i = 0; i < std::size(kDrawings); ++i) {
        WriteFixedText(models[i].modelName, HxEucEncoder::Sjis2Euc(kDrawings[i].model));
        WriteFixedText(models[i].drawingName, "DRAW-" + std::to_string(i + 1));
    }
    data->info.database.dbSelectAllAllowed = 1;
    return Over<KrPlOutDraw>(data);
}

Opening PelionParameters(bool plw) {
    const auto data = std::make_shared<ChoiceData>();
    data->info.database.plwVariant = plw;
    WriteFixedText(data->pelion.drive, "C");
    return OverParameters<KrPlOutParam>(data, data->pelion);
}

Opening VarosParameters() {
    const auto data = std::make_shared<ChoiceData>();
    WriteFixedText(data->varos.labelName, "LABEL1");
    return OverParameters<KrVrOutParam>(data, data->varos);
}

}  // namespace kiro
