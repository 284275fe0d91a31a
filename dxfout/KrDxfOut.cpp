#include "dxfout/KrDxfOut.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "dxfout/KrDxfOutAll.h"
#include "dxfout/KrDxfOutAttr.h"
#include "dxfout/KrDxfOutParam.h"
#include "dxfout/OutParams.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodlg.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOut.ids.h"
#include "resources/recent.ids.h"
#include "ui/MessageBoxes.h"
#include "ui/ScopedCopy.h"

namespace {

// Deliberately the caption of this one refusal also when DWG files are written.
constexpr char kPictureRefusalCaption[] = "ＤＸＦ書込み";
constexpr char kNoLayouts[] = "図面配置情報がありません";
constexpr char kNotForGx3[] = "AutoCAD GX3 には対応していません";

constexpr int kChooserKind = 5;  // of the host's lists: for an export
constexpr int kChooserMode = 1;
constexpr int kCheckKind = 3;  // of the model's check: for an export to DXF or DWG

constexpr auto kWhileOpen = kiro::ui::WideningCombo::Wide::kWhileOpen;

}  // namespace

const KrDxfOut::Mode KrDxfOut::kDxf = {"ＤＸＦ書込み", "#DXF#", "ＤＸＦファイル"};
const KrDxfOut::Mode KrDxfOut::kDwg = {"ＤＷＧ書込み", "#DWG#", "ＤＷＧファイル"};

KrDxfOut::KrDxfOut(TARNAINFO* info)
    : HostDialog(kDxfOutDialog),
      record_(*info),
      info_(info->output),
      drawing_(info->output.outputIsDwg ? kDwg : kDxf),
      params_(info->output.exportParams ? *info->output.exportParams : ownParams_),
      source_(*this, {kOutLayoutRadio, kOutCurrentRadio, kOutPictureRadio}),
      pictures_(
          *this, kOutPictureEdit, kOutPictureCombo, 1, kLastPicture,
          [this](std::optional<int> number) { PictureChanged(number); }, kWhileOpen),
      medium_(*this, Utility(), kOutDiskRadio, kOutFloppyRadio, drawing_.key, [this] { file_.LoadRecent(); }),
      file_(
          *this, Utility(), {kOutFileNameEdit, kOutRecentCombo, kOutBrowseButton, kWhileOpen},
          [this] { return FilePlace(); }, kiro::ui::FileNameField::kNoName),
      fileLabel_(*this, kOutFileNameLabel, kRecentMenu,
                 [this](UINT command) {
                     if (command == kClearRecentCommand) file_.ClearRecent();
                 }),
      table_(*this, {kOutTableEdit, kOutTableBrowseButton}, "KIRODXF_LAYER*",
             ReadFixedText(info->output.layerTableFileName)) {
    if (!info_.exportParams) ownParams_ = KeptOutParams();
    BindControls();
}

void KrDxfOut::BindControls() {
    Guide({
        {kOutPictureEdit, "出力ピクチャ番号を入力してください。"},
        {kOutPictureCombo, ""},
        {kOutFileNameEdit, "ファイル名を入力してください。"},
        {kOutRecentCombo, ""},
    });
    Bind(kOutPictureCombo, CBN_DROPDOWN, [this] { ShowGuidance("出力ピクチャ番号を選択してください。"); });
    Bind(kOutRecentCombo, CBN_DROPDOWN, [this] { ShowGuidance(""); });
    NormaliseOnKillFocus(kOutPictureEdit);

    source_.OnChosen([this](int source) { SourceChosen(source); });
    On(kOutLayoutCombo, CBN_SELCHANGE, &KrDxfOut::LayoutChosen);
    On(kOutLayoutListButton, BN_CLICKED, &KrDxfOut::ChooseLayout);
    On(kOutPictureListButton, BN_CLICKED, &KrDxfOut::ChoosePicture);
    On(kOutParametersButton, BN_CLICKED, &KrDxfOut::OpenParameters);
    On(kOutAttributesButton, BN_CLICKED, &KrDxfOut::OpenAttributes);
    On(kOutBatchButton, BN_CLICKED, &KrDxfOut::OpenBatch);
}

