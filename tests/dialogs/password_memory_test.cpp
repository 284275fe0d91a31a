// Nothing of a password stays in the memory of the host program: looked for from this program, in all of the other's
// pages, as UTF-16 and in code page 932.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "driver/Clipboard.h"
#include "driver/Driver.h"
#include "resources/catia/KrDxfPass.ids.h"

namespace {

// Characters of two bytes in both forms, in an order that no table of characters has. Four of them are a find: eight
// bytes that are there by no chance.
constexpr std::size_t kFind = 4;

std::string SecretSjis(unsigned seed, unsigned length) {
    std::string text;
    for (unsigned i = 0; i < length; ++i) {
        text += static_cast<char>(0x89 + (seed * 5 + i * 11) % 14);
        text += static_cast<char>(0x40 + (seed * 31 + i * 17) % 63);
    }
    return text;
}

std::wstring Wide(const std::string& sjis) {
    std::wstring text(sjis.size(), L'\0');
    text.resize(static_cast<std::size_t>(MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, sjis.data(),
                                                             static_cast<int>(sjis.size()), text.data(),
                                                             static_cast<int>(text.size()))));
    return text;
}

struct Secret {
    Secret(unsigned seed, unsigned length) : sjis(SecretSjis(seed, length)), wide(Wide(sjis)) {}
    std::string sjis;
    std::wstring wide;
};

bool Wait(const std::function<bool()>& condition) {
    for (const ULONGLONG start = GetTickCount64(); !condition(); Sleep(1)) {
        if (GetTickCount64() - start > kiro::drive::kPatience) return false;
    }
    return true;
}

void Need(bool met, const char* what) {
    if (!met) throw std::runtime_error(what);
}

// The host program with its password dialog open.
class Host {
  public:
    Host() {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        returned_ = CreateEventW(&inherited, TRUE, FALSE, nullptr);
        const HANDLE self = OpenProcess(SYNCHRONIZE, TRUE, GetCurrentProcessId());
        std::wstring command = L"password_host.exe " + std::to_wstring(reinterpret_cast<std::size_t>(returned_)) +
                               L" " + std::to_wstring(reinterpret_cast<std::size_t>(self));
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        std::wstring program = path;
        program.replace(program.find_last_of(L'\\') + 1, std::wstring::npos, L"password_host.exe");
        wchar_t desktop[64] = L"";  // messages reach the windows of one desktop
        GetUserObjectInformationW(GetThreadDesktop(GetCurrentThreadId()), UOI_NAME, desktop, sizeof desktop, nullptr);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.lpDesktop = desktop;
        const BOOL started = CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                            nullptr, &start, &process_);
        CloseHandle(self);
        Need(started, "the host program does not start");
        Need(Wait([this] { return FindDialog(); }), "the host program shows no dialog");
        edit_ = GetDlgItem(dialog_, kPasswordEdit);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, INFINITE);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
        CloseHandle(returned_);
    }

    void Type(const std::wstring& keys) const {
        for (const wchar_t key : keys) PostMessageW(edit_, WM_CHAR, key, 1);
    }
    void TypeUntil(const std::wstring& keys, std::size_t length) const {
        Type(keys);
        WaitForLength(length);
    }
    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        SendMessageW(edit_, message, wParam, lParam);
    }
    void WaitForLength(std::size_t length) const {
        Need(Wait([&] { return SendMessageW(edit_, WM_GETTEXTLENGTH, 0, 0) == static_cast<LRESULT>(length); }),
             "the edit does not take its keys");
    }
    void Press(int button) const { PostMessageW(dialog_, WM_COMMAND, static_cast<WPARAM>(button), 0); }
    void DestroyOwner() const { PostMessageW(GetWindow(dialog_, GW_OWNER), WM_CLOSE, 0, 0); }
    void Quit() const { PostThreadMessageW(process_.dwThreadId, WM_QUIT, 0, 0); }
    void WaitForReturn() const {
        Need(WaitForSingleObject(returned_, kiro::drive::kPatience) == WAIT_OBJECT_0, "the command does not return");
    }

    // How many places of its memory hold a part of a secret.
    int Finds(const std::vector<Secret>& secrets) const {
        std::set<UINT64> parts;
        for (const Secret& secret : secrets) {
            for (std::size_t i = 0; i + kFind <= secret.wide.size(); ++i) {
                parts.insert(Load(reinterpret_cast<const char*>(&secret.wide[i])));
                parts.insert(Load(&secret.sjis[2 * i]));
            }
        }
        bool mayStart[65536] = {};
        for (const UINT64 part : parts) mayStart[part & 0xFFFF] = true;
        int finds = 0;
        ForEachPage([&](const std::vector<char>& bytes) {
            for (std::size_t i = 0; i + sizeof(UINT64) <= bytes.size(); ++i) {
                const UINT64 part = Load(&bytes[i]);
                if (mayStart[part & 0xFFFF] && parts.count(part)) ++finds;
            }
        });
        return finds;
    }

  private:
    static UINT64 Load(const char* bytes) {
        UINT64 value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }
    bool FindDialog() {
        EnumThreadWindows(
            process_.dwThreadId,
            [](HWND window, LPARAM self) -> BOOL {
                if (GetDlgItem(window, kPasswordEdit) && IsWindowVisible(window))
                    reinterpret_cast<Host*>(self)->dialog_ = window;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(this));
        return dialog_ != nullptr;
    }
    template <class Visit>
    void ForEachPage(Visit visit) const {
        MEMORY_BASIC_INFORMATION region{};
        std::vector<char> bytes;
        for (char* at = nullptr; VirtualQueryEx(process_.hProcess, at, &region, sizeof region);
             at = static_cast<char*>(region.BaseAddress) + region.RegionSize) {
            if (region.State != MEM_COMMIT || region.Protect & (PAGE_NOACCESS | PAGE_GUARD)) continue;
            SIZE_T read = 0;
            bytes.resize(region.RegionSize);
            ReadProcessMemory(process_.hProcess, region.BaseAddress, bytes.data(), bytes.size(), &read);
            bytes.resize(read);
            visit(bytes);
        }
    }

    PROCESS_INFORMATION process_{};
    HANDLE returned_ = nullptr;
    HWND dialog_ = nullptr;
    HWND edit_ = nullptr;
};

