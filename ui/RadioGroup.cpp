#include "ui/RadioGroup.h"

#include <algorithm>
#include <utility>

#include "ui/Subclass.h"

namespace kiro::ui {

namespace {

// Buttons that stand one after the other become one group of the system's; false when something stands between them.
bool MakeOneGroup(const std::vector<Button>& buttons) {
    for (std::size_t i = 1; i < buttons.size(); ++i)
        if (GetWindow(buttons[i - 1].Handle(), GW_HWNDNEXT) != buttons[i].Handle()) return false;
    const auto setGroup = [](HWND window, bool starts) {
        const LONG style = GetWindowLongW(window, GWL_STYLE);
        const LONG wanted = starts ? style | WS_GROUP : style & ~WS_GROUP;
        if (wanted != style) SetWindowLongW(window, GWL_STYLE, wanted);
    };
    for (std::size_t i = 1; i < buttons.size(); ++i) setGroup(buttons[i].Handle(), false);
    if (const HWND next = GetWindow(buttons.back().Handle(), GW_HWNDNEXT)) setGroup(next, true);
    return true;
}

}  // namespace

// The arrow keys among buttons that are groups of their own.
class RadioGroup::ArrowKeys {
  public:
    explicit ArrowKeys(std::size_t count) : subclasses_(count) {}

    void Attach(const std::vector<Button>& buttons) {
        buttons_ = buttons;
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            // A button that gets the focus is not chosen by that.
            SendMessageW(buttons[i].Handle(), BM_SETDONTCLICK, TRUE, 0);
            subclasses_[i].Attach(buttons[i].Handle(), [this, i](UINT message, WPARAM wParam, LPARAM lParam) {
                return OnMessage(i, message, wParam, lParam);
            });
        }
    }

  private:
    std::optional<LRESULT> OnMessage(std::size_t index, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_GETDLGCODE) return subclasses_[index].CallOriginal(message, wParam, lParam) | DLGC_WANTARROWS;
        if (message != WM_KEYDOWN) return std::nullopt;
        const bool back = wParam == VK_UP || wParam == VK_LEFT;
        if (!back && wParam != VK_DOWN && wParam != VK_RIGHT) return std::nullopt;
        const std::size_t count = buttons_.size();
        for (std::size_t step = 1; step < count; ++step) {
            const HWND next = buttons_[(index + (back ? count - step : step)) % count].Handle();
            if (!IsWindowEnabled(next) || !IsWindowVisible(next)) continue;
            SendMessageW(next, BM_CLICK, 0, 0);  // takes the focus along
            break;
        }
        return 0;
    }

    std::vector<Button> buttons_;
    std::vector<Subclass> subclasses_;
};

RadioGroup::RadioGroup(Dialog& dialog, std::initializer_list<int> controlIds)
    : dialog_(dialog), controlIds_(controlIds), arrowKeys_(std::make_shared<ArrowKeys>(controlIds.size())) {
    dialog.BindMessage(WM_INITDIALOG, [*this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        std::vector<Button> buttons;
        for (std::size_t i = 0; i < controlIds_.size(); ++i) buttons.push_back(At(i));
        const bool ownGroups = std::all_of(buttons.begin(), buttons.end(), [](const Button& button) {
            return (GetWindowLongW(button.Handle(), GWL_STYLE) & WS_GROUP) != 0;
        });
        if (ownGroups && !MakeOneGroup(buttons)) arrowKeys_->Attach(buttons);
        return std::nullopt;
    });
}

void RadioGroup::OnChosen(std::function<void(int)> chosen) {
    for (std::size_t i = 0; i < controlIds_.size(); ++i) {
        dialog_.Bind(controlIds_[i], BN_CLICKED, [group = *this, index = static_cast<int>(i), chosen] {
            group.Select(index);
            if (chosen) chosen(index);
        });
    }
}

void RadioGroup::Select(int index) const {
    // The system makes the checked button the tab stop.
    for (std::size_t i = 0; i < controlIds_.size(); ++i) At(i).SetCheck(static_cast<int>(i) == index);
    if (index >= 0 && IsWindowEnabled(At(static_cast<std::size_t>(index)).Handle())) return;
    for (std::size_t i = 0; i < controlIds_.size(); ++i) {
        if (!IsWindowEnabled(At(i).Handle())) continue;
        At(i).SetTabStop(true);  // without it the keys would reach none of them
        return;
    }
}

int RadioGroup::Selected() const {
    const auto checked = [this](int id) { return dialog_.Item<Button>(id).IsChecked(); };
    const auto found = std::find_if(controlIds_.begin(), controlIds_.end(), checked);
    return found == controlIds_.end() ? -1 : static_cast<int>(found - controlIds_.begin());
}

void RadioGroup::Enable(bool on) const {
    for (const int id : controlIds_) dialog_.Item<Window>(id).Enable(on);
}

}  // namespace kiro::ui
