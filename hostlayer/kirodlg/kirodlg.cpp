// The host's choosers of pictures and drawing layouts, over the active model.
#include "entry/host/kirodlg.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdint>

#include "ListChooser.h"
#include "entry/host/KrUtility.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kiromdl.h"
#include "hostlayer/kirobc/Guarded.h"

namespace {

constexpr int kNumbers = 256;  // of pictures and of layouts, from 1 on
constexpr int kCancelled = 0;

int ItemCount(int picture) { return HxPermItemDbGetItemCount(HxModelGetPermItemDb(GetActiveModel()), picture); }

std::int64_t ItemCount(const HxDlo* layout) {
    std::int64_t count = 0;
    for (int i = 0; i < HxDloGetDloWindowCount(layout); ++i) count += ItemCount(HxDloGetDloWindowPicture(layout, i));
    return count;
}

std::wstring WideFromSjis(const char* text) {
    constexpr UINT kShiftJisPage = 932;
    wchar_t wide[kKrTextSize] = L"";
    MultiByteToWideChar(kShiftJisPage, 0, text, -1, wide, kKrTextSize);
    return wide;
}

// In one line, and no longer than a list shows.
std::wstring Name(const HxDlo* layout) {
    const char* euc = HxDloGetName(layout);
    char sjis[kKrTextSize];
    HxEucToSjis(euc, std::char_traits<char>::length(euc), sjis, sizeof sjis);
    std::wstring name = WideFromSjis(sjis);
    std::ranges::replace_if(
        name, [](wchar_t c) { return c < 0x20 || c == 0x7F; }, L' ');
    return name;
}

std::wstring Scale(KrUtility& utility, int picture) {
    constexpr int kBaseScale = -1;
    char text[kKrTextSize];
    utility.DisplayScale(Scfval101(picture) * Scfval101(kBaseScale), text, sizeof text);
    return WideFromSjis(text);
}

int CurrentPicture() {
    std::uint32_t words[4] = {};
    HxModelGetItemAttributes(GetActiveModel(), words, 4);
    return static_cast<int>(words[3] >> 15 & 0x3FF);
}

ListChooser Pictures(const bool* flags) {
    ListChooser chooser = {L"ピクチャ一覧",
                           L"ピクチャを選択してください。",
                           L"選択できるピクチャがありません。",
                           L"倍率",
                           LVCFMT_RIGHT,
                           41,
                           false,
                           CurrentPicture(),
                           {}};
    const KrUtilityPtr utility(KrCreateUtility());
    for (int number = 1; utility && number <= kNumbers; ++number) {
        const int items = ItemCount(number);
        if (flags ? flags[number - 1] : items > 0)
            chooser.rows.push_back({number, Scale(*utility, number), std::to_wstring(items)});
    }
    return chooser;
}

ListChooser Layouts(bool many) {
    ListChooser chooser = {L"図面配置一覧",
                           many ? L"図面配置を選択してください（複数選択できます）。" : L"図面配置を選択してください。",
                           L"図面配置がありません。",
                           L"名前",
                           LVCFMT_LEFT,
                           58,
                           many,
                           0,
                           {}};
    HxDloList* list = HxModelGetDloList(GetActiveModel());
    for (int number = 1; number <= kNumbers; ++number)
        if (const HxDlo* layout = HxDloListGetDlo(list, number))
            chooser.rows.push_back({number, Name(layout), std::to_wstring(ItemCount(layout))});
    return chooser;
}

}  // namespace

int PicLstDlg(int, int, KrWindow owner, const bool* flags) {
    return kirobc::Guarded(kCancelled, [=] {
        const std::vector<int> chosen = Choose(owner, Pictures(flags));
        return chosen.empty() ? kCancelled : chosen.front();
    });
}

int DrwLstDlg(int, int, KrWindow owner, int* list, int* count) {
    if (count) *count = 0;
    return kirobc::Guarded(kCancelled, [=] {
        const bool many = list && count;
        const std::vector<int> chosen = Choose(owner, Layouts(many));
        if (many) *count = static_cast<int>(std::ranges::copy(chosen, list).out - list);
        return chosen.empty() ? kCancelled : chosen.front();
    });
}