const Secret kFirst(1, 12);
const Secret kSecond(2, 5);
const Secret kLong(3, 40);
const Secret kOther(4, 40);
const std::vector<Secret> kAll = {kFirst, kSecond, kLong, kOther};

// While the dialog is open the password is there, or the search would prove nothing.
TEST(PasswordMemory, TheSearchFindsWhatIsThere) {
    const Host host;
    EXPECT_EQ(0, host.Finds(kAll));
    host.TypeUntil(kLong.wide, 40);
    EXPECT_LE(37, host.Finds({kLong}));  // every part of it
}

TEST(PasswordMemory, NothingStaysWhateverEndsTheDialog) {
    const struct {
        const char* what;
        std::function<void(const Host&)> play;
    } scenes[] = {
        {"corrected",
         [](const Host& host) {
             host.TypeUntil(kFirst.wide, 12);
             host.TypeUntil(std::wstring(12, L'\b'), 0);
             host.TypeUntil(kSecond.wide, 5);
             EXPECT_EQ(0, host.Finds({kFirst})) << "while the dialog is open";
             host.Press(IDOK);
         }},
        {"retyped",
         [](const Host& host) {
             host.TypeUntil(kLong.wide, 40);
             host.Send(EM_SETSEL, 0, -1);
             host.TypeUntil(kSecond.wide, 5);
             host.Send(EM_SETSEL, 0, -1);
             host.TypeUntil(kOther.wide, 40);
             host.Press(IDOK);
         }},
        {"undone and cancelled",
         [](const Host& host) {
             host.TypeUntil(kLong.wide, 40);
             host.TypeUntil(L"\x1A", 0);
             host.TypeUntil(L"\x1A", 40);
             host.Send(WM_CLEAR);
             host.Press(IDCANCEL);
         }},
        {"main window destroyed",
         [](const Host& host) {
             host.TypeUntil(kLong.wide, 40);
             host.DestroyOwner();
         }},
        {"quit",
         [](const Host& host) {
             host.TypeUntil(kLong.wide, 40);
             host.Quit();
         }},
    };
    for (const auto& scene : scenes) {
        SCOPED_TRACE(scene.what);
        const Host host;
        scene.play(host);
        host.WaitForReturn();
        EXPECT_EQ(0, host.Finds(kAll));
    }
}

// The clipboard is the system's, which makes a copy of its own for a program that asks for it. Pasting adds none.
TEST(PasswordMemory, PastingAddsNothing) {
    kiro::drive::PutOnClipboard(kLong.wide);
    {
        const Host host;
        const int before = host.Finds(kAll);
        EXPECT_LT(0, before);
        host.TypeUntil(L"\x16", 40);
        host.TypeUntil(std::wstring(35, L'\b'), 5);
        host.Press(IDOK);
        host.WaitForReturn();
        EXPECT_EQ(before, host.Finds(kAll));
    }
    kiro::drive::PutOnClipboard(L"");
}

}  // namespace
