#include "dxfout/KrDxfOutFiles.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <unordered_map>
#include <utility>

#include "dxfout/OutModel.h"
#include "dxfout/OutParams.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "resources/dxfout/KrDxfOutFiles.ids.h"
#include "resources/grid.ids.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"
#include "ui/Text.h"

using kiro::ui::GridColumn;
using kiro::ui::Icon;
using kiro::ui::RowCheck;

namespace {

enum Column { kRowColumn, kNumberColumn, kDescriptionColumn, kExistsColumn, kNameColumn };

constexpr GridColumn kPageColumns[] = {{"番号", 1.0},
                                       {"ページ番号", 2.0},
                                       {"図枠名", 2.0},
                                       {"ファイル有無", 2.0},
                                       {"ファイル名", 3.0, 63, "ファイル名を入力してください。"}};
constexpr GridColumn kPictureColumns[] = {{"番号", 1.0},
                                          {"ピクチャ番号", 2.0},
                                          {"倍率", 2.0},
                                          {"ファイル有無", 2.0},
                                          {"ファイル名", 3.0, 63, "ファイル名を入力してください。"}};

constexpr char kExists[] = "○";
constexpr unsigned int kCommonNameLength = 60;  // with three digits behind it a name has room in its cell
constexpr std::size_t kLongestPath = 255;       // bytes, as the writer takes it
constexpr int kCheckKind = 3;                   // of the model's check: for an export to DXF or DWG

constexpr char kFloppyKey[] = "#FLOPPY_WIN#";

// As a file system compares names.
std::wstring Folded(const std::string& name) {
    std::wstring wide = kiro::ui::ToWide(name);
    CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return wide;
}

std::string Numbered(const std::string& name, int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%3.3d", number);
    return name + digits;
}

std::string FrameName(const HxDloFrame& frame) {
    if (frame.kind == 1) return HxEucEncoder::Euc2Sjis(ReadFixedText(frame.name));
    char text[64];
    std::snprintf(text, sizeof text, "%.0fx%.0f", std::trunc(frame.width), std::trunc(frame.height));
    return text;
}

}  // namespace

const OutFileList::Kind OutFileList::kPages = {kDxfOutPageDialog,
                                               kPageColumns,
                                               "Page %d Output",
                                               "出力ページが選択されていません。",
                                               "モデル内のアイテムにエラーがあります。\n",
                                               true};
const OutFileList::Kind OutFileList::kPictures = {kDxfOutPictureDialog,
                                                  kPictureColumns,
                                                  "Picture %d Output",
                                                  "出力ピクチャが選択されていません。",
                                                  "モデルにエラーがあります。\n",
                                                  false};

const char* OutBatchCaption(const TarnaExportView& info) {
    return info.outputIsDwg ? "ＤＷＧ変換　一括変換" : "ＤＸＦ変換　一括変換";
}

OutFileList::OutFileList(const Kind& kind)
    : HostDialog(kind.templateId), kind_(kind), grid_(*this, kGrid, kind.columns, rows_), run_(*this) {
    grid_.NumberRows();
    grid_.CheckRowsWith([this](const RowCheck& check) { CheckRow(check); },
                        [this] { LookForFiles(), FindSameNames(); });
    grid_.OnCellMoved([this](int row, int) { CellMoved(row); });
    Guide({{kCommonNameEdit, "共通ファイル名を入力してください。"}});
    On(kCommonNameButton, BN_CLICKED, &OutFileList::NameAll);
}

const char* OutFileList::Key() const {
    if (info_->mediaKind) return kFloppyKey;
    return info_->outputIsDwg ? "#DWG#" : "#DXF#";
}

void OutFileList::OnInit() {
    InitUtility();
    const char* caption = OutBatchCaption(*info_);
    kiro::ui::Window(Handle()).SetText(caption);
    Utility().SetCaption(caption);
    const char* diskKey = info_->outputIsDwg ? "#DWG#" : "#DXF#";
    info_->mediaKind ? Utility().SetFloppy(diskKey) : Utility().SetKeyword(diskKey);
    Item<kiro::ui::Edit>(kCommonNameEdit).LimitText(kCommonNameLength);
    Item<kiro::ui::Edit>(kCommonNameEdit).SetText(commonName_);
    Fill();
    grid_.Init(rows_.Count(), kKrSelectMultiple);
    LookForFiles();
    if (rows_.Count() > 0) grid_.GoTo(0, kNameColumn);
}

