// What a dialog does row by row while it stays usable: the screen shows each result and a bar at the lower edge how far
// it has come, and the user can stop it between two rows.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "ui/Dialog.h"

namespace kiro::ui {

class ListRun {
  public:
    // Make it before the dialog is shown. When the dialog ends, whatever ends it, no further step is made.
    explicit ListRun(Dialog& dialog);

    // Returns at once. step: one row; false ends the run. ended: after the last step, or the one after which Stop was
    // asked for. What a step throws ends the dialog, as in any handler.
    void Start(std::vector<int> rows, std::function<bool(int row)> step, std::function<void()> ended);
    void Stop() { stop_ = true; }
    // For a step that has said what it is about to do. When many steps take no time, a screen that is painted five
    // times a second is enough; it is, after the steps, where they do not do it.
    void Paint();
    bool IsPaintDue() const { return GetTickCount64() - painted_ >= kBetweenPaints; }
    bool IsRunning() const { return running_; }
    std::size_t Done() const { return next_; }  // steps made
    std::size_t Count() const { return rows_.size(); }

  private:
    static constexpr ULONGLONG kBetweenPaints = 200;  // milliseconds

    void ShowBar();
    void Continue();
    void Next();
    void Ended();

    Dialog& dialog_;
    int lowerEdge_ = 0;  // of the dialog's template: the host's guidance line comes below
    HWND bar_ = nullptr;
    std::vector<int> rows_;
    std::function<bool(int)> step_;
    std::function<void()> ended_;
    std::size_t next_ = 0;
    ULONGLONG painted_ = 0;  // when, in milliseconds
    bool running_ = false;
    bool stop_ = false;
};

}  // namespace kiro::ui
