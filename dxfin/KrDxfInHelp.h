// The explanations of the import dialog's five groups.
#pragma once

#include "resources/dxfin/KrDxfInHelp.ids.h"
#include "ui/Explanations.h"

// "種別"
class KrDxfIn2 final : public kiro::ui::ExplanationPopup {
  public:
    KrDxfIn2() : ExplanationPopup(kDataTypeHelp, Placement::kLeftAtZoneLeft) {}
};
// "モード"
class KrDxfIn3 final : public kiro::ui::ExplanationPopup {
  public:
    KrDxfIn3() : ExplanationPopup(kModeHelp, Placement::kLeftAtZoneLeft) {}
};
// "格納先ピクチャ"
class KrDxfIn4 final : public kiro::ui::ExplanationPopup {
  public:
    KrDxfIn4() : ExplanationPopup(kPictureHelp, Placement::kCentred) {}
};
// "ピクチャ"
class KrDxfIn5 final : public kiro::ui::ExplanationPopup {
  public:
    KrDxfIn5() : ExplanationPopup(kMatrixHelp, Placement::kRightAtZoneRight) {}
};
// "倍率"
class KrDxfIn6 final : public kiro::ui::ExplanationPopup {
  public:
    KrDxfIn6() : ExplanationPopup(kScaleHelp, Placement::kRightAtZoneLeft) {}
};