void KrDxfOut::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(drawing_.caption);
    Utility().SetCaption(drawing_.caption);
    Utility().SetKeyword(drawing_.key);
    Utility().SetComment(drawing_.comment);
    layouts_ = OutLayouts();
    Item<kiro::ui::Button>(kOutLayoutRadio).Enable(!layouts_.empty());
    source_.Select(kCurrent);
    SourceChosen(kCurrent);
    medium_.Init();
    file_.Init();
    fileLabel_.Init();
    table_.Init();
}

kiro::ui::FileNameField::Place KrDxfOut::FilePlace() const {
    return {medium_.Key(), medium_.Key(), medium_.IsFloppy(), drawing_.comment, kKrChooseNew};
}

// ---- Handlers ----

void KrDxfOut::SourceChosen(int source) {
    if (source == kLayout && layouts_.empty()) {
        Refuse(kNoLayouts);
        source = kCurrent;
        source_.Select(kCurrent);
        FocusTo(kOutCurrentRadio);
    }
    FollowSource(source);
    ClearNumbers();
    if (source == kLayout) ShowLayouts();
    if (source == kCurrent) ShowCurrentPicture();
    if (source == kByNumber) {
        pictures_.Init(CurrentPicture());
        ShowPicture(CurrentPicture());
    }
}

void KrDxfOut::FollowSource(int source) {
    for (const int id : {kOutLayoutCombo, kOutLayoutListButton}) Item<kiro::ui::Window>(id).Enable(source == kLayout);
    for (const int id : {kOutPictureEdit, kOutPictureCombo, kOutPictureListButton})
        Item<kiro::ui::Window>(id).Enable(source == kByNumber);
}

void KrDxfOut::ClearNumbers() {
    const Loading loading(*this);
    for (const int id : {kOutCurrentEdit, kOutCurrentItemsEdit, kOutPictureEdit, kOutPictureItemsEdit})
        Item<kiro::ui::Edit>(id).SetText("");
}

void KrDxfOut::SetNumber(int editId, int number) const { Item<kiro::ui::Edit>(editId).SetText(std::to_string(number)); }

void KrDxfOut::ShowLayouts() {
    const auto combo = Item<kiro::ui::ComboBox>(kOutLayoutCombo);
    combo.ResetContent();
    for (const OutLayout& layout : layouts_) {
        char number[16];
        std::snprintf(number, sizeof number, "%3d : ", layout.number);
        combo.AddString(number + layout.name);
    }
    combo.SetCurSel(0);
    LayoutChosen();
}

void KrDxfOut::LayoutChosen() {
    const int index = Item<kiro::ui::ComboBox>(kOutLayoutCombo).GetCurSel();
    if (index >= 0) layout_ = layouts_[static_cast<std::size_t>(index)].number;
}

void KrDxfOut::ChooseLayout() {
    const int number = DrwLstDlg(kChooserKind, kChooserMode, Handle(), nullptr, nullptr);
    if (number <= 0) return;
    layout_ = number;
    const auto found = std::find_if(layouts_.begin(), layouts_.end(),
                                    [&](const OutLayout& layout) { return layout.number == number; });
    if (found == layouts_.end()) return;
    Item<kiro::ui::ComboBox>(kOutLayoutCombo).SetCurSel(static_cast<int>(found - layouts_.begin()));
}

void KrDxfOut::ShowCurrentPicture() {
    picture_ = CurrentPicture();
    SetNumber(kOutCurrentEdit, picture_);
    SetNumber(kOutCurrentItemsEdit, ItemsOfPicture(picture_));
}

void KrDxfOut::ShowPicture(int picture) {
    picture_ = picture;
    pictures_.Show(picture);
    SetNumber(kOutPictureItemsEdit, ItemsOfPicture(picture));
}

void KrDxfOut::PictureChanged(std::optional<int> number) {
    Item<kiro::ui::Edit>(kOutPictureItemsEdit).SetText("");
    if (!number) return;
    picture_ = *number;
    SetNumber(kOutPictureItemsEdit, ItemsOfPicture(picture_));
}

void KrDxfOut::ChoosePicture() {
    const int number = PicLstDlg(kChooserKind, kChooserMode, Handle(), nullptr);
    if (number <= 0) return;
    ShowPicture(number);
    FocusTo(kOutPictureEdit);
}

