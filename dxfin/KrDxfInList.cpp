#include "dxfin/KrDxfInList.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "dxfin/DrawingVersion.h"
#include "dxfin/KrDxfInGoOn.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/grid.ids.h"
#include "text/SlotText.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"
#include "ui/Text.h"

using kiro::ui::GridColumn;
using kiro::ui::Icon;
using kiro::ui::RowCheck;

namespace {

enum Column { kNumberColumn, kFileColumn, kSizeColumn, kVersionColumn, kModelColumn, kResultColumn };

constexpr GridColumn kColumns[] = {{"番号", 1.1},
                                   {"ファイル名", 3.3},
                                   {"サイズ", 1.4},
                                   {"バージョン", 2.1},
                                   {"モデル名", 2.9, kModelNameLength, "モデル名を入力してください。"},
                                   {"結果", 3.9}};

constexpr char kNotRead[] = "…";
constexpr char kUnreadable[] = "開けません";
constexpr int kFilesAtOnce = 100;                    // that are found before the list is shown
constexpr int kFilesASlice = 2000;                   // and at a time afterwards
constexpr std::uint64_t kSmallDrawing = 256 * 1024;  // converted before the user could read its name
constexpr double kSlice = 6;                         // milliseconds of reading versions at a time
constexpr int kMostPairs = 20000;                    // a header with all that there is has some two thousand

double Milliseconds() {
    LARGE_INTEGER now{}, frequency{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// In kilobytes, as the system's own lists have it.
std::string SizeText(std::uint64_t size) {
    std::string digits = std::to_string(size / 1024 + (size % 1024 != 0));
    for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
    return digits + " KB";
}

}  // namespace

const BatchKind& BatchKindOf(bool dwg) {
    static constexpr BatchKind kKinds[] = {
        {"ＤＸＦ読込み　一括変換", "ＤＸＦ読込み一括変換", "#DXF#", "ＤＸＦファイル"},
        {"ＤＷＧ読込み　一括変換", "ＤＷＧ読込み一括変換", "#DWG#", "ＤＷＧファイル"}};
    return kKinds[dwg ? 1 : 0];
}

KrDxfInList::KrDxfInList(const DxfInListInfo& info)
    : HostDialog(kDxfInListDialog),
      info_(info),
      kind_(BatchKindOf(info.inputIsDwg != 0)),
      key_(info.medium ? "#FLOPPY_WIN#" : kind_.key),
      grid_(*this, kGrid, kColumns, rows_),
      run_(*this),
      filling_(*this, [this] { return Fill(); }) {
    grid_.NumberRows();
    grid_.CheckRowsWith([this](const RowCheck& check) { CheckRow(check); },
                        [this] { FindModelFiles(), FindSameNames(); });
    grid_.OnMarked([this] { ShowCount(); });
    grid_.OnCellMoved([this](int row, int) { TellResult(row); });
    Bind(kMarkAllButton, BN_CLICKED, [this] { MarkAll(true); });
    Bind(kMarkNoneButton, BN_CLICKED, [this] { MarkAll(false); });
    On(kNamesFromFilesButton, BN_CLICKED, &KrDxfInList::NameFromFiles);
}

DrawingSearch::Start KrDxfInList::Search() {
    char path[kKrPathSize];
    const std::string internal = KrInternalPath(Utility(), key_, ReadFixedText(info_.pattern));
    if (internal.empty()) return DrawingSearch::Start::kFailed;
    path[internal.copy(path, sizeof path - 1)] = 0;
    if (!Utility().RealPathName(key_, path, sizeof path)) return DrawingSearch::Start::kFailed;
    pattern_ = path;
    folder_ = pattern_.substr(0, pattern_.size() - FileNameOf(pattern_).size());
    return search_.Begin(pattern_);
}

void KrDxfInList::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(kind_.listTitle);
    Utility().SetCaption(kind_.caption);
    info_.medium ? Utility().SetFloppy(kind_.key) : Utility().SetKeyword(kind_.key);
    if (!search_.Take(kFilesAtOnce, found_)) ShowFiles();
    ShowCount();
    filling_.Start();
}

// ---- Filling the list ----

bool KrDxfInList::Fill() {
    if (filled_) return ReadVersions();
    if (!search_.Take(kFilesASlice, found_)) ShowFiles();
    ShowCount();
    return true;
}

// By their names in the order of code page 932, which has digits, letters, kana and kanji one after the other; whatever
// order the file system has.
void KrDxfInList::ShowFiles() {
    std::vector<std::pair<std::string, std::size_t>> order;
    order.reserve(found_.size());
    for (std::size_t i = 0; i < found_.size(); ++i)
        order.emplace_back(kiro::ui::ToSjis(FoldedName(found_[i].name)).value_or(found_[i].name), i);
    std::sort(order.begin(), order.end());
    ModelNamer namer(Utility());
    for (const auto& [folded, index] : order) {
        DrawingRow row;
        row.proposed = namer.Propose(found_[index].name);
        row[kFileColumn] = std::move(found_[index].name);
        row.size = found_[index].size;
        row[kSizeColumn] = SizeText(found_[index].size);
        row[kVersionColumn] = kNotRead;
        row[kModelColumn] = row.proposed;
        rows_.Add(std::move(row));
    }
    found_ = {};
    filled_ = true;
    grid_.Init(rows_.Count(), kKrSelectMultiple);
    if (rows_.Count() > 0) grid_.GoTo(0, kModelColumn);
}

void KrDxfInList::ShowCount() const {
    std::string text = Formatted("ファイルを探しています。（%d 件）", static_cast<int>(found_.size()));
    if (filled_)
        text = Formatted("%d 件のうち %d 件を選択しています。", rows_.Count(), static_cast<int>(MarkedRows().size()));
    if (search_.Unnamed() > 0)
        text += Formatted("（シフトＪＩＳにない文字を名前に含む %d 件は変換できません）", search_.Unnamed());
    Item<kiro::ui::Window>(kDrawingCount).SetText(text);
}

bool KrDxfInList::ReadVersions() {
    const double end = Milliseconds() + kSlice;
    int row = -1;
    while ((row = NextWithoutVersion()) >= 0) {
        ReadVersion(row);
        if (Milliseconds() > end) return true;
    }
    return false;
}

// Those first that the user sees.
int KrDxfInList::NextWithoutVersion() {
    for (const int row : grid_.RowsOnScreen())
        if (!rows_[row].versionKnown) return row;
    while (nextVersion_ < rows_.Count() && rows_[nextVersion_].versionKnown) ++nextVersion_;
    return nextVersion_ < rows_.Count() ? nextVersion_ : -1;
}

void KrDxfInList::ReadVersion(int row) {
    const std::string path = DrawingPath(row);
    DrawingVersion version;
    if (!path.empty()) version = info_.inputIsDwg ? ReadDwgVersion(path) : ReadDxfVersion(path, kMostPairs);
    rows_[row].versionKnown = true;
    grid_.SetTextAt(row, kVersionColumn, version.opened ? VersionText(version) : kUnreadable);
    grid_.RepaintRow(row);
}

std::string KrDxfInList::DrawingPath(int row) const {
    return KrInternalPath(Utility(), key_, folder_ + rows_[row][kFileColumn]);
}

// ---- Marks and names ----

void KrDxfInList::MarkAll(bool on) {
    for (int row = 0; row < rows_.Count(); ++row) grid_.Control().SetSelectFlag(row, on);
    grid_.Control().DrawItem();
    ShowCount();
}

std::vector<int> KrDxfInList::MarkedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < rows_.Count(); ++row)
        if (IsMarked(row)) rows.push_back(row);
    return rows;
}

