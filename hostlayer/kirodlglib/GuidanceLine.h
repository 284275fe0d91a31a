// The guidance line: a strip at the lower edge of a dialog that shows what the control with the focus is for, or what
// is wrong with it.
#pragma once

#include <windows.h>

#include <string>

inline constexpr wchar_t kGuidanceLineClass[] = L"KiroGuidanceLine";
inline constexpr UINT kGuidanceLineIsError = WM_APP + 1;  // sent to the strip: 1 when its text is an error

class GuidanceLine {
  public:
    // Adds the strip to the dialog, which grows by its height. A dialog that has one keeps it as it is.
    void Attach(HWND dialog);
    void Show(const std::wstring& text, bool error);

  private:
    HWND window_ = nullptr;  // the dialog's, gone with it
};
