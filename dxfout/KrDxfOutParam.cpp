#include "dxfout/KrDxfOutParam.h"

#include "dxfout/OutParams.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOutParam.ids.h"

namespace {

constexpr char kCaption[] = "書込み・変換パラメータ";

constexpr std::int32_t kR13 = 1;
constexpr std::int32_t kFirstUtf8Version = 5;  // 2007
constexpr unsigned int kNameLimit = 20;        // characters that can be typed
constexpr unsigned int kDivisionLimit = 2;

enum Code : std::int32_t { kSjis, kEuc, kUtf8 };

}  // namespace

const KrDxfOutParam::Kind KrDxfOutParam::kKinds[] = {
    {kSubmodelBlockRadio, kSubmodelExpandRadio, kSubmodelNameEdit, &DxfOutParamBlock::submodelExpand,
     &DxfOutParamBlock::submodelBlock, "サブモデルのブロック名を入力してください。"},
    {kSymbolBlockRadio, kSymbolExpandRadio, kSymbolNameEdit, &DxfOutParamBlock::symbolExpand,
     &DxfOutParamBlock::symbolBlock, "シンボルのブロック名を入力してください。"},
    {kMarkBlockRadio, kMarkExpandRadio, kMarkNameEdit, &DxfOutParamBlock::markExpand, &DxfOutParamBlock::markBlock,
     "マークのブロック名を入力してください。"},
    {kFcsBlockRadio, kFcsExpandRadio, kFcsNameEdit, &DxfOutParamBlock::fcsExpand, &DxfOutParamBlock::fcsBlock,
     "ＦＣＳのブロック名を入力してください。"},
    {kCompositeBlockRadio, kCompositeExpandRadio, kCompositeNameEdit, &DxfOutParamBlock::compositeExpand,
     &DxfOutParamBlock::compositeBlock, "複合アイテムのブロック名を入力してください。"},
    {kHatchBlockRadio, kHatchExpandRadio, kHatchNameEdit, &DxfOutParamBlock::hatchExpand, &DxfOutParamBlock::hatchBlock,
     "ハッチングのブロック名を入力してください。"},
    {kDimensionBlockRadio, kDimensionExpandRadio, kDimensionNameEdit, &DxfOutParamBlock::dimensionExpand,
     &DxfOutParamBlock::dimensionBlock, "寸法線のブロック名を入力してください。"},
};

KrDxfOutParam::KrDxfOutParam(const TARNAINFO& info, DxfOutParamBlock& params)
    : HostDialog(kDxfOutParamDialog),
      params_(params),
      isDwg_(info.output.outputIsDwg != 0),
      usesSymbolName_(params.useSymbolName != 0),
      version_(*this, {kGx3Radio, kR13Radio, kR14Radio, k2000Radio, k2004Radio, k2007Radio, k2010Radio, k2013Radio}),
      format_(*this, {kAsciiRadio, kBinaryRadio}),
      coordinates_(*this, {kPaperCoordinatesRadio, kModelCoordinatesRadio}),
      code_(*this, {kSjisRadio, kEucRadio, kUtf8Radio}),
      words_(*this) {
    BindChoices();
    BindControls();
}

void KrDxfOutParam::BindChoices() {
    using Block = DxfOutParamBlock;
    const auto pair = [this](std::int32_t Block::*word, kiro::ui::RadioGroup radios) {
        radios.OnChosen(nullptr);
        words_.Radios(word, radios, {0, 1}, 1);  // every value but 0 is the second
    };
    words_.Radios(&Block::outputVersion, version_, {0, 1, 2, 3, 4, 5, 6, 7});
    words_.Radios(&Block::kanjiCode, code_, {kSjis, kEuc, kUtf8});
    code_.OnChosen(nullptr);
    pair(&Block::binaryFormat, format_);
    pair(&Block::modelCoordinates, coordinates_);
    pair(&Block::annotationPerChar, {*this, {kPerLineRadio, kPerCharacterRadio}});
    pair(&Block::hiddenSkip, {*this, {kHiddenConvertedRadio, kHiddenSkippedRadio}});
    pair(&Block::textTwoPoints, {*this, {kAngleRadio, kTwoPointsRadio}});
    pair(&Block::curveExpand, {*this, {kPolylineRadio, kCurveElementsRadio}});
    pair(&Block::pidConvert, {*this, {kPidOffRadio, kPidOnRadio}});
    for (const Kind& kind : kKinds) pair(kind.expand, {*this, {kind.blockRadio, kind.expandRadio}});
    words_.Number(&Block::curveDivision, kDivisionEdit, 4, 20, "無効な分割数です。（４≧分割数≧２０）");
}

void KrDxfOutParam::BindControls() {
    version_.OnChosen([this](int version) { VersionChosen(version); });
    Bind(kUseSymbolNameRadio, BN_CLICKED, [this] {
        usesSymbolName_ = !usesSymbolName_;
        ShowUseOfSymbolName();
    });
    Guide({{kDivisionEdit, "自由曲線の分割数を入力してください。"}});
    NormaliseOnKillFocus(kDivisionEdit);
    for (const Kind& kind : kKinds) Guide({{kind.nameEdit, kind.guidance}});
    for (std::size_t i = 0; i < kNamesToGive; ++i) NormaliseOnKillFocus(kKinds[i].nameEdit);
}

