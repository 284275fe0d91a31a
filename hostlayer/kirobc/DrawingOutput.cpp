// The models that can be written as drawings, and whether drawings of their names are there already.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <string>

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/DrawingFiles.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kirobc/QuietDrives.h"

namespace {

constexpr int kWritable = 0;
constexpr int kExists = 1;
constexpr int kWrongFile = 2;

constexpr int kNewMode = 0;
constexpr int kToDatabase = 1;  // dbSource
constexpr int kToFloppy = 2;
constexpr std::size_t kLongestProposal = 20;  // bytes

// The model's own name where a drawing can have it: of ASCII and half-width katakana.
std::string DrawingNameFor(const std::string& model, std::size_t number) {
    const auto isDrawingCharacter = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte > 0x20 && (byte < 0x7F || (byte >= 0xA0 && byte <= 0xDF));
    };
    char proposed[kLongestProposal + 1];
    if (model.size() > kLongestProposal || !std::ranges::all_of(model, isDrawingCharacter)) {
        std::snprintf(proposed, sizeof proposed, "MODEL%03u", static_cast<unsigned>(number));
        return proposed;
    }
    return kirobc::SjisFromWide(kirobc::FoldedName(model));
}

int ListModels(TarnaDatabaseView& info) {
    info.dbOutModelCount = 0;
    info.dbSelectAllAllowed = 1;
    const auto folder = kirobc::FolderOfKey("#MODEL#", false);
    if (!folder) return 0;
    const std::wstring pattern = kirobc::FoldedName(ReadFixedText(info.patternSlot.dbModelPattern));
    const kirobc::Names models = kirobc::FilesOf(*folder, L".json", pattern, kirobc::kLongestDrawingName);
    for (const std::string& model : models) {
        const std::string euc = HxEucEncoder::Sjis2Euc(model);
        if (static_cast<std::size_t>(info.dbOutModelCount) == kirobc::DrawingRoom()) break;
        TarnaDrawing& drawing = info.dbDrawings[info.dbOutModelCount];
        if (!WriteFixedText(drawing.modelName, euc)) continue;
        ++info.dbOutModelCount;
        drawing.selected = 0;
        WriteFixedText(drawing.drawingName, DrawingNameFor(model, static_cast<std::size_t>(info.dbOutModelCount)));
    }
    return info.dbOutModelCount;
}

// ---- Names that are there already ----

std::set<std::wstring> NamesToWrite(const TarnaDatabaseView& info) {
    if (!info.dbModelByName) return {kirobc::FoldedName(ReadFixedText(info.dbDrawingName))};
    const auto room = static_cast<std::int32_t>(kirobc::DrawingRoom());
    std::set<std::wstring> names;
    for (std::int32_t i = 0; i < std::min(info.dbOutModelCount, room); ++i) {
        const TarnaDrawing& drawing = info.dbDrawings[i];
        if (drawing.selected) names.insert(kirobc::FoldedName(ReadFixedText(drawing.drawingName)));
    }
    return names;
}

int Compare(const std::optional<kirobc::Names>& existing, const TarnaDatabaseView& info) {
    const std::set<std::wstring> names = NamesToWrite(info);
    const auto isOne = [&](const std::string& name) { return names.contains(kirobc::FoldedName(name)); };
    return existing && std::ranges::any_of(*existing, isOne) ? kExists : kWritable;
}

// A new file replaces what there is, which the user has agreed to.
int CheckFile(const TarnaDatabaseView& info, kirobc::DrawingFile kind) {
    const kirobc::QuietDrives quiet;
    const std::wstring path = kirobc::WindowsPath(ReadFixedText(info.patternSlot.dbOutFileName));
    if (path.empty()) return kWrongFile;
    if (info.dbMode == kNewMode || GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return kWritable;
    const auto existing = kirobc::ReadDrawingFile(path, kind);
    return existing ? Compare(existing, info) : kWrongFile;
}

int CheckPelion(const TarnaDatabaseView& info) {
    using kirobc::PelionPlace;
    if (info.dbSource == kToDatabase) return Compare(kirobc::DrawingsOfUser(PelionPlace::kDrive, info), info);
    if (info.dbSource == kToFloppy) return Compare(kirobc::DrawingsOfUser(PelionPlace::kFloppy, info), info);
    return CheckFile(info, kirobc::DrawingFile::kPelion);
}

}  // namespace

int GetPlOutputModel(TARNAINFO* info) {
    return kirobc::Guarded(0, [=] { return info ? ListModels(info->database) : 0; });
}

int CheckPlDrawingName(TARNAINFO* info) {
    return kirobc::Guarded(kWrongFile, [=] { return info ? CheckPelion(info->database) : kWrongFile; });
}

int CheckVrDrawingName(TARNAINFO* info) {
    return kirobc::Guarded(kWrongFile,
                           [=] { return info ? CheckFile(info->database, kirobc::DrawingFile::kVaros) : kWrongFile; });
}
