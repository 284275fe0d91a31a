// The drawings that a database has, listed in the record for the user, and those that the user has chosen.
#include <algorithm>
#include <cstdio>
#include <string>

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/DrawingFiles.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kirocontrol/CallNote.h"

namespace {

constexpr int kFailure = -1;
constexpr int kNoDrawings = -1;
constexpr int kPlainList = 0;
constexpr int kWithModelNames = 1;

constexpr int kNewMode = 0;
constexpr int kFloppy = 2;                     // dbSource
constexpr std::size_t kLongestModelName = 32;  // bytes

// The database that is on no drive which the user chooses.
std::wstring DefaultDatabase() {
    const auto folder = kirobc::FolderOfKey("#TARNA:DB#", false);
    return folder ? kirobc::JoinPath(*folder, L"PELION.DB") : std::wstring();
}

std::optional<kirobc::Names> PelionDrawings(const TarnaDatabaseView& info) {
    using kirobc::PelionPlace;
    const int file = info.plwVariant ? 0 : 1;
    if (info.dbSource == kFloppy) return kirobc::DrawingsOfUser(PelionPlace::kFloppy, info);
    if (info.dbSource != file && info.plwVariant) return kirobc::DrawingsOfUser(PelionPlace::kDrive, info);
    const std::wstring path =
        info.dbSource == file ? kirobc::WindowsPath(ReadFixedText(info.dbFileName)) : DefaultDatabase();
    return kirobc::ReadDrawingFile(path, kirobc::DrawingFile::kPelion);
}

// The drawing's own name where a model can have it.
std::string ModelNameFor(const std::string& drawing, std::size_t number) {
    const std::wstring name = kirobc::FoldedName(drawing);
    const auto isModelCharacter = [](wchar_t c) {
        return c >= 0x80 ? c != L'　' : (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || c == L'_' || c == L'-';
    };
    if (drawing.size() <= kLongestModelName && std::ranges::all_of(name, isModelCharacter)) return drawing;
    char proposed[16];
    std::snprintf(proposed, sizeof proposed, "DRAWING%03u", static_cast<unsigned>(number));
    return proposed;
}

// Drawings that are added to a model, or laid over it, become none of their own.
int List(TarnaDatabaseView& info, const std::optional<kirobc::Names>& names) {
    info.dbDrawingCount = 0;
    if (!names || names->empty()) return kNoDrawings;
    const bool models = info.dbMode == kNewMode;
    const std::size_t count = std::min(names->size(), kirobc::DrawingRoom());
    for (std::size_t i = 0; i < count; ++i) {
        TarnaDrawing& drawing = info.dbDrawings[i];
        drawing.selected = 0;
        WriteFixedText(drawing.drawingName, (*names)[i]);
        WriteFixedText(drawing.modelName, models ? ModelNameFor((*names)[i], i + 1) : std::string());
    }
    info.dbDrawingCount = static_cast<std::int32_t>(count);
    return models ? kWithModelNames : kPlainList;
}

// "name", or "name=model", with ", " between them; EUC.
std::string ChosenDrawings(const TarnaDatabaseView& info) {
    const auto room = static_cast<std::int32_t>(kirobc::DrawingRoom());
    std::string chosen;
    for (std::int32_t i = 0; i < std::min(info.dbDrawingCount, room); ++i) {
        const TarnaDrawing& drawing = info.dbDrawings[i];
        if (!drawing.selected) continue;
        if (!chosen.empty()) chosen += ", ";
        chosen += ReadFixedText(drawing.drawingName);
        const std::string model = ReadFixedText(drawing.modelName);
        if (!model.empty()) chosen += "=" + model;
    }
    return HxEucEncoder::Sjis2Euc(chosen);
}

template <std::size_t N>
std::string EucOf(const char (&field)[N]) {
    return HxEucEncoder::Sjis2Euc(ReadFixedText(field));
}

int TakePelion(const TarnaDatabaseView& info) {
    const std::string drive = EucOf(info.plDrive), group = EucOf(info.plGroup), user = EucOf(info.plUser);
    const std::string file = ReadFixedText(info.dbFileName), drawings = ChosenDrawings(info);
    NoteCall("SetPlInputDrawing",
             {HostInteger("source", info.dbSource), HostText("drive", drive.c_str()), HostText("group", group.c_str()),
              HostText("user", user.c_str()), HostText("file", file.c_str()), HostText("drawings", drawings.c_str())},
             0);
    return 0;
}

int TakeVaros(const TarnaDatabaseView& info) {
    const std::string file = ReadFixedText(info.dbFileName), drawings = ChosenDrawings(info);
    NoteCall("SetVrInputDrawing", {HostText("file", file.c_str()), HostText("drawings", drawings.c_str())}, 0);
    return 0;
}

}  // namespace

int GetPlInputDrawing(TARNAINFO* info) {
    return kirobc::Guarded(kNoDrawings,
                           [=] { return info ? List(info->database, PelionDrawings(info->database)) : kNoDrawings; });
}

int GetVrInputDrawing(TARNAINFO* info) {
    return kirobc::Guarded(kNoDrawings, [=] {
        if (!info) return kNoDrawings;
        const std::wstring path = kirobc::WindowsPath(ReadFixedText(info->database.dbFileName));
        return List(info->database, kirobc::ReadDrawingFile(path, kirobc::DrawingFile::kVaros));
    });
}

int SetPlInputDrawing(TARNAINFO* info) {
    return kirobc::Guarded(kFailure, [=] { return info ? TakePelion(info->database) : kFailure; });
}

int SetVrInputDrawing(TARNAINFO* info) {
    return kirobc::Guarded(kFailure, [=] { return info ? TakeVaros(info->database) : kFailure; });
}
