// The commands that work on the host's current model. Element 0 of each one's array is a state word: it decides whether
// the user is asked first, refused, or sees the dialog at once. The arrays stay as they came: what is set is in the
// model.
#include <windows.h>

#include "entry/CVanteoApp.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kirogr.h"
#include "entry/host/kiromdl.h"
#include "entry/host/kirovanteo.h"
#include "model/KrDxfLayerName.h"
#include "model/KrDxfLineType.h"
#include "model/KrDxfLineWidth.h"
#include "model/KrDxfWarning1.h"
#include "model/ModelGrid.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kDxfCaption[] = "ＤＸＦ書込み";
constexpr char kDwgCaption[] = "ＤＷＧ書込み";

// The one kind of warning that is shown.
constexpr std::int32_t kNoFontTableWarning = 1;

enum class Prompt { kNone, kAsk, kRefuse };

// Texts of one command's prompts.
struct PromptTexts {
    const char* refusal;
    const char* question;
};
constexpr PromptTexts kLayerNameTexts = {"レイヤ名が設定されていません。\n処理を中断します。",
                                         "レイヤ名が設定されていません。\n設定しますか。"};
constexpr PromptTexts kLineTypeTexts = {"線種名が設定されていません。\n処理を中断します。",
                                        "線種名が設定されていません。\n設定しますか。"};
constexpr PromptTexts kLineWidthTexts = {"線幅が設定されていません。\n処理を中断します。",
                                         "線幅が設定されていません。\n設定しますか。"};

// True when the command goes on to its dialog.
bool Passes(HWND owner, Prompt prompt, const PromptTexts& texts, const char* caption) {
    switch (prompt) {
        case Prompt::kRefuse:
            kiro::ui::Tell(owner, texts.refusal, caption, kiro::ui::Icon::kError);
            return false;
        case Prompt::kAsk:
            return kiro::ui::Ask(owner, texts.question, caption);
        case Prompt::kNone:
            break;
    }
    return true;
}

// run(owner): the result of the dialog.
template <class Run>
bool RunSettings(Prompt prompt, const PromptTexts& texts, const char* caption, Run run) {
    const ResourceContext context;
    const HWND owner = Grgetwin(-1);
    try {
        return Passes(owner, prompt, texts, caption) && run(owner) == IDOK;
    } catch (...) {
        return false;
    }
}

template <class SettingsDialog, class... Arguments>
INT_PTR RunOverLineStyle(HWND owner, const char* title, Arguments... arguments) {
    if (HxModelGetLineStyle(GetActiveModel())) return SettingsDialog(arguments...).DoModal(owner);
    kiro::ui::Tell(owner, kNoLineStyle, title, kiro::ui::Icon::kError);
    return IDCANCEL;
}

// For line types and line widths: below 0 refuses, 0 opens the dialog at once, above 0 asks first.
Prompt PromptOf(std::int32_t state) {
    if (state == 0) return Prompt::kNone;
    return state < 0 ? Prompt::kRefuse : Prompt::kAsk;
}
const char* CaptionOf(std::int32_t state) { return state == 1 ? kDxfCaption : kDwgCaption; }

}  // namespace

bool DxfLayerNameDialog(std::int32_t mode, std::int32_t* layerNames) {
    // Asks or refuses, always. Modes 0 and 1 have the same caption, but for the dialog itself 0 and 2 are the same: the
    // two rules are meant to differ.
    const Prompt prompt = layerNames[0] != 0 ? Prompt::kRefuse : Prompt::kAsk;
    const char* caption = mode == 0 || mode == 1 ? kDxfCaption : kDwgCaption;
    const bool revisions = mode != 0 && mode != 2;
    return RunSettings(prompt, kLayerNameTexts, caption,
                       [=](HWND owner) { return KrDxfLayerName(revisions, layerNames).DoModal(owner); });
}

bool DxfLineTypeDialog(std::int32_t* lineTypes) {
    return RunSettings(PromptOf(lineTypes[0]), kLineTypeTexts, CaptionOf(lineTypes[0]),
                       [=](HWND owner) { return RunOverLineStyle<KrDxfLineType>(owner, "線種設定", lineTypes); });
}

bool DxfLineWidthDialog(std::int32_t mode, std::int32_t* lineWidths) {
    return RunSettings(PromptOf(lineWidths[0]), kLineWidthTexts, CaptionOf(lineWidths[0]), [=](HWND owner) {
        return RunOverLineStyle<KrDxfLineWidth>(owner, "線幅設定", mode, lineWidths);
    });
}

bool DxfWarningDialog(std::int32_t kind) {
    if (kind != kNoFontTableWarning) return false;
    return RunSettings(Prompt::kNone, {}, "", [](HWND owner) { return KrDxfWarning1().DoModal(owner); });
}
