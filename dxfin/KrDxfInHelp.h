// Explanations: balloon-like popups that appear while the mouse rests on a place of a dialog. They take neither focus
// nor input. Below, those of the import dialog's five groups.
#pragma once

#include "resources/dxfin/KrDxfInHelp.ids.h"
#include "ui/Dialog.h"

class KrDxfInHelp : public kiro::ui::Dialog {
  public:
    // Where the popup stands relative to the zone that it explains. Its top is always 5 pixels below the zone.
    enum class Placement { kLeftAtZoneLeft, kCentred, kRightAtZoneRight, kRightAtZoneLeft };

    KrDxfInHelp(int templateId, Placement placement);
    ~KrDxfInHelp() override;

    // Makes the popup for a zone, given in the owner's client area, and shows it; the owner stays the active window.
    void Open(HWND owner, const RECT& zone);

  protected:
    void OnInit() override;

  private:
    void Place() const;
    void Shape() const;

    Placement placement_;
    HBRUSH background_;
    HWND owner_ = nullptr;
    RECT zone_{};
};

// "種別"
class KrDxfIn2 final : public KrDxfInHelp {
  public:
    KrDxfIn2() : KrDxfInHelp(kDataTypeHelp, Placement::kLeftAtZoneLeft) {}
};
// "モード"
class KrDxfIn3 final : public KrDxfInHelp {
  public:
    KrDxfIn3() : KrDxfInHelp(kModeHelp, Placement::kLeftAtZoneLeft) {}
};
// "格納先ピクチャ"
class KrDxfIn4 final : public KrDxfInHelp {
  public:
    KrDxfIn4() : KrDxfInHelp(kPictureHelp, Placement::kCentred) {}
};
// "ピクチャ"
class KrDxfIn5 final : public KrDxfInHelp {
  public:
    KrDxfIn5() : KrDxfInHelp(kMatrixHelp, Placement::kRightAtZoneRight) {}
};
// "倍率"
class KrDxfIn6 final : public KrDxfInHelp {
  public:
    KrDxfIn6() : KrDxfInHelp(kScaleHelp, Placement::kRightAtZoneLeft) {}
};
