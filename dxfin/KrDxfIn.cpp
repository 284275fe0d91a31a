#include "dxfin/KrDxfIn.h"

#include <cstdlib>

#include "dxfin/DrawingVersion.h"
#include "dxfin/KrDxfInAll.h"
#include "dxfin/KrDxfInAttr.h"
#include "dxfin/KrDxfInParam.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/recent.ids.h"
#include "ui/MessageBoxes.h"
#include "ui/WaitCursor.h"

namespace {

// The caption of every refusal, also when DWG files are read.
constexpr char kRefusalCaption[] = "ＤＸＦ読込み";

constexpr int kLargestPicture = 256;
constexpr double kScaleAbove = 1e-6;  // the scale lies strictly between these
constexpr double kScaleBelow = 1e6;
constexpr std::size_t kSubModelBytes = 26;

constexpr const char* kScales[] = {"1",     "1/2",   "1/3",   "1/4",    "1/5",  "1/6",  "1/8",   "1/10",
                                   "1/20",  "1/30",  "1/40",  "1/50",   "1/60", "1/80", "1/100", "1/200",
                                   "1/300", "1/400", "1/500", "1/1000", "2",    "3",    "4",     "5",
                                   "10",    "20",    "30",    "40",     "50",   "100"};

}  // namespace

const KrDxfIn::Mode KrDxfIn::kDxf = {"ＤＸＦ読込み", "ＤＸＦ", "#DXF#", "ＤＸＦファイル"};
const KrDxfIn::Mode KrDxfIn::kDwg = {"ＤＷＧ読込み", "ＤＷＧ", "#DWG#", "ＤＷＧファイル"};

KrDxfIn::KrDxfIn(TARNAINFO* info)
    : HostDialog(kDxfInDialog),
      info_(info->input),
      drawing_(info->input.inputIsDwg ? kDwg : kDxf),
      isDwg_(info->input.inputIsDwg != 0),
      pictureMatrix_(info->input.pictureMatrix != 0),
      dataType_(*this, {kDrawingRadio, kShapeRadio}),
      mode_(*this, {kNewRadio, kAddRadio}),
      matrix_(*this, {kMatrixOnRadio, kMatrixOffRadio}),
      medium_(*this, Utility(), kDiskRadio, kFloppyRadio, drawing_.key, [this] { MediumChosen(); }),
      picture_(*this, kPictureEdit, kPictureCombo, -kLargestPicture, kLargestPicture,
               [this](std::optional<int> number) { PictureChanged(number); }),
      scales_(*this, kScaleCombo, kScaleEdit, [this](int index) { ScaleChosen(index); }),
      file_(
          *this, Utility(), {kFileNameEdit, kRecentCombo, kBrowseButton}, [this] { return FilePlace(); },
          kiro::ui::FileNameField::kAnyName, [this] { RefreshVersion(); }, [this] { ShowVersion(EmptyVersionLine()); }),
      fileLabel_(*this, kFileNameLabel, kRecentMenu,
                 [this](UINT command) {
                     if (command == kClearRecentCommand) file_.ClearRecent();
                 }),
      table_(*this, {kTableEdit, kTableBrowseButton}, "DXFKIRO_LAYER*", ReadFixedText(info->input.layerTableFileName)),
      zones_(*this, {kDataTypeZone, kModeZone, kPictureZone, kMatrixZone, kScaleZone},
             [this](int zone) { HelpZoneChanged(zone); }) {
    BindControls();
}

void KrDxfIn::BindControls() {
    Guide({
        {kScaleEdit, "図面の縮尺倍率を入力してください。"},
        {kSubModelEdit, "サブモデル名を入力してください。"},
        {kFileNameEdit, "ファイル名を入力してください。ワイルドカード文字が使えます。"},
        {kPictureEdit, "格納先ピクチャ番号を入力してください。"},
        {kTableEdit, ""},
    });
    NormaliseOnKillFocus(kPictureEdit);
    NormaliseOnKillFocus(kScaleEdit);
    NormaliseOnKillFocus(kSubModelEdit);

    dataType_.OnChosen([this](int) { file_.Clear(); });
    mode_.OnChosen([this](int) { ModeChosen(); });
    matrix_.OnChosen([this](int index) { pictureMatrix_ = index == 0; });
    BindFocus(kScaleEdit, [this](bool gained) {
        if (!gained) ScaleLeft();
    });
    On(kParametersButton, BN_CLICKED, &KrDxfIn::OpenParameters);
    On(kAttributesButton, BN_CLICKED, &KrDxfIn::OpenAttributes);
    On(kBatchButton, BN_CLICKED, &KrDxfIn::OpenBatch);
}