void KrDxfOut::OpenParameters() { KrDxfOutParam(record_, params_).DoModal(Handle()); }

void KrDxfOut::OpenAttributes() { KrDxfOutAttr(record_, params_).DoModal(Handle()); }

// Of every drawing, for nobody can tell here what the batch will write.
void KrDxfOut::OpenBatch() {
    if (IsGx3(params_)) {
        Refuse(kNotForGx3);
        return;
    }
    // The batch has a medium of its own, which it keeps in the record while it is open.
    const kiro::ui::ScopedCopy medium(info_.mediaKind);
    table_.LendTo(info_.layerTableFileName, drawing_.caption, [this] {
        KrDxfOutAll batch;
        batch.SetInfo(&record_);
        batch.DoModal(Handle());
    });
}

// ---- Confirmation ----

void KrDxfOut::OnOk() {
    NormaliseAll();
    Result result;
    if (!CheckVersion() || !CheckPicture() || !CheckContents(result) || !CheckFile(result) || !CheckTable(result))
        return;
    WriteBack(result);
    try {
        file_.Remember();
    } catch (...) {
        // The record is written: what remains is confirmed also when there is no memory for a list.
    }
    // Deliberately after the record is written: a host finds the choice there although the dialog stays open.
    if (CheckModel(result)) End(IDOK);
}

bool KrDxfOut::Refuse(const char* message) const {
    kiro::ui::Tell(Handle(), message, drawing_.caption);
    return false;
}

bool KrDxfOut::CheckVersion() const { return !info_.outputIsDwg || !IsGx3(params_) || Refuse(kNotForGx3); }

bool KrDxfOut::CheckPicture() {
    if (Chosen() != kByNumber) return true;
    const std::string text = Item<kiro::ui::Edit>(kOutPictureEdit).Text().value_or(std::string());
    if (Utility().CheckNumber(text.c_str(), kKrInteger, 1, kLastPicture)) {
        picture_ = std::atoi(text.c_str());
        return true;
    }
    kiro::ui::Tell(Handle(), "無効なピクチャ番号です。（1～256）", kPictureRefusalCaption);
    FocusTo(kOutPictureEdit);
    return false;
}

bool KrDxfOut::CheckContents(Result& result) const {
    constexpr char kNothing[] = "出力するアイテムがありません";
    if (Chosen() != kLayout) {
        result.picture = picture_;
        return ItemsOfPicture(picture_) > 0 || Refuse(kNothing);
    }
    result.layout = layout_;
    return HasWindows(layout_) ? HasItems(layout_) || Refuse(kNothing) : Refuse(kNoLayouts);
}

bool KrDxfOut::CheckFile(Result& result) {
    if (!file_.Confirm(drawing_.caption)) return false;
    result.outputFile = file_.InternalPath();
    if (!result.outputFile.empty() && FitsFixedText(info_.outputFileName, result.outputFile)) return true;
    Refuse("ファイル名が長すぎます");
    FocusTo(kOutFileNameEdit);
    return false;
}

bool KrDxfOut::CheckTable(Result& result) const {
    const auto table = table_.Confirm(drawing_.caption, sizeof info_.layerTableFileName);
    if (table) result.layerTable = *table;
    return table.has_value();
}

bool KrDxfOut::CheckModel(const Result& result) const {
    if (!DxfIsModelCheck() || params_.submodelExpand ||
        !SxfModelCheck(kCheckKind, true, result.layout, result.picture)) {
        return true;
    }
    kiro::ui::Tell(Handle(), "モデル内のアイテムにエラーがあります。\nDXF_Interface.lis を参照してください。",
                   drawing_.caption, kiro::ui::Icon::kError);
    return false;
}

void KrDxfOut::WriteBack(const Result& result) {
    info_.mediaKind = medium_.IsFloppy() ? 1 : 0;
    info_.pictureMode = Chosen() == kLayout ? 0 : 1;
    info_.pictureNumber = result.picture;
    info_.drawingNumber = result.layout;
    // Every text was found to fit when it was checked.
    WriteFixedText(info_.outputFileName, result.outputFile);
    WriteFixedText(info_.layerTableFileName, result.layerTable);
}