void OutFileList::AddRow(int number, std::string description) {
    OutFileRow row;
    row.number = number;
    row[kNumberColumn] = std::to_string(number);
    row[kDescriptionColumn] = std::move(description);
    row[kNameColumn] = Numbered(commonName_, number);
    rows_.Add(std::move(row));
}

void OutFileList::NameAll() {
    const auto name = ReadText(kCommonNameEdit, OutBatchCaption(*info_));
    if (!name) return;
    if (!Utility().CheckFile(name->c_str())) return FocusTo(kCommonNameEdit);
    commonName_ = *name;
    for (int row = 0; row < rows_.Count(); ++row) grid_.SetTextAt(row, kNameColumn, Numbered(*name, rows_[row].number));
    grid_.Changed();
    CheckRows();
    SetFocus(grid_.List());
}

// ---- The names and their files ----

void OutFileList::LookForFiles() {
    for (int row = 0; row < rows_.Count(); ++row) {
        if (rows_[row].looked != rows_[row][kNameColumn]) Look(row);
    }
}

void OutFileList::Look(int row) {
    OutFileRow& file = rows_[row];
    file.looked = file[kNameColumn];
    char name[256];
    Utility().SjisToEuc(name, file.looked.c_str(), sizeof name);
    file.path = HxFile::ToFullPath(Key(), name, Utility().GetFilnameUL(Key()) != 0, true);
    if (file.path.size() > kLongestPath) file.path.clear();
    const bool exists = !file.path.empty() && Utility().Access(Key(), file.looked.c_str()) == 0;
    grid_.SetTextAt(row, kExistsColumn, exists ? kExists : "");
}

void OutFileList::FindSameNames() {
    same_.assign(static_cast<std::size_t>(rows_.Count()), -1);
    std::unordered_map<std::wstring, int> first;
    for (int row = 0; row < rows_.Count(); ++row) {
        const auto [found, isNew] = first.try_emplace(Folded(rows_[row][kNameColumn]), row);
        if (isNew) continue;
        same_[static_cast<std::size_t>(row)] = found->second;
        int& second = same_[static_cast<std::size_t>(found->second)];
        if (second < 0) second = row;
    }
}

void OutFileList::CheckRow(const RowCheck& check) const {
    if (!check.Given(kNameColumn, "ファイル名が入力されていません。 %d")) return;
    const int row = check.Row();
    const int same = same_[static_cast<std::size_t>(row)];
    if (same >= 0) {
        check.Fail(kNameColumn, Formatted("ファイル名が重複しています。 %d - %d", row + 1, same + 1));
    } else if (rows_[row].path.empty() || !Utility().CheckFileName(rows_[row].looked.c_str())) {
        check.Fail(kNameColumn, Formatted("無効なファイル名です。 %d : %s", row + 1, rows_[row].looked));
    }
}

// Every bad row is marked, for a name that is there twice is bad in both.
bool OutFileList::CheckRows() {
    const bool valid = grid_.Check(kiro::ui::Grid::Extent::kAll);
    grid_.ShowFault();
    return valid;
}

void OutFileList::CellMoved(int row) {
    if (std::exchange(row_, row) != row) CheckRows();
}

// ---- The run ----