void KrDxfIn::OnInit() {
    InitUtility();
    Utility().SetCaption(drawing_.caption);
    Utility().SetKeyword(drawing_.key);
    Utility().SetComment(drawing_.comment);
    dataType_.Select(0);
    mode_.Select(0);
    matrix_.Select(pictureMatrix_ ? 0 : 1);
    matrix_.Enable(false);
    medium_.Init();
    InitTexts();
    picture_.Init(1);
    InitScales();
    file_.Init();
    fileLabel_.Init();
}

void KrDxfIn::InitTexts() {
    kiro::ui::Window(Handle()).SetText(drawing_.caption);
    Item<kiro::ui::Window>(kDrawingRadio).SetText(drawing_.typeName);
    const struct {
        int id;
        unsigned int characters;
        const char* text;
    } edits[] = {
        {kPictureEdit, 12, ""},
        {kScaleEdit, 20, "1"},
        {kSubModelEdit, 26, "DXFSUB"},
    };
    for (const auto& edit : edits) {
        Item<kiro::ui::Edit>(edit.id).LimitText(edit.characters);
        Item<kiro::ui::Edit>(edit.id).SetText(edit.text);
    }
    table_.Init();
}

void KrDxfIn::InitScales() {
    for (const char* scale : kScales) scales_.Combo().AddString(scale);
    scales_.Combo().SetCurSel(0);
}

kiro::ui::FileNameField::Place KrDxfIn::FilePlace() const {
    const bool floppy = medium_.IsFloppy();
    if (IsShape()) return {medium_.Key(), "#DXF:SHAPE#", floppy, "シェイプファイル", kKrChooseExisting};
    return {medium_.Key(), medium_.Key(), floppy, drawing_.comment, kKrChooseExisting};
}

// ---- Handlers ----

void KrDxfIn::PictureChanged(std::optional<int> number) {
    if (number) matrix_.Enable(*number < 0);
    if (IsAddMode()) ShowScaleOf(number);
}

void KrDxfIn::ModeChosen() {
    Item<kiro::ui::Window>(kScaleEdit).Enable(!IsAddMode());
    Item<kiro::ui::Window>(kScaleCombo).Enable(!IsAddMode());
    if (!IsAddMode()) {
        Item<kiro::ui::Edit>(kScaleEdit).SetText("1");
        return;
    }
    const std::string text = Item<kiro::ui::Edit>(kPictureEdit).Text().value_or(std::string());
    const bool number = Utility().CheckNumber(text.c_str(), kKrIntegerSigned, -kLargestPicture, kLargestPicture) != 0;
    const int picture = number ? std::atoi(text.c_str()) : 0;
    ShowScaleOf(picture != 0 ? std::optional(picture) : std::nullopt);
}

// A model that is added to is read in the scale of its picture.
void KrDxfIn::ShowScaleOf(std::optional<int> picture) {
    char text[kKrTextSize] = "1";
    if (picture) Utility().DisplayScale(Scfval101(-1) * Scfval101(std::abs(*picture)), text, kKrTextSize);
    Item<kiro::ui::Edit>(kScaleEdit).SetText(text);
}

void KrDxfIn::ScaleChosen(int index) {
    Item<kiro::ui::Edit>(kScaleEdit).SetText(scales_.Combo().GetLBText(index));
    ScaleLeft();
    FocusTo(kScaleEdit);
}

void KrDxfIn::ScaleLeft() {
    const auto text = Item<kiro::ui::Edit>(kScaleEdit).Text();
    if (!text || text->empty()) return;
    const kiro::ui::ComboBox combo = scales_.Combo();
    int index = combo.FindExact(*text);
    if (index < 0) {
        if (customScale_) combo.DeleteString(0);
        index = combo.InsertString(0, *text);
        customScale_ = true;
    }
    combo.SetCurSel(index);
}

// A name without a folder is another file on the other medium.
void KrDxfIn::MediumChosen() {
    file_.LoadRecent();
    if (file_.HasName()) RefreshVersion();
}

void KrDxfIn::RefreshVersion() {
    const std::string path = file_.InternalPath();
    DrawingVersion version;
    if (!path.empty()) {
        const kiro::ui::WaitCursor cursor;
        version = isDwg_ ? ReadDwgVersion(path) : ReadDxfVersion(path);
    }
    ShowVersion(VersionLine(version));
}

void KrDxfIn::ShowVersion(const std::string& line) const { Item<kiro::ui::Window>(kVersionText).SetText(line); }

// A host that hands over no block: what is chosen can still be kept as the defaults.
DxfInParamBlock& KrDxfIn::Params() {
    if (info_.importParams) return *info_.importParams;
    if (!kept_) DxfInReadParam(&kept_.emplace());
    return *kept_;
}

void KrDxfIn::OpenParameters() { KrDxfInParam(info_, Params()).DoModal(Handle()); }

void KrDxfIn::OpenAttributes() {
    // Only DXF can be searched for names.
    const bool named = !isDwg_ && file_.HasName() && !file_.IsPattern();
    KrDxfInAttr(Params(), named ? file_.InternalPath() : "").DoModal(Handle());
}

