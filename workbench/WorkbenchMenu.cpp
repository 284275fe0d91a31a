#include "WorkbenchMenu.h"

#include <string>
#include <vector>

#include "Calls.h"

namespace kiro {
namespace {

constexpr int kDigits = 10;

// Ctrl+1 to Ctrl+9 and Ctrl+0 are the first ten commands; Shift makes them the next ones.
ACCEL KeyOf(int index) {
    const int digit = (index + 1) % kDigits;
    return {static_cast<BYTE>(FVIRTKEY | FCONTROL | (index < kDigits ? 0 : FSHIFT)), static_cast<WORD>('0' + digit),
            static_cast<WORD>(kFirstCommand + index)};
}

// A digit for the menu as well; when those are used up, a letter.
wchar_t MnemonicOf(int index) {
    return static_cast<wchar_t>(index < kDigits ? L'0' + (index + 1) % kDigits : L'A' + index - kDigits);
}

std::wstring CommandText(const Export& command, int index) {
    const ACCEL key = KeyOf(index);
    return std::wstring(L"&") + MnemonicOf(index) + L"  " + command.title + L"（" + WideFromUtf8(command.name) +
           L"）\tCtrl+" + (key.fVirt & FSHIFT ? L"Shift+" : L"") + static_cast<wchar_t>(key.key);
}

}  // namespace

HMENU MakeMenu() {
    const HMENU commands = CreatePopupMenu();
    int index = 0;
    for (const Export& command : Exports()) {
        AppendMenuW(commands, MF_STRING, static_cast<UINT_PTR>(kFirstCommand + index),
                    CommandText(command, index).c_str());
        ++index;
    }
    const HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, kCallAgain, L"呼び出す(&A)\tF5");
    AppendMenuW(file, MF_STRING, kSelectAll, L"欄をすべて選択(&L)\tCtrl+A");
    AppendMenuW(file, MF_STRING, kNextPane, L"次の欄(&N)\tF6");
    AppendMenuW(file, MF_STRING, kPreviousPane, L"前の欄(&P)\tShift+F6");
    AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(file, MF_STRING, kQuit, L"終了(&X)\tAlt+F4");
    const HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"ファイル(&F)");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(commands), L"コマンド(&C)");
    return bar;
}

HACCEL MakeKeys() {
    std::vector<ACCEL> keys = {{FVIRTKEY, VK_F5, kCallAgain},
                               {FVIRTKEY | FCONTROL, 'A', kSelectAll},
                               {FVIRTKEY, VK_F6, kNextPane},
                               {FVIRTKEY | FSHIFT, VK_F6, kPreviousPane}};
    for (int index = 0; index < static_cast<int>(Exports().size()); ++index) keys.push_back(KeyOf(index));
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace kiro
