#include "hostlayer/kiromdl/ModelContent.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

namespace convert {

namespace {

constexpr int kLengthBits = 20;
constexpr std::uint32_t kLengthMask = (1u << kLengthBits) - 1;

}  // namespace

// ---- Line fonts ----

std::vector<double> HostPitches(const LineType& type) {
    std::vector<double> pitches(type.pitches.begin(), type.pitches.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                                                 type.pitches.size(), kHostPitches)));
    for (double& pitch : pitches) pitch = std::abs(pitch);
    return pitches;
}

void SetLineFont(ModelTables& tables, int font, const std::string& name, const std::vector<double>& pitches) {
    int& index = tables.fontLineType[font];
    const LineType old = index ? *tables.LineTypeOf(font) : LineType();
    const bool changed = pitches != HostPitches(old);
    if (name.empty() || (name == old.name && !changed)) return;
    const auto users = std::count(std::begin(tables.fontLineType), std::end(tables.fontLineType), index);
    if (index == 0 || users > 1) {
        tables.lineTypes.push_back(old);
        index = static_cast<int>(tables.lineTypes.size());
    }
    LineType& type = tables.lineTypes[static_cast<std::size_t>(index) - 1];
    type.name = name;
    if (!changed) return;
    type.pitches = pitches;
    for (std::size_t gap = 1; gap < pitches.size(); gap += 2) type.pitches[gap] *= -1;
    type.comment.clear();
    type.plain = true;
}

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