void KrDxfIn::OpenBatch() {
    table_.LendTo(info_.layerTableFileName, kRefusalCaption, [this] { KrDxfInAll(info_, Params()).DoModal(Handle()); });
}

void KrDxfIn::HelpZoneChanged(int zone) {
    help_.reset();
    switch (zone) {
        case 0:
            help_ = std::make_unique<KrDxfIn2>();
            break;
        case 1:
            help_ = std::make_unique<KrDxfIn3>();
            break;
        case 2:
            help_ = std::make_unique<KrDxfIn4>();
            break;
        case 3:
            help_ = std::make_unique<KrDxfIn5>();
            break;
        case 4:
            help_ = std::make_unique<KrDxfIn6>();
            break;
        default:
            return;
    }
    help_->Open(Handle(), zones_.Zone(zone));
}

// ---- Confirmation ----

void KrDxfIn::OnOk() {
    NormaliseAll();
    Result result;
    if (!CheckPicture(result) || !CheckScale(result) || !CheckFile(result) || !CheckSubModel(result) ||
        !CheckTable(result) || !AgreesToLoseModel()) {
        return;
    }
    WriteBack(result);
    try {
        file_.Remember();
    } catch (...) {
        // The record is written: what remains is confirmed also when there is no memory for a list.
    }
    End(IDOK);
}

bool KrDxfIn::Refuse(const char* message, int controlId) {
    kiro::ui::Tell(Handle(), message, kRefusalCaption);
    FocusTo(controlId);
    return false;
}

bool KrDxfIn::CheckPicture(Result& result) {
    const std::string text = Item<kiro::ui::Edit>(kPictureEdit).Text().value_or(std::string());
    if (Utility().CheckNumber(text.c_str(), kKrIntegerSigned, -kLargestPicture, kLargestPicture)) {
        result.picture = std::atoi(text.c_str());
    }
    return result.picture != 0 || Refuse("無効なピクチャ番号です。（-256～-1、1～256）", kPictureEdit);
}

bool KrDxfIn::CheckScale(Result& result) {
    const std::string text = Item<kiro::ui::Edit>(kScaleEdit).Text().value_or(std::string());
    const bool valid =
        Utility().CheckScale(text.c_str(), &result.scale) && result.scale > kScaleAbove && result.scale < kScaleBelow;
    // A model that is added to has the scale of its picture; the scale's own field takes no focus then.
    return valid || Refuse("無効な倍率です", IsAddMode() ? kPictureEdit : kScaleEdit);
}

bool KrDxfIn::CheckFile(Result& result) {
    if (!file_.Confirm(kRefusalCaption)) return false;
    result.inputFile = file_.InternalPath();
    return (!result.inputFile.empty() && FitsFixedText(info_.inputFileName, result.inputFile)) ||
           Refuse("ファイル名が長すぎます", kFileNameEdit);
}

bool KrDxfIn::CheckSubModel(Result& result) {
    const auto typed = ReadText(kSubModelEdit, kRefusalCaption);
    if (!typed) return false;
    const std::string name = KrEdited(Utility(), *typed, &KrUtility::SpaceNull);
    if (name.size() > kSubModelBytes) {
        return Refuse("サブモデル名が長すぎます（最大半角２６文字）", kSubModelEdit);
    }
    if (name.empty()) return Refuse("サブモデル名が入力されていません", kSubModelEdit);
    if (!Utility().CheckModelName(name.c_str())) {
        return Refuse("サブモデル名に無効な文字が入力されています", kSubModelEdit);
    }
    result.subModel = HxEucEncoder::Sjis2Euc(name);
    return true;
}

bool KrDxfIn::CheckTable(Result& result) const {
    const auto table = table_.Confirm(kRefusalCaption, sizeof info_.layerTableFileName);
    if (table) result.layerTable = *table;
    return table.has_value();
}

bool KrDxfIn::AgreesToLoseModel() {
    if (IsAddMode() || !GetActiveModel()->IsModified()) return true;
    return kiro::ui::Ask(Handle(), "モデルが保存されていません。\nモデルが壊れます。\nよろしいですか。",
                         drawing_.caption, kiro::ui::Icon::kWarning, kiro::ui::Default::kNo);
}

void KrDxfIn::WriteBack(const Result& result) {
    info_.inputStatus = 0;
    info_.addMode = IsAddMode() ? 1 : 0;
    info_.dataType = IsShape() ? 1 : 0;
    info_.pictureNumber = result.picture;
    info_.pictureMatrix = pictureMatrix_ ? 1 : 0;
    info_.scale = result.scale;
    // Every text was found to fit when it was checked.
    WriteFixedText(info_.inputFileName, result.inputFile);
    WriteFixedText(info_.subModelName, result.subModel);
    WriteFixedText(info_.layerTableFileName, result.layerTable);
    WriteFixedText(info_.password, "");
}
