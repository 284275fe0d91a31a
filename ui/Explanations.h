// Explanations: balloon-like popups that appear while the mouse rests on a place of a dialog. They take neither focus
// nor input.
#pragma once

#include <memory>
#include <vector>

#include "ui/Dialog.h"
#include "ui/HoverZones.h"

namespace kiro::ui {

class ExplanationPopup : public Dialog {
  public:
    // Where the popup stands relative to the zone that it explains. Its top is always 5 pixels below the zone.
    enum class Placement { kLeftAtZoneLeft, kCentred, kRightAtZoneRight, kRightAtZoneLeft };

    ExplanationPopup(int templateId, Placement placement);
    ~ExplanationPopup() override;

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

// Explanations of a dialog that all stand in the same way beside their statics, one at a time.
class Explanations {
  public:
    struct Page {
        int zoneId;  // the static under the mouse
        int templateId;
    };
    Explanations(Dialog& dialog, ExplanationPopup::Placement placement, std::vector<Page> pages);

  private:
    static std::vector<int> ZonesOf(const std::vector<Page>& pages);
    void ZoneChanged(int zone);

    Dialog& dialog_;
    ExplanationPopup::Placement placement_;
    std::vector<Page> pages_;
    HoverZones zones_;
    std::unique_ptr<ExplanationPopup> popup_;
};

}  // namespace kiro::ui
