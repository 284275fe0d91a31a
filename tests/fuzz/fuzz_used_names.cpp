// The names that a drawing uses: whatever the bytes are, in pieces of any sizes, of one drawing and of a second one.
#include <cstdint>

#include "drawing/UsedNames.h"
#include "tests/fuzz/DxfReading.h"

using namespace drawing;

static std::string Same(std::string_view text) { return std::string(text); }

static std::vector<UsedName> All(const UsedNames& names) {
    std::vector<UsedName> all;
    for (const NameKind kind : {NameKind::kLayer, NameKind::kLineType, NameKind::kTextStyle, NameKind::kArrow}) {
        const std::vector<UsedName> sorted = names.SortedByUse(kind);
        const auto isMore = [](const UsedName& a, const UsedName& b) { return a.count > b.count; };
        Require(std::is_sorted(sorted.begin(), sorted.end(), isMore));
        all.insert(all.end(), sorted.begin(), sorted.end());
    }
    return all;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    MemorySource whole(file), pieces(file, file.substr(size - std::min<std::size_t>(size, 4)));
    UsedNames names, same;
    const Result result = names.Add(whole, {Same, nullptr});
    Require(result == same.Add(pieces, {Same, nullptr}));
    const std::vector<UsedName> once = All(names), again = All(same);
    Require(once.size() == again.size() && (result == kDone || once.empty()));
    std::size_t uses = 0;
    for (std::size_t i = 0; i < once.size(); ++i) {
        Require(once[i].name == again[i].name && once[i].count == again[i].count);
        Require(!once[i].name.empty() && once[i].count > 0 && once[i].name.find('\0') == std::string::npos);
        const std::string key = KeyInTable(once[i].name);
        Require(key == KeyInTable(key) && key.size() <= once[i].name.size());
        uses += once[i].count;
    }
    // An item is at least a pair, and has a layer, a line type, a text style and two arrow heads at most.
    Require(uses <= file.size() * 2);

    MemorySource second(file);
    Require(names.Add(second, {Same, nullptr}) == result);
    const std::vector<UsedName> twice = All(names);
    Require(twice.size() == once.size());
    for (std::size_t i = 0; i < once.size(); ++i)
        Require(twice[i].name == once[i].name && twice[i].count == 2 * once[i].count);
    return 0;
}