void KrDxfInList::NameFromFiles() {
    if (!grid_.EndEdit() || !LosesNames()) return;
    for (int row = 0; row < rows_.Count(); ++row) {
        grid_.SetTextAt(row, kModelColumn, rows_[row].proposed);
        grid_.Control().SetErrorFlag(row, kModelColumn, 0);
    }
    grid_.Changed();
    grid_.Control().DrawItem();
    SetFocus(grid_.List());
}

// What was typed goes only when the user agrees.
bool KrDxfInList::LosesNames() {
    const auto typed = [](const DrawingRow& row) { return row[kModelColumn] != row.proposed; };
    if (std::none_of(rows_.begin(), rows_.end(), typed)) return true;
    return kiro::ui::Ask(Handle(), "入力したモデル名を、すべてファイル名から付け直します。\nよろしいですか。",
                         kind_.caption, Icon::kWarning, kiro::ui::Default::kNo);
}

void KrDxfInList::FindModelFiles() {
    for (int row = 0; row < rows_.Count(); ++row) {
        DrawingRow& drawing = rows_[row];
        if (!IsMarked(row) || drawing.checked == drawing[kModelColumn]) continue;
        drawing.checked = drawing[kModelColumn];
        drawing.model = FileOfModel(Utility(), drawing.checked);
    }
}

