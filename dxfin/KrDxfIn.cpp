#include "dxfin/KrDxfIn.h"

#include <charconv>
#include <cstdlib>

#include "dxfin/DrawingVersion.h"
#include "dxfin/KrDxfInAttr.h"
#include "entry/CommandFrame.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAll.ids.h"
#include "resources/dxfin/KrDxfInParam.ids.h"
#include "ui/MessageBoxes.h"

namespace {

// The caption of every refusal, also when DWG files are read.
constexpr char kRefusalCaption[] = "ＤＸＦ読込み";
constexpr char kTableKey[] = "#DXF:TABLE#";

constexpr int kLargestPicture = 256;
constexpr double kScaleAbove = 1e-6;  // the scale lies strictly between these
constexpr double kScaleBelow = 1e6;
constexpr std::size_t kSubModelBytes = 26;

constexpr const char* kScales[] = {"1",     "1/2",   "1/3",   "1/4",    "1/5",  "1/6",  "1/8",   "1/10",
                                   "1/20",  "1/30",  "1/40",  "1/50",   "1/60", "1/80", "1/100", "1/200",
                                   "1/300", "1/400", "1/500", "1/1000", "2",    "3",    "4",     "5",
                                   "10",    "20",    "30",    "40",     "50",   "100"};

// The picture list holds -256 to -1 and then 1 to 256.
int PictureAt(int index) { return index < kLargestPicture ? index - kLargestPicture : index - kLargestPicture + 1; }
int IndexOfPicture(int picture) { return picture < 0 ? picture + kLargestPicture : picture + kLargestPicture - 1; }

// The index of the entry that reads just like the text; -1 when there is none.
int FindPicture(const std::string& text) {
    int picture = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), picture).ptr;
    const bool listed = picture != 0 && std::abs(picture) <= kLargestPicture;
    // "007" is a number but no entry.
    if (end != text.data() + text.size() || !listed || std::to_string(picture) != text) return -1;
    return IndexOfPicture(picture);
}

}  // namespace

const KrDxfIn::Mode KrDxfIn::kDxf = {"ＤＸＦ読込み", "ＤＸＦ", "#DXF#", "ＤＸＦファイル"};
const KrDxfIn::Mode KrDxfIn::kDwg = {"ＤＷＧ読込み", "ＤＷＧ", "#DWG#", "ＤＷＧファイル"};

KrDxfIn::KrDxfIn(TARNAINFO* info)
    : HostDialog(kDxfInDialog),
      info_(info->input),
      drawing_(info->input.inputIsDwg ? kDwg : kDxf),
      isDwg_(info->input.inputIsDwg != 0),
      pictureMatrix_(info->input.pictureMatrix != 0),
      layerTable_(KrEdited(Utility(), ReadFixedText(info->input.layerTableFileName), &KrUtility::ToSJIS)),
      dataType_(*this, {kDrawingRadio, kShapeRadio}),
      mode_(*this, {kNewRadio, kAddRadio}),
      matrix_(*this, {kMatrixOnRadio, kMatrixOffRadio}),
      media_(*this, {kDiskRadio, kFloppyRadio}),
      pictures_(*this, kPictureCombo, kPictureEdit, [this](int index) { PictureChosen(index); }),
      scales_(*this, kScaleCombo, kScaleEdit, [this](int index) { ScaleChosen(index); }),
      file_(
          *this, Utility(), {kFileNameEdit, kRecentCombo, kBrowseButton}, [this] { return FileChooser(); },
          [this] { RefreshVersion(); }, [this] { Item<kiro::ui::Window>(kVersionText).SetText(EmptyVersionLine()); }),
      fileLabel_(*this, kFileNameLabel, kRecentMenu,
                 [this](UINT command) {
                     if (command == kClearRecentCommand) file_.ClearRecent(Key());
                 }),
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
    BindFocus(0, [this](bool) { fileLabel_.Flat(); });
    NormaliseOnKillFocus(kPictureEdit);
    NormaliseOnKillFocus(kScaleEdit);
    NormaliseOnKillFocus(kSubModelEdit);

    dataType_.OnChosen([this](int) { DataTypeChosen(); });
    mode_.OnChosen([this](int) { ModeChosen(); });
    matrix_.OnChosen([this](int index) {
        fileLabel_.Flat();
        pictureMatrix_ = index == 0;
    });
    media_.OnChosen([this](int) { MediaChosen(); });
    On(kPictureEdit, EN_CHANGE, &KrDxfIn::PictureEditChanged);
    BindFocus(kScaleEdit, [this](bool gained) {
        if (!gained) ScaleLeft();
    });
    On(kTableBrowseButton, BN_CLICKED, &KrDxfIn::BrowseTable);
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
    media_.Select(0);
    InitTexts();
    InitPictures();
    InitScales();
    file_.Init(Key());
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
        {kPictureEdit, 12, "1"},
        {kScaleEdit, 20, "1"},
        {kSubModelEdit, 26, "DXFSUB"},
        {kTableEdit, 256, layerTable_.c_str()},
    };
    for (const auto& edit : edits) {
        Item<kiro::ui::Edit>(edit.id).LimitText(edit.characters);
        Item<kiro::ui::Edit>(edit.id).SetText(edit.text);
    }
    Item<kiro::ui::Edit>(kTableEdit).ShowEnd();
}

