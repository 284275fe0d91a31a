#include "hostlayer/kiromdl/ModelContent.h"

#include <charconv>
#include <cstring>

namespace convert {

namespace {

constexpr int kLengthBits = 20;
constexpr std::uint32_t kLengthMask = (1u << kLengthBits) - 1;

}  // namespace

bool IsSpace(std::string_view block) {
    const std::string name = Folded(block, Encoding::kUtf8).substr(0, 12);
    return (name.starts_with('*') || name.starts_with('$')) &&
           (name.ends_with("MODEL_SPACE") || name.ends_with("PAPER_SPACE"));
}

PairRun PairStore::Begin() const {
    if (blocks_.empty()) return {};
    return {static_cast<std::uint32_t>(blocks_.size() - 1), static_cast<std::uint32_t>(blocks_.back().size()), 0};
}

void PairStore::Add(PairRun& run, int code, std::string_view text) {
    const auto head = static_cast<std::uint32_t>(code) << kLengthBits | static_cast<std::uint32_t>(text.size());
    if (blocks_.empty() || kBlock - blocks_.back().size() < sizeof head + text.size())
        blocks_.emplace_back().reserve(kBlock);
    blocks_.back().append(reinterpret_cast<const char*>(&head), sizeof head).append(text);
    ++run.count;
}

void PairStore::CutAt(const PairRun& run) {
    if (run.block < blocks_.size()) blocks_.resize(run.block + 1), blocks_.back().resize(run.offset);
}

bool PairStore::Cursor::Next(Pair& pair) {
    if (rest_.count == 0) return false;
    if (rest_.offset == store_.blocks_[rest_.block].size()) ++rest_.block, rest_.offset = 0;
    const char* const at = store_.blocks_[rest_.block].data() + rest_.offset;
    std::uint32_t head = 0;
    std::memcpy(&head, at, sizeof head);
    pair = {static_cast<int>(head >> kLengthBits), {at + sizeof head, head & kLengthMask}};
    rest_.offset += static_cast<std::uint32_t>(sizeof head + pair.text.size());
    --rest_.count;
    return true;
}

std::string_view PairStore::Find(const PairRun& run, int code) const {
    Cursor cursor = Read(run);
    for (Pair pair; cursor.Next(pair);)
        if (pair.code == code) return pair.text;
    return {};
}

int PairStore::FindInteger(const PairRun& run, int code) const {
    int value = 0;
    std::string_view text = Find(run, code);
    text.remove_prefix(text.starts_with('+'));
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace convert