void KrDxfInList::FindSameNames() {
    same_.assign(static_cast<std::size_t>(rows_.Count()), -1);
    std::unordered_map<std::wstring, int> first;
    for (const int row : MarkedRows()) {
        const auto [found, isNew] = first.try_emplace(FoldedName(rows_[row][kModelColumn]), row);
        if (isNew) continue;
        same_[static_cast<std::size_t>(row)] = found->second;
        int& second = same_[static_cast<std::size_t>(found->second)];
        if (second < 0) second = row;
    }
}

// A drawing that is not marked becomes no model, whatever its name.
void KrDxfInList::CheckRow(const RowCheck& check) const {
    const int row = check.Row();
    if (!IsMarked(row)) {
        check.Pass(kModelColumn);
        return;
    }
    if (!check.Given(kModelColumn, "モデル名が入力されていません。 %d")) return;
    const std::string& name = rows_[row][kModelColumn];
    const int same = same_[static_cast<std::size_t>(row)];
    if (!Utility().CheckModelName(name.c_str()))
        check.Fail(kModelColumn, Formatted("モデル名に無効な文字が入力されています。 %d : %s", row + 1, name));
    else if (rows_[row].model.path.empty())
        check.Fail(kModelColumn, Formatted("無効なモデル名です。 %d : %s", row + 1, name));
    else if (same >= 0)
        check.Fail(kModelColumn, Formatted("モデル名が重複しています。 %d - %d", row + 1, same + 1));
}

bool KrDxfInList::CheckNames() {
    grid_.Changed();  // the marks may be other ones
    if (grid_.Check(kiro::ui::Grid::Extent::kAll)) return true;
    kiro::ui::Tell(Handle(), "設定内容に誤りがあります。", kind_.caption, Icon::kError);
    grid_.GoTo(grid_.Faults().front().row, kModelColumn);
    grid_.ShowFault();
    return false;
}

// Asked once for all of them.
bool KrDxfInList::AgreesToReplace(const std::vector<int>& rows) {
    const auto files = ModelFiles(Utility());
    std::vector<int> existing;
    replaced_.clear();
    for (const int row : rows) {
        std::wstring file = FoldedName(rows_[row].model.name);
        if (!files.contains(file)) continue;
        existing.push_back(row);
        replaced_.insert(std::move(file));
    }
    if (existing.empty()) return true;
    const int first = existing.front();
    const std::string text = "同じ名前のモデルファイルが既に存在します。（" + std::to_string(existing.size()) +
                             " 件）\n" + rows_[first].model.name + (existing.size() > 1 ? " など" : "") +
                             "\n\n上書きしますか。";
    if (kiro::ui::Ask(Handle(), text, kind_.caption, Icon::kWarning, kiro::ui::Default::kNo)) return true;
    grid_.GoTo(first, kModelColumn);
    grid_.Control().ErrorText(
        Formatted("同じ名前のモデルファイルがあります。 %d : %s", first + 1, rows_[first][kModelColumn]).c_str());
    return false;
}

// ---- The run ----

void KrDxfInList::OnOk() {
    if (run_.IsRunning() || !grid_.EndEdit()) return;
    std::vector<int> rows = MarkedRows();
    if (rows.empty()) return kiro::ui::Tell(Handle(), "変換するファイルが選択されていません。", kind_.caption);
    if (CheckNames() && AgreesToReplace(rows)) Start(std::move(rows));
}

// "取消" is all that can be pressed meanwhile.
void KrDxfInList::Start(std::vector<int> rows) {
    aside_.emplace();
    if (const int error = aside_->Error()) {
        aside_.reset();
        return kiro::ui::Tell(Handle(), HostErrorText(error), kind_.caption);
    }
    if (info_.importParams) setdxfinparam(info_.importParams);
    const std::string table = ReadFixedText(info_.layerTableFileName);
    setdxfintblnam(table.c_str());
    listing_.emplace(Utility(), kind_.caption, pattern_, HxEucEncoder::Euc2Sjis(table));
    for (const int row : rows) ShowResult(row, "", false);
    asks_ = true;
    converted_ = failed_ = 0;
    filling_.Pause();  // the host has one reader of drawings
    FocusTo(IDCANCEL);
    EnableControls(false);
    run_.Start(
        std::move(rows), [this](int row) { return Step(row); }, [this] { Ended(); });
}