void KrDxfIn::InitPictures() {
    const kiro::ui::ComboBox combo = pictures_.Combo();
    for (int index = 0; index < 2 * kLargestPicture; ++index) combo.AddString(std::to_string(PictureAt(index)));
    combo.SetCurSel(IndexOfPicture(pictureNumber_));
}

void KrDxfIn::InitScales() {
    for (const char* scale : kScales) scales_.Combo().AddString(scale);
    scales_.Combo().SetCurSel(0);
}

const char* KrDxfIn::Key() const { return IsFloppy() ? "#FLOPPY_WIN#" : drawing_.key; }

kiro::ui::FileNameField::Chooser KrDxfIn::FileChooser() const {
    if (IsShape()) return {"#DXF:SHAPE#", IsFloppy(), "シェイプファイル", kKrChooseExisting};
    return {Key(), IsFloppy(), drawing_.comment, kKrChooseExisting};
}

// ---- Handlers ----

void KrDxfIn::DataTypeChosen() {
    fileLabel_.Flat();
    file_.Clear();
}

void KrDxfIn::PictureEditChanged() {
    const int index = FindPicture(Item<kiro::ui::Edit>(kPictureEdit).Text().value_or(std::string()));
    if (index >= 0) TakePicture(index);
    if (IsAddMode()) ShowScaleOf(index >= 0 ? std::optional(pictureNumber_) : std::nullopt);
}

void KrDxfIn::TakePicture(int index) {
    pictureNumber_ = PictureAt(index);
    pictures_.Combo().SetCurSel(index);
    matrix_.Enable(pictureNumber_ < 0);
}

void KrDxfIn::PictureChosen(int index) {
    fileLabel_.Flat();
    TakePicture(index);
    // The edit tells of the change, and the rest follows from there.
    Item<kiro::ui::Edit>(kPictureEdit).SetText(std::to_string(pictureNumber_));
    FocusTo(kPictureEdit);
}