// What the dialog opens with: the block, as far as the version and the kind of file allow it.
DxfOutParamBlock KrDxfOutParam::Start() const {
    DxfOutParamBlock start = params_;
    if (isDwg_) {
        start.binaryFormat = 0;
        if (start.outputVersion < kR13) start.outputVersion = kR13;
    }
    if (IsGx3(start)) {
        start.modelCoordinates = 0;
    } else if (start.outputVersion >= kFirstUtf8Version) {
        start.kanjiCode = kUtf8;
    }
    if (isDwg_ && start.outputVersion < kFirstUtf8Version) start.kanjiCode = kSjis;
    if (start.kanjiCode != kEuc && start.kanjiCode != kUtf8) start.kanjiCode = kSjis;
    return start;
}

void KrDxfOutParam::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(kCaption);
    Utility().SetCaption(kCaption);
    const DxfOutParamBlock start = Start();
    // What cannot be chosen is known before the buttons are selected: the Tab key goes where one can be.
    format_.Enable(!isDwg_);
    Item<kiro::ui::Button>(kGx3Radio).Enable(!isDwg_);
    Item<kiro::ui::Button>(kModelCoordinatesRadio).Enable(!IsGx3(start));
    EnableCodes(start.kanjiCode);
    words_.Show(start);
    SendMessageW(GetDlgItem(Handle(), kUseSymbolNameRadio), BM_SETDONTCLICK, TRUE, 0);
    ShowUseOfSymbolName();
    if (!params_.pidAvailable) {
        for (const int id : {kPidGroup, kPidOffRadio, kPidOnRadio}) Item<kiro::ui::Window>(id).Show(false);
    }
    Item<kiro::ui::Edit>(kDivisionEdit).LimitText(kDivisionLimit);
    shownNames_.clear();
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        const auto edit = Item<kiro::ui::Edit>(kKinds[i].nameEdit);
        edit.LimitText(kNameLimit);
        edit.SetText(ReadFixedText(params_.*kKinds[i].name));
        shownNames_.push_back(TextOf(i));
    }
}

// ---- Handlers ----

// The release decides what the coordinates and the code of the characters can be.
void KrDxfOutParam::VersionChosen(int version) {
    const bool utf8 = version >= kFirstUtf8Version;
    Item<kiro::ui::Button>(kModelCoordinatesRadio).Enable(version >= kR13);
    if (version < kR13) coordinates_.Select(0);
    EnableCodes(utf8 ? kUtf8 : kSjis);
    code_.Select(utf8 ? kUtf8 : kSjis);
}

// The codes that can be chosen beside the one that is.
void KrDxfOutParam::EnableCodes(std::int32_t code) {
    Item<kiro::ui::Button>(kSjisRadio).Enable(code != kUtf8);
    Item<kiro::ui::Button>(kEucRadio).Enable(code == kEuc || (code == kSjis && !isDwg_));
    Item<kiro::ui::Button>(kUtf8Radio).Enable(code == kUtf8);
}

// Deliberately a radio button although each click turns it over.
void KrDxfOutParam::ShowUseOfSymbolName() {
    const auto button = Item<kiro::ui::Button>(kUseSymbolNameRadio);
    button.SetCheck(usesSymbolName_);
    button.SetTabStop(true);  // of which the system deprives a button that is not selected
}

// ---- Confirmation ----

void KrDxfOutParam::OnOk() {
    NormaliseAll();
    if (!CheckDivision() || !CheckNames()) return;
    DxfOutParamBlock block = params_;
    words_.Read(block);
    block.useSymbolName = usesSymbolName_ ? 1 : 0;
    StoreNames(block);
    const bool keep = Item<kiro::ui::Button>(kKeepParametersCheck).IsChecked();
    if (keep && !kiro::ui::KeepAsDefault(Handle(), kCaption, block, params_, setdxfotparam, DxfOutWriteParam)) return;
    params_ = block;
    End(IDOK);
}

bool KrDxfOutParam::Refuse(const char* message, int controlId) const {
    kiro::ui::Tell(Handle(), message, kCaption);
    FocusTo(controlId);
    return false;
}

bool KrDxfOutParam::CheckDivision() {
    const auto fault = words_.FirstFault(Utility());
    return !fault || Refuse(fault->message, fault->editId);
}

bool KrDxfOutParam::CheckNames() {
    for (std::size_t i = 0; i < kNamesToGive; ++i) {
        if (!CheckName(i)) return false;
    }
    return true;
}

// A name that the user has not touched is no fault of his, except where it is missing or given twice.
bool KrDxfOutParam::CheckName(std::size_t index) {
    const int edit = kKinds[index].nameEdit;
    const std::wstring text = TextOf(index);
    if (text.empty()) return Refuse("名前が入力されていません。", edit);
    if (!IsUntouched(index)) {
        const auto name = ReadText(edit, kCaption);
        if (!name) return false;
        if (name->size() >= kNameSize) return Refuse("名前が長すぎます。", edit);
    }
    for (std::size_t later = index + 1; later < std::size(kKinds); ++later) {
        if (TextOf(later) == text) return Refuse("名前が重複しています。", kKinds[later].nameEdit);
    }
    return true;
}

// What was not touched stays byte for byte, also where it is no text that can be shown.
void KrDxfOutParam::StoreNames(DxfOutParamBlock& block) const {
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        if (IsUntouched(i)) continue;
        WriteFixedText(block.*kKinds[i].name, Item<kiro::ui::Edit>(kKinds[i].nameEdit).Text().value_or(std::string()));
    }
}