void KrDxfInList::EnableControls(bool on) const {
    for (const int id : {kGrid, kMarkAllButton, kMarkNoneButton, kNamesFromFilesButton, IDOK})
        Item<kiro::ui::Window>(id).Enable(on);
}

bool KrDxfInList::Step(int row) {
    const std::string& file = rows_[row][kFileColumn];
    if (rows_[row].size > kSmallDrawing || run_.IsPaintDue()) Announce(row);
    const std::string reason = Convert(row);
    const std::string files = std::to_string(row + 1) + " : " + file + " -> " + rows_[row].model.name + " : ";
    listing_->Add(files + (reason.empty() ? "変換しました" : reason));
    if (reason.empty()) {
        ++converted_;
        grid_.Control().SetSelectFlag(row, 0);  // what is done is not marked any more
        ShowResult(row, "変換しました", false);
        return true;
    }
    ++failed_;
    Announce(row);
    ShowResult(row, reason, true);
    return GoesOnAfter(row, reason);
}

void KrDxfInList::Announce(int row) {
    const int done = static_cast<int>(run_.Done());
    ShowGuidance(Formatted("%d/%d %s", done, static_cast<int>(run_.Count()), rows_[row][kFileColumn]).c_str());
    ShowResult(row, "変換中", false);
    grid_.Reveal(row);
    run_.Paint();
}

// "" when it is done; otherwise why not.
std::string KrDxfInList::Convert(int row) {
    const std::string drawing = DrawingPath(row);
    if (drawing.empty()) return "ファイル名が長すぎます。";
    const ModelFile& model = rows_[row].model;
    // Another program may have made it since the user was asked.
    if (!replaced_.contains(FoldedName(model.name)) && Utility().Access(kModelKey, model.name.c_str()) == 0)
        return "同じ名前のモデルファイルがあります。";
    return ConvertDrawing(drawing, model.path);
}

void KrDxfInList::ShowResult(int row, const std::string& result, bool failed) {
    grid_.SetTextAt(row, kResultColumn, result);
    grid_.Control().SetErrorFlag(row, kResultColumn, failed);
    grid_.RepaintRow(row);
}

// Its column may be too narrow for a reason.
void KrDxfInList::TellResult(int row) {
    if (row >= 0 && !run_.IsRunning()) ShowGuidance(rows_[row][kResultColumn].c_str());
}

bool KrDxfInList::GoesOnAfter(int row, const std::string& reason) {
    if (!asks_ || run_.Done() == run_.Count()) return true;
    KrDxfInGoOn question(kind_.caption, rows_[row][kFileColumn] + "\n" + reason);
    if (question.DoModal(Handle()) != IDOK) return false;
    asks_ = !question.IsForAll();
    return true;
}

void KrDxfInList::Ended() {
    const int count = static_cast<int>(run_.Count());
    summary_ = Formatted("%d 件中 %d 件を変換しました。", count, converted_);
    if (failed_ > 0) summary_ += Formatted("（失敗 %d 件）", failed_);
    if (converted_ + failed_ < count) summary_ += Formatted("（中止、残り %d 件）", count - converted_ - failed_);
    listing_->Add(summary_);
    summary_ += listing_->IsWhole() ? Formatted("結果の一覧は %s です。", BatchListing::kName)
                                    : std::string("結果の一覧は書けませんでした。");
    listing_.reset();
    aside_.reset();
    EnableControls(true);
    ShowCount();
    const std::vector<int> left = MarkedRows();
    if (!left.empty()) grid_.GoTo(left.front(), kResultColumn);
    FocusTo(kGrid);
    ShowGuidance(summary_.c_str());
    filling_.Start();
}

void KrDxfInList::OnCancel() {
    if (!run_.IsRunning()) return End(IDCANCEL);
    run_.Stop();
    ShowGuidance("この図面が終わったところで中止します。");
}
