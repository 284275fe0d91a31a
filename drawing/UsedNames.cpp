#include "drawing/UsedNames.h"

#include <algorithm>
#include <memory>
#include <new>

#include "drawing/UseReader.h"
#include "text/SlotText.h"

namespace drawing {

Result UsedNames::Add(ByteSource& source, const NameConversion& conversion) {
    try {
        const auto reader = std::make_unique<UseReader>(conversion);  // large
        const Result result = reader->Read(source);
        if (result == kDone) reader->AddTo(*this);
        return result;
    } catch (const std::bad_alloc&) {
        return kNoMemory;
    }
}

void UsedNames::Add(NameKind kind, std::string_view name, std::size_t count) {
    Names& names = names_[static_cast<std::size_t>(kind)];
    const auto [row, isNew] = names.rows.emplace(FoldedName(name), names.list.size());
    if (isNew)
        names.list.push_back({std::string(name), count});
    else
        names.list[row->second].count += count;
}

std::vector<UsedName> UsedNames::SortedByUse(NameKind kind) const {
    std::vector<UsedName> sorted = names_[static_cast<std::size_t>(kind)].list;
    std::sort(sorted.begin(), sorted.end(), [](const UsedName& a, const UsedName& b) {
        return a.count != b.count ? a.count > b.count : a.name < b.name;
    });
    return sorted;
}

std::string NameInTable(std::string_view name) {
    std::string text(name);
    std::erase_if(text, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
    return text;
}

std::string KeyInTable(std::string_view name) { return FoldedName(NameInTable(name)); }

}  // namespace drawing
