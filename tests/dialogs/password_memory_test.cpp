// Nothing of a password stays in the memory of the host program. All of its pages are searched, for UTF-16 and for code
// page 932. This program knows its passwords by their numbers alone: a character is made when it is typed or sought.
#include <set>

#include "driver/Clipboard.h"
#include "resources/catia/KrDxfPass.ids.h"
#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

struct Secret {
    unsigned seed, length;
};
constexpr Secret kFirst = {1, 12}, kSecond = {2, 5}, kLong = {3, 40}, kOther = {4, 40};
const std::vector<Secret> kAll = {kFirst, kSecond, kLong, kOther};

// Characters of two bytes in both forms, in an order that no table of characters has.
WORD SjisAt(const Secret& secret, unsigned i) {
    return MAKEWORD(0x89 + (secret.seed * 5 + i * 11) % 14, 0x40 + (secret.seed * 31 + i * 17) % 63);
}
WORD WideAt(const Secret& secret, unsigned i) {
    const WORD sjis = SjisAt(secret, i);
    wchar_t wide = 0;
    MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, reinterpret_cast<const char*>(&sjis), 2, &wide, 1);
    return wide;
}

// Four characters are a find: eight bytes that are there by no chance. Kept under a mask, not to be found themselves.
constexpr unsigned kFind = 4;
constexpr UINT64 kMask = 0xA5A5A5A5A5A5A5A5;

std::set<UINT64> PartsOf(const std::vector<Secret>& secrets) {
    std::set<UINT64> parts;
    for (const Secret& secret : secrets)
        for (const auto unitAt : {SjisAt, WideAt})
            for (unsigned start = 0; start + kFind <= secret.length; ++start) {
                UINT64 part = kMask;
                for (unsigned i = 0; i < kFind; ++i) part ^= UINT64{unitAt(secret, start + i)} << 16 * i;
                parts.insert(part);
            }
    return parts;
}

// How many places of this program's memory hold a part of a secret.
int Finds(const std::vector<Secret>& secrets) {
    const std::set<UINT64> parts = PartsOf(secrets);
    static bool mayStart[65536];
    std::fill(std::begin(mayStart), std::end(mayStart), false);
    for (const UINT64 part : parts) mayStart[part & 0xFFFF] = true;
    int finds = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region); at += region.RegionSize) {
        at = static_cast<const char*>(region.BaseAddress);
        if (region.State != MEM_COMMIT || region.Protect & (PAGE_NOACCESS | PAGE_GUARD | PAGE_EXECUTE)) continue;
        for (const char *place = at, *end = at + region.RegionSize - sizeof(UINT64); place <= end; ++place) {
            UINT64 part;
            std::memcpy(&part, place, sizeof part);
            part ^= kMask;
            if (mayStart[part & 0xFFFF]) finds += parts.contains(part);
        }
    }
    return finds;
}

class PasswordMemory : public TestHost {
  protected:
    void Run(const std::function<void(HWND dialog)>& user) {
        static TARNAINFO record;
        Drive([] { DxfInputPass(&record); },
              [&] {
                  const HWND dialog = Settle();
                  edit = Control(dialog, kPasswordEdit);
                  user(dialog);
                  Until("the end", [] { return Settle() == nullptr; });
              });
        SecureZeroMemory(&record, sizeof record);
    }
    void Await(std::size_t length) const {
        Until("the edit takes its keys", [&] { return Send(edit, WM_GETTEXTLENGTH) == static_cast<LRESULT>(length); });
    }
    void Type(const Secret& secret) const {
        for (unsigned i = 0; i < secret.length; ++i) PostMessageW(edit, WM_CHAR, WideAt(secret, i), 1);
        Await(secret.length);
    }
    void Press(wchar_t key, int times, std::size_t length) const {
        for (int i = 0; i < times; ++i) PostMessageW(edit, WM_CHAR, key, 1);
        Await(length);
    }
    HWND edit = nullptr;
};

// While the dialog is open the password is there, or the search would prove nothing.
TEST_F(PasswordMemory, TheSearchFindsWhatIsThere) {
    EXPECT_EQ(0, Finds(kAll));
    Run([&](HWND dialog) {
        Type(kLong);
        EXPECT_LE(37, Finds({kLong}));  // every part of it
        Click(dialog, IDCANCEL);
    });
}

TEST_F(PasswordMemory, NothingStaysWhateverEndsTheDialog) {
    const std::pair<const char*, std::function<void(HWND)>> scenes[] = {
        {"corrected",
         [&](HWND dialog) {
             Type(kFirst);
             Press(L'\b', 12, 0);
             Type(kSecond);
             EXPECT_EQ(0, Finds({kFirst})) << "while the dialog is open";
             Click(dialog, IDOK);
         }},
        {"retyped",
         [&](HWND dialog) {
             for (const Secret& secret : {kLong, kSecond, kOther}) {
                 Send(edit, EM_SETSEL, 0, -1);
                 Type(secret);
             }
             Click(dialog, IDOK);
         }},
        {"undone and cancelled",
         [&](HWND dialog) {
             Type(kLong);
             Press(0x1A, 1, 0);
             Press(0x1A, 1, 40);
             Send(edit, WM_CLEAR);
             Click(dialog, IDCANCEL);
         }},
        {"quit",
         [&](HWND) {
             Type(kLong);
             PostThreadMessageW(UiThread(), WM_QUIT, 0, 0);
         }},
        {"main window destroyed",
         [&](HWND) {
             Type(kLong);
             PostMessageW(owner, WM_CLOSE, 0, 0);
         }},
    };
    for (const auto& [what, play] : scenes) {
        Run(play);
        EXPECT_EQ(0, Finds(kAll)) << what;
    }
}

// The clipboard is the system's, which makes a copy of its own for a program that asks for it. Pasting adds none.
TEST_F(PasswordMemory, PastingAddsNothing) {
    std::wstring secret(kLong.length, L'\0');
    for (unsigned i = 0; i < kLong.length; ++i) secret[i] = static_cast<wchar_t>(WideAt(kLong, i));
    PutOnClipboard(secret);
    SecureZeroMemory(secret.data(), secret.size() * sizeof(wchar_t));
    int before = 0;
    Run([&](HWND dialog) {
        EXPECT_LT(0, before = Finds(kAll));
        Press(0x16, 1, 40);
        Press(L'\b', 35, 5);
        Click(dialog, IDOK);
    });
    EXPECT_EQ(before, Finds(kAll));
    PutOnClipboard(L"");
}

}  // namespace