void OutFileList::OnOk() {
    if (run_.IsRunning() || !grid_.EndEdit()) return;
    for (int row = 0; row < rows_.Count(); ++row) rows_[row].looked.clear();  // the files may have changed meanwhile
    grid_.Changed();
    const char* caption = OutBatchCaption(*info_);
    if (!CheckRows()) {
        kiro::ui::Tell(Handle(), "設定内容に誤りがあります。", caption, Icon::kError);
        row_ = grid_.Faults().front().row;
        grid_.GoTo(row_, kNameColumn);
        return grid_.ShowFault();
    }
    setdxfottblnam(ReadFixedText(info_->layerTableFileName).c_str());
    setdxfotparam(info_->exportParams);  // null: those before stay
    std::vector<int> rows = MarkedRows();
    if (rows.empty()) return kiro::ui::Tell(Handle(), kind_.noneMarked, caption);
    if (ModelIsFaulty()) {
        const std::string text = std::string(kind_.modelIsFaulty) + "DXF_Interface.lis を参照してください。";
        return kiro::ui::Tell(Handle(), text, caption, Icon::kError);
    }
    Start(std::move(rows));
}

std::vector<int> OutFileList::MarkedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < rows_.Count(); ++row) {
        if (grid_.Control().GetSelectFlag(row)) rows.push_back(row);
    }
    return rows;
}

bool OutFileList::ModelIsFaulty() const {
    const bool expands = (info_->exportParams ? *info_->exportParams : KeptOutParams()).submodelExpand != 0;
    return DxfIsModelCheck() && !expands && SxfModelCheck(kCheckKind, true, 0, 0);
}

// "取消" is all that can be pressed meanwhile.
void OutFileList::Start(std::vector<int> rows) {
    FocusTo(IDCANCEL);
    for (const int id : {kGrid, kCommonNameEdit, kCommonNameButton, IDOK}) Item<kiro::ui::Window>(id).Enable(false);
    run_.Start(
        std::move(rows), [this](int row) { return Write(row); }, [this] { Ended(); });
}

bool OutFileList::Write(int row) {
    const OutFileRow& file = rows_[row];
    ShowGuidance(Formatted(kind_.working, file.number).c_str());
    grid_.Reveal(row);
    run_.Paint();
    const int code = DxfOutFloppy(info_->mediaKind != 0, file.path.c_str(), kind_.isPage ? file.number : 0,
                                  kind_.isPage ? 0 : file.number);
    Look(row);
    // What has been written is not marked any more.
    code == 0 ? grid_.Control().SetSelectFlag(row, 0) : grid_.Control().SetErrorFlag(row, kNameColumn, 1);
    grid_.Control().DrawItem();
    if (code == 0) return true;
    ++failed_;
    return GoesOnAfter(code);
}

bool OutFileList::GoesOnAfter(int code) const {
    char message[1024];
    const int number = code > std::numeric_limits<int>::min() ? -code : 0;
    std::string text = Utility().GetMessageText(number, message, sizeof message)
                           ? std::string(message)
                           : Formatted("ファイルを出力できません。（%d）", code);
    text += "\n　　処理を続行しますか？。";
    return kiro::ui::Ask(Handle(), text, OutBatchCaption(*info_));
}

void OutFileList::Ended() {
    const int tried = static_cast<int>(run_.Done());
    summary_ = Formatted("%d 件中 %d 件を出力しました。", static_cast<int>(run_.Count()), tried - failed_);
    if (failed_ > 0) summary_ += Formatted("（失敗 %d 件）", failed_);
    End(IDOK);
}

void OutFileList::OnCancel() {
    if (!run_.IsRunning()) return End(IDCANCEL);
    run_.Stop();
}

// ---- Pages ----

KrDxfOutPage::KrDxfOutPage() : OutFileList(kPages) {}

void KrDxfOutPage::Fill() {
    HxDloList* list = GetActiveModel()->GetDloList();
    for (const OutLayout& layout : OutLayouts()) {
        HxDloFrame frame{};
        if (!HxDloGetDloFrame(HxDloListGetDlo(list, layout.number), &frame) || !frame.valid) continue;
        AddRow(layout.number, FrameName(frame));
    }
}

// ---- Pictures ----

KrDxfOutPicture::KrDxfOutPicture() : OutFileList(kPictures) {}

void KrDxfOutPicture::Fill() {
    const double base = Scfval101(-1);
    for (int picture = 1; picture <= kLastPicture; ++picture) {
        if (ItemsOfPicture(picture) < 1) continue;
        char scale[32];
        std::snprintf(scale, sizeof scale, "%G", Scfval101(picture) * base);
        AddRow(picture, scale);
    }
}
