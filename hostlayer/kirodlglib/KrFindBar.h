// A small bar below a grid for a text to be found: a label and an edit. It takes its room from the list view while it
// is open. Its windows are made when they are first needed and go with the dialog.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

class FindBarHost {
  public:
    enum class Event { kTyped, kNext, kPrevious, kClosed };
    virtual void OnFind(Event event) = 0;

  protected:
    ~FindBarHost() = default;
};

class KrFindBar {
  public:
    explicit KrFindBar(FindBarHost& host) : host_(host) {}
    KrFindBar(const KrFindBar&) = delete;
    KrFindBar& operator=(const KrFindBar&) = delete;
    ~KrFindBar();

    void Open(HWND list);  // or goes to the one that is open
    void Close();
    bool IsOpen() const { return open_; }
    bool HasFocus() const { return edit_ && GetFocus() == edit_; }
    std::wstring Text() const;
    bool OnCommand(int notification, HWND control);  // the dialog's WM_COMMAND; false: not the bar's

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam);
    bool Make();

    FindBarHost& host_;
    HWND list_ = nullptr;
    HWND label_ = nullptr;
    HWND edit_ = nullptr;
    int height_ = 0;
    bool open_ = false;
};
