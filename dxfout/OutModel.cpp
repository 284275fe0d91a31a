#include "dxfout/OutModel.h"

#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kiromdl.h"

namespace {

constexpr std::size_t kLayoutNameBytes = 256;

HxDlo* Layout(int number) { return HxDloListGetDlo(GetActiveModel()->GetDloList(), number); }

int WindowsOf(const HxDlo* layout) { return layout ? HxDloGetDloWindowCount(layout) : 0; }

}  // namespace

int CurrentPicture() {
    constexpr int kWord = 3;
    uint32_t words[kWord + 1] = {};
    HxModelGetItemAttributes(GetActiveModel(), words, kWord + 1);
    return static_cast<int>(words[kWord] >> 15 & 0x3FF);
}

int ItemsOfPicture(int picture) {
    if (picture < 1 || picture > kLastPicture) return 0;
    return HxPermItemDbGetItemCount(GetActiveModel()->GetPermItemDb(), picture);
}

std::vector<OutLayout> OutLayouts() {
    std::vector<OutLayout> layouts;
    for (int number = 1; number <= kLastLayout; ++number) {
        const HxDlo* layout = Layout(number);
        if (WindowsOf(layout) < 1) continue;
        layouts.push_back({number, HxEucEncoder::Euc2Sjis(HxDloGetName(layout), kLayoutNameBytes)});
    }
    return layouts;
}

bool HasWindows(int layout) { return WindowsOf(Layout(layout)) > 0; }

bool HasItems(int layout) {
    const HxDlo* found = Layout(layout);
    const int windows = WindowsOf(found);
    for (int i = 0; i < windows; ++i) {
        if (ItemsOfPicture(HxDloGetDloWindowPicture(found, i)) > 0) return true;
    }
    return false;
}
