#include "catalogue/DatabaseOpenings.h"

#include "catalogue/Openings.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"

namespace kiro {
namespace {

bool IsPelion(DatabaseKind kind) { return kind == DatabaseKind::kPelion || kind == DatabaseKind::kPlw; }

template <class Block>
void FillParams(Block& params) {
    params.drawingCapacity = 64;
    params.textHeightRatio = 1;
    params.textWidthRatio = 0.9;
    WriteFixedText(params.group, "KAN1");
    WriteFixedText(params.user, "SUZUKI");
}

void FillPages(TarnaDatabaseView& info) {
    const auto name = [](char(&field)[257], const char* text) { WriteFixedText(field, HxEucEncoder::Sjis2Euc(text)); };
    const struct {
        int number;
        int items;
        const char* name;
    } pages[] = {{1, 1, "組立図"}, {2, 1, "部品図　側板"}, {120, 1, "表紙"}},
      pictures[] = {{1, 1240, "全体"}, {2, 86, "側板"}, {200, 7, "ソケット"}};
    for (const auto& page : pages) {
        info.dbPageCounts[page.number - 1] = page.items;
        name(info.dbPageNames[page.number], page.name);
    }
    for (const auto& picture : pictures) {
        info.dbPictureCounts[picture.number - 1] = picture.items;
        name(info.dbPictureNames[picture.number], picture.name);
    }
}

// The windows on the way write what they have to hand on: what the host tells alone stays.
std::span<const std::byte> HostsOwn(const DatabaseData& data) {
    constexpr std::size_t start = offsetof(TarnaDatabaseView, dbPageCounts);
    constexpr std::size_t end = offsetof(TarnaDatabaseView, plFloppyGroupCount);
    return BytesOf(data.info).subspan(start, end - start);
}

template <class Command>
Opening Over(DatabaseKind kind, Command command) {
    const auto data = DemoDatabase(kind);
    return {[data, command] { return Ended(command(&data->info)); }, {HostsOwn(*data)}};
}

}  // namespace

std::shared_ptr<DatabaseData> DemoDatabase(DatabaseKind kind) {
    auto data = std::make_shared<DatabaseData>();
    TarnaDatabaseView& info = data->info.database;
    KiroHostSetDrawingRoom(kDemoDrawings);
    data->drive = DemoPelionDrive();
    info.plwVariant = kind == DatabaseKind::kPlw;
    info.vrFacom = kind == DatabaseKind::kVarosFacom;
    info.dbPicture = 2;
    info.dbActiveListCount = 12;
    info.vrCharSpacing = 0.1;
    info.vrLineSpacing = 1.5;
    WriteFixedText(info.plDrive, "C");
    WriteFixedText(info.plGroup, "KAN1");
    WriteFixedText(info.plUser, "SUZUKI");
    FillPages(info);
    FillParams(data->pelion);
    FillParams(data->varos);
    WriteFixedText(data->pelion.drive, "C");
    WriteFixedText(data->varos.labelName, "LABEL1");
    info.dbOutParams = IsPelion(kind) ? static_cast<void*>(&data->pelion) : &data->varos;
    return data;
}

Opening DatabaseInput(DatabaseKind kind) { return Over(kind, IsPelion(kind) ? PlInputDlg : VrInputDlg); }

Opening DatabaseOutput(DatabaseKind kind) { return Over(kind, IsPelion(kind) ? PlOutputDlg : VrOutputDlg); }

}  // namespace kiro
