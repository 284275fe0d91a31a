// A window for a text, subclassed by its owner, that takes all keys from the dialog.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "KrGuarded.h"

// What the owner does not answer is the window's. answer: gives a std::optional<LRESULT>.
template <class Answer>
LRESULT AnswerAllKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam, Answer answer) noexcept {
    if (message == WM_GETDLGCODE) return DefSubclassProc(window, message, wParam, lParam) | DLGC_WANTALLKEYS;
    const auto result = Guarded(std::optional<LRESULT>(), answer);
    return result ? *result : DefSubclassProc(window, message, wParam, lParam);
}
