// The host program of a benchmark: a main window that the dialogs open over, a home folder of its own, and the
// library's templates as bare system windows, the floor of what the library's dialogs take.
#pragma once

#include <windows.h>

#include <exception>
#include <filesystem>
#include <functional>

#include "benchmarks/BareContents.h"

class BenchHost {
  public:
    BenchHost();
    BenchHost(const BenchHost&) = delete;
    BenchHost& operator=(const BenchHost&) = delete;
    ~BenchHost();

    HWND Owner() const { return owner_; }
    HMODULE Library() const { return library_; }
    const std::filesystem::path& Home() const { return home_; }

    // The controls of the current style, as the commands have them, on this thread.
    class Style {
      public:
        explicit Style(const BenchHost& host) { ActivateActCtx(host.context_, &cookie_); }
        Style(const Style&) = delete;
        Style& operator=(const Style&) = delete;
        ~Style() { DeactivateActCtx(0, cookie_); }

      private:
        ULONG_PTR cookie_ = 0;
    };

    // While one lives, every dialog over the main window is cancelled as soon as it is shown and painted, and every
    // message box is answered with OK or No.
    class AutoClose {
      public:
        explicit AutoClose(BenchHost& host);
        AutoClose(const AutoClose&) = delete;
        AutoClose& operator=(const AutoClose&) = delete;
        ~AutoClose();

      private:
        BenchHost& host_;
        HHOOK boxes_;
    };

    // Runs a call that opens a dialog. When that is shown and painted, the work is done, on this thread; then the
    // dialog is cancelled. What the work throws is thrown to the caller.
    using Work = std::function<void(HWND dialog)>;
    void Play(const std::function<void()>& call, const Work& work);

    // A template of the library and nothing else, but the contents in its controls.
    void OpenBare(int templateId, const BareContents& contents) const;

  private:
    static LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void DialogIsIdle(HWND dialog);
    HWND MakeOwner();

    HMODULE library_;
    HANDLE context_;
    HWND owner_;
    std::filesystem::path home_;
    bool autoClose_ = false;
    Work work_;
    std::exception_ptr failure_;
};
