#include "driver/Driver.h"

namespace kiro::drive {
namespace {

HDESK privateDesktop;

void Input(DWORD flags, LONG x = 0, LONG y = 0, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.mouseData = data;
    input.mi.dwFlags = flags;
    if (SendInput(1, &input, sizeof input) != 1) throw Failure("the mouse does not obey");
}

void KeyInput(WORD virtualKey, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    if (SendInput(1, &input, sizeof input) != 1) throw Failure("the keyboard does not obey");
}

}  // namespace

HDESK PrivateDesktop() { return privateDesktop; }

void UsePrivateDesktop() {
    if (privateDesktop) return;
    const std::wstring name = L"kiro" + std::to_wstring(GetCurrentProcessId());
    privateDesktop = CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    // Fails when this thread has a window already.
    if (!privateDesktop || !SetThreadDesktop(privateDesktop)) throw Failure("no desktop of its own for this program");
}

POINT Centre(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

void MoveMouse(POINT point) {
    // Absolute positions count in 65536ths of the screen; half a pixel more keeps the rounding inside the pixel.
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    Input(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, MulDiv(point.x * 2 + 1, 65536, width * 2),
          MulDiv(point.y * 2 + 1, 65536, height * 2));
}

void MouseDown(bool right) { Input(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN); }
void MouseUp(bool right) { Input(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP); }
void MouseWheel(int notches) { Input(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(notches * WHEEL_DELTA)); }

void PressKey(WORD virtualKey, WORD held) {
    if (held) KeyInput(held, true);
    KeyInput(virtualKey, true);
    KeyInput(virtualKey, false);
    if (held) KeyInput(held, false);
}

}  // namespace kiro::drive
