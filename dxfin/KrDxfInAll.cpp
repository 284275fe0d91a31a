#include "dxfin/KrDxfInAll.h"

#include "dxfin/KrDxfInAttr.h"
#include "dxfin/KrDxfInParam.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfin/KrDxfInAll.ids.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr unsigned int kPatternCharacters = 255;

}  // namespace

KrDxfInAll::KrDxfInAll(const TarnaImportView& info, DxfInParamBlock& params)
    : HostDialog(kDxfInAllDialog),
      info_(info),
      params_(params),
      kind_(BatchKindOf(info.inputIsDwg != 0)),
      mode_(*this, {kBatchNewRadio, kBatchAddRadio}),
      medium_(*this, {kBatchDiskRadio, kBatchFloppyRadio}),
      table_(*this, {kBatchTableEdit, kBatchTableBrowseButton}, "DXFKIRO_LAYER*",
             HxEucEncoder::Sjis2Euc(ReadFixedText(info.layerTableFileName))) {
    Guide({{kPatternEdit, "ファイル名を入力します。ワイルドカード文字が使えます。"}});
    NormaliseOnKillFocus(kPatternEdit);
    NormaliseOnKillFocus(kBatchTableEdit);
    On(kListButton, BN_CLICKED, &KrDxfInAll::OpenList);
    On(kBatchParametersButton, BN_CLICKED, &KrDxfInAll::OpenParameters);
    On(kBatchAttributesButton, BN_CLICKED, &KrDxfInAll::OpenAttributes);
}

void KrDxfInAll::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(kind_.caption);
    Utility().SetCaption(kind_.caption);
    Utility().SetComment(kind_.comment);
    mode_.Select(0);
    medium_.Select(0);
    UseKeyword();
    Item<kiro::ui::Edit>(kPatternEdit).LimitText(kPatternCharacters);
    Item<kiro::ui::Edit>(kPatternEdit).SetText("*");
    table_.Init();
}

void KrDxfInAll::UseKeyword() const {
    medium_.Selected() == 1 ? Utility().SetFloppy(kind_.key) : Utility().SetKeyword(kind_.key);
}

void KrDxfInAll::OpenParameters() {
    if (KrDxfInParam(info_, params_).DoModal(Handle()) == IDOK) setdxfinparam(&params_);
}

void KrDxfInAll::OpenAttributes() { KrDxfInAttr(params_).DoModal(Handle()); }

// ---- The list ----

void KrDxfInAll::OpenList() {
    NormaliseAll();
    DxfInListInfo block{};
    block.inputIsDwg = info_.inputIsDwg;
    block.medium = medium_.Selected() == 1;
    block.importParams = &params_;
    if (!ReadPattern(block) || !ReadTable(block)) return;
    KrDxfInList list(block);
    const HCURSOR previous = SetCursor(LoadCursorW(nullptr, IDC_WAIT));  // a folder on a slow share takes its time
    const DrawingSearch::Start found = list.Search();
    SetCursor(previous);
    switch (found) {
        case DrawingSearch::Start::kNone:
            Refuse("該当するファイルがありません。");
            return;
        case DrawingSearch::Start::kFolder:
            Refuse("フォルダが指定されています。\nフォルダの中のファイルは「フォルダ名\\*」と指定してください。");
            return;
        case DrawingSearch::Start::kSilent:
            Refuse("フォルダが応答しません。\nネットワークの接続を確認してください。");
            return;
        case DrawingSearch::Start::kFailed:
            Refuse("ファイルを探せません。フォルダと媒体を確認してください。");
            return;
        case DrawingSearch::Start::kFound:
            break;
    }
    list.DoModal(Handle());
    ShowGuidance(list.Summary().c_str());
}

bool KrDxfInAll::ReadPattern(DxfInListInfo& list) {
    const auto pattern = ReadText(kPatternEdit, kind_.caption);
    if (!pattern) return false;
    UseKeyword();
    if (!Utility().CheckFile(pattern->c_str())) {  // tells what is wrong
        FocusTo(kPatternEdit);
        return false;
    }
    return WriteFixedText(list.pattern, *pattern) || Refuse("ファイル名が長すぎます");
}

bool KrDxfInAll::ReadTable(DxfInListInfo& list) const {
    const auto table = table_.Confirm(kind_.caption, sizeof list.layerTableFileName);
    return table && WriteFixedText(list.layerTableFileName, *table);
}

bool KrDxfInAll::Refuse(const std::string& message) {
    kiro::ui::Tell(Handle(), message, kind_.caption);
    FocusTo(kPatternEdit);
    return false;
}
