// Drives and shares of other computers. One that does not answer holds up whoever asks it, often for half a minute or
// more, so a window asks such a place through a probe.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kiro::ui {

// Milliseconds. A computer that is there answers in hundredths of a second. A window that fetches no message for five
// seconds is taken by the system for one that hangs, so there is room for two places one after the other.
constexpr DWORD kProbePatience = 2000;

// Whether asking the path's drive or share may take long: it is another computer's, or is keeping a probe waiting now.
// That is known here; nothing is asked.
bool MayBeSilent(const std::wstring& path);
bool MayBeSilent(const std::wstring& path, UINT driveType);  // where that is known, as GetDriveType has it

// A question that is asked on a thread of its own. When the answer is late the thread is left to itself: it owns the
// question, keeps this library loaded and ends when the system gives up. It is not broken off, because a connection
// that takes its time is there for the next question then. Until then the place counts as silent, and gets no second
// thread.
class Probe {
  public:
    // Asks at once; several probes wait together. path: absolute, of what is asked. question: refers to nothing that it
    // does not own.
    Probe(const std::wstring& path, std::function<bool()> question, DWORD patience = kProbePatience);

    // Waits, at most until the patience has passed since the beginning. Nothing: there is no answer.
    std::optional<bool> Answer() const;

  private:
    std::shared_ptr<struct Asked> asked_;  // null: nothing has been asked
};

// False: the path's drive or share is silent. Costs nothing where it is this computer's. Shows the wait cursor.
bool IsAnswering(const std::wstring& path);

}  // namespace kiro::ui