void KrDxfIn::ModeChosen() {
    fileLabel_.Flat();
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
    fileLabel_.Flat();
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

void KrDxfIn::MediaChosen() {
    fileLabel_.Flat();
    if (IsFloppy()) {
        Utility().SetFloppy(drawing_.key);
    } else {
        Utility().SetKeyword(drawing_.key);
    }
    file_.LoadRecent(Key());
}

void KrDxfIn::RefreshVersion() {
    fileLabel_.Flat();
    const std::string path = KrInternalPath(Utility(), Key(), file_.Name());
    DrawingVersion version;
    const HCURSOR previous = SetCursor(LoadCursorW(nullptr, IDC_WAIT));  // a drawing on a slow share takes its time
    if (!path.empty()) version = isDwg_ ? ReadDwgVersion(path) : ReadDxfVersion(path);
    SetCursor(previous);
    Item<kiro::ui::Window>(kVersionText).SetText(VersionLine(version));
}

void KrDxfIn::BrowseTable() {
    fileLabel_.Flat();
    Utility().SetKeyword(kTableKey);
    Utility().SetComment("レイヤ変換テーブルファイル");
    Utility().SetWildcard("DXFKIRO_LAYER*");
    if (!Utility().FileDialog(kKrChooseExisting)) return;
    Item<kiro::ui::Edit>(kTableEdit).SetText(Utility().GetFileName());
    Item<kiro::ui::Edit>(kTableEdit).ShowEnd();
}

void KrDxfIn::OpenParameters() {
    fileLabel_.Flat();
    CommandFrame(kDxfInParamDialog).DoModal(Handle());
}

void KrDxfIn::OpenAttributes() {
    fileLabel_.Flat();
    // A host that hands over no block: what is chosen can still be kept as the defaults.
    DxfInParamBlock kept{};
    if (!info_.importParams) DxfInReadParam(&kept);
    KrDxfInAttr(info_.importParams ? *info_.importParams : kept).DoModal(Handle());
}

void KrDxfIn::OpenBatch() {
    fileLabel_.Flat();
    const auto table = ReadText(kTableEdit, drawing_.caption);
    if (!table) return;
    // The batch dialog takes the table from the record, in the form in which it is shown here.
    if (!WriteFixedText(info_.layerTableFileName, *table)) {
        Refuse("レイヤ変換テーブルのファイル名が長すぎます", kTableEdit);
        return;
    }
    CommandFrame(kDxfInAllDialog).DoModal(Handle());
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
    fileLabel_.Flat();
    NormaliseAll();
    file_.Normalise();
    Result result;
    if (!CheckPicture(result) || !CheckScale(result) || !CheckFile(result) || !CheckSubModel(result) ||
        !CheckTable(result) || !AgreesToLoseModel()) {
        return;
    }
    WriteBack(result);
    try {
        file_.Remember(Key());
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
    if (!file_.Readable(kRefusalCaption)) return false;
    Utility().SetKeyword(Key());
    if (!Utility().CheckFile(file_.Name().c_str())) {
        FocusTo(kFileNameEdit);
        return false;
    }
    if (file_.IsPattern()) {
        file_.Browse();
        FocusTo(kFileNameEdit);
        return false;
    }
    if (!Utility().CheckInputFile(file_.Name().c_str())) {
        file_.Forget();
        FocusTo(kFileNameEdit);
        return false;
    }
    result.inputFile = KrInternalPath(Utility(), Key(), file_.Name());
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

bool KrDxfIn::CheckTable(Result& result) {
    const auto table = ReadText(kTableEdit, kRefusalCaption);
    if (!table) return false;
    if (table->empty()) return true;
    result.layerTable = KrInternalPath(Utility(), kTableKey, *table);
    if (!result.layerTable.empty() && FitsFixedText(info_.layerTableFileName, result.layerTable)) return true;
    if (*table != layerTable_) return Refuse("レイヤ変換テーブルのファイル名が無効です", kTableBrowseButton);
    // No name at all, but none of this dialog's choice: the host gets back what it gave.
    result.layerTable = ReadFixedText(info_.layerTableFileName);
    return true;
}

bool KrDxfIn::AgreesToLoseModel() {
    if (IsAddMode() || !GetActiveModel()->IsModified()) return true;
    return kiro::ui::Ask(Handle(), "モデルが保存されていません。\nモデルが壊れます。\nよろしいですか。",
                         drawing_.caption);
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
