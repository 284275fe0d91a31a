#include "ui/Explanations.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace kiro::ui {
namespace {

constexpr COLORREF kBackground = 0x00FFFFF0;  // red 0xF0, green and blue 0xFF
constexpr int kDistance = 5;                  // pixels between the zone and the popup below it
constexpr int kRadius = 10;
constexpr int kPointsPerArc = 9;
constexpr int kArcs = 4;

}  // namespace

ExplanationPopup::ExplanationPopup(int templateId, Placement placement)
    : Dialog(templateId), placement_(placement), background_(CreateSolidBrush(kBackground)) {
    const auto paint = [this](WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        const auto dc = reinterpret_cast<HDC>(wParam);
        SetBkColor(dc, kBackground);
        SetBkMode(dc, OPAQUE);
        return reinterpret_cast<INT_PTR>(background_);
    };
    BindMessage(WM_CTLCOLORDLG, paint);
    BindMessage(WM_CTLCOLORSTATIC, paint);
}

ExplanationPopup::~ExplanationPopup() {
    Destroy();
    DeleteObject(background_);
}

void ExplanationPopup::Open(HWND owner, const RECT& zone) {
    owner_ = owner;
    zone_ = zone;
    if (!Create(owner)) return;
    ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    SetActiveWindow(owner);
}

void ExplanationPopup::OnInit() {
    Place();
    Shape();
}

void ExplanationPopup::Place() const {
    RECT zone = zone_;
    MapWindowPoints(owner_, nullptr, reinterpret_cast<POINT*>(&zone), 2);
    RECT popup{};
    GetWindowRect(Handle(), &popup);
    const LONG width = popup.right - popup.left;
    LONG left = zone.left;
    if (placement_ == Placement::kCentred) left = (zone.left + zone.right) / 2 - width / 2;
    if (placement_ == Placement::kRightAtZoneRight) left = zone.right - width;
    if (placement_ == Placement::kRightAtZoneLeft) left = zone.left - width;
    SetWindowPos(Handle(), nullptr, left, zone.bottom + kDistance, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ExplanationPopup::Shape() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    const POINT centres[kArcs] = {{client.right - kRadius, client.bottom - kRadius},
                                  {kRadius, client.bottom - kRadius},
                                  {kRadius, kRadius},
                                  {client.right - kRadius, kRadius}};
    POINT outline[kArcs * kPointsPerArc];
    for (int k = 0; k < kArcs * kPointsPerArc; ++k) {
        const double angle = k * 10 * std::numbers::pi / 180;
        const POINT& centre = centres[k / kPointsPerArc];
        outline[k] = {centre.x + static_cast<LONG>(kRadius * std::cos(angle)),
                      centre.y + static_cast<LONG>(kRadius * std::sin(angle))};
    }
    // The system owns the region from here on.
    SetWindowRgn(Handle(), CreatePolygonRgn(outline, kArcs * kPointsPerArc, ALTERNATE), FALSE);
}

Explanations::Explanations(Dialog& dialog, ExplanationPopup::Placement placement, std::vector<Page> pages)
    : dialog_(dialog),
      placement_(placement),
      pages_(std::move(pages)),
      zones_(dialog, ZonesOf(pages_), [this](int zone) { ZoneChanged(zone); }) {}

std::vector<int> Explanations::ZonesOf(const std::vector<Page>& pages) {
    std::vector<int> zones;
    for (const Page& page : pages) zones.push_back(page.zoneId);
    return zones;
}

void Explanations::ZoneChanged(int zone) {
    popup_.reset();
    if (zone < 0) return;
    popup_ = std::make_unique<ExplanationPopup>(pages_[static_cast<std::size_t>(zone)].templateId, placement_);
    popup_->Open(dialog_.Handle(), zones_.Zone(zone));
}

}  // namespace kiro::ui
