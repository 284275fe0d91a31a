// The workbench's window: a host program that shows what goes into a command and what comes out. The record before the
// call can be edited as JSON; after the call the changed fields are marked.
#pragma once

#include <windows.h>

#include <array>
#include <map>
#include <string>

#include "Calls.h"
#include "PaneLayout.h"

namespace kiro {

class Workbench {
  public:
    Workbench();  // shows the first command with a cleared record
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;
    ~Workbench();

    HWND Window() const { return window_; }
    void Show(const Export& command, const Json& input);  // what the panes have before a call
    void Note(const std::wstring& lines);                 // in the pane of what is shown during a call
    // Calls the export and shows what came of it. RecordError when the input does not fit it.
    CallResult Call(const Export& command, const Json& input);
    int Run();  // until the window is closed

    enum Pane { kBefore, kAfter, kMessages };
    // Control numbers: the panes and their captions, in that order, and the hint.
    static constexpr int kFirstPane = 1;
    static constexpr int kFirstCaption = 11;
    static constexpr int kHint = 21;

  private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void MakePanes();
    HWND MakeChild(const wchar_t* type, const wchar_t* text, DWORD style, int id, HFONT font);
    void Arrange();
    int HintHeight(int width) const;
    int Scaled(int pixels) const;
    void OnMenu(int id);
    void MovePane(int step);
    void CallShown();
    void ShowText(const Export& command, const std::wstring& text);
    void PointAtError(const std::string& utf8, std::size_t byte);

    HWND window_ = nullptr;
    std::array<HWND, kPaneCount> panes_{};
    int pane_ = kBefore;  // the one with the focus, or that had it last
    HACCEL keys_ = nullptr;
    RECT strip_{};
    HFONT textFont_ = nullptr;
    HFONT recordFont_ = nullptr;
    const Export* shown_ = nullptr;
    bool calling_ = false;
    std::map<const Export*, std::wstring> edited_;  // the records of the commands shown before
};

}  // namespace kiro
