#include "hostlayer/kiromdl/ModelStore.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace {

using namespace convert;

constexpr int kMostItems = 1 << 30;
constexpr int kLargestCode = 1071;
constexpr std::size_t kLongestText = 1 << 14;

// Both archives take the same calls, so that what is written and what is read is said once (Visit). Numbers are
// little-endian as in memory: nothing but this system's programs reads the file.
class Output {
  public:
    template <class T>
    void Value(const T& value, int, int) {
        Bytes(&value, sizeof value);
    }
    void Value(const double& value) { Bytes(&value, sizeof value); }
    void Text(const std::string& text) {
        Size(text.size());
        bytes.append(text);
    }
    template <class List, class Element>
    void Elements(const List& list, Element element) {
        Size(list.size());
        for (const auto& one : list) element(one);
    }
    void Pairs(const PairStore& store, const PairRun& run) {
        Size(run.count);
        auto cursor = store.Read(run);
        for (Pair pair; cursor.Next(pair);) {
            Size(static_cast<std::size_t>(pair.code));
            Size(pair.text.size());
            bytes.append(pair.text);
        }
    }
    std::string bytes;

  private:
    void Size(std::size_t size) {
        const auto number = static_cast<std::uint32_t>(size);
        Bytes(&number, sizeof number);
    }
    void Bytes(const void* value, std::size_t size) { bytes.append(static_cast<const char*>(value), size); }
};

class Input {
  public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}
    bool IsWhole() const { return good_ && rest_.empty(); }

    template <class T>
    void Value(T& value, int least, int most) {
        std::conditional_t<std::is_same_v<T, bool>, std::uint8_t, T> number{};
        Bytes(&number, sizeof number);
        const auto whole = static_cast<std::int64_t>(number);
        Demand(whole >= least && whole <= most);
        value = static_cast<T>(good_ ? whole : least);
    }
    void Value(double& value) {
        Bytes(&value, sizeof value);
        Demand(std::isfinite(value));
    }
    void Text(std::string& text) { text = Taken(Size(kLongestText)); }
    template <class List, class Element>
    void Elements(List& list, Element element) {
        for (std::size_t left = Size(kMostItems); left > 0 && good_; --left) element(list.emplace_back());
    }
    void Pairs(PairStore& store, PairRun& run) {
        run = store.Begin();
        for (std::size_t left = Size(kMostItems); left > 0 && good_; --left) {
            const std::size_t code = Size(kLargestCode), length = Size(kLongestText);
            const std::string_view text = Taken(length);
            if (good_) store.Add(run, static_cast<int>(code), text);
        }
    }
    void Demand(bool holds) { good_ = good_ && holds; }

  private:
    std::size_t Size(std::size_t most) {
        std::uint32_t number = 0;
        Bytes(&number, sizeof number);
        Demand(number <= most);
        return good_ ? number : 0;
    }
    std::string_view Taken(std::size_t size) {
        Demand(size <= rest_.size());
        if (!good_) return {};
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }
    void Bytes(void* value, std::size_t size) {
        const std::string_view taken = Taken(size);
        if (good_) std::memcpy(value, taken.data(), size);
    }

    std::string_view rest_;
    bool good_ = true;
};

int Last(std::size_t count) { return static_cast<int>(count) - 1; }

template <class Archive, class Content, class A>
void VisitAttributes(Archive& archive, Content& content, A& attributes) {
    archive.Value(attributes.layer, 0, Last(content.layers.size()));
    archive.Value(attributes.itemClass, 1, kNumbers - 1);
    archive.Value(attributes.revision, 1, kNumbers - 1);
    archive.Value(attributes.color, kByBlock, kByLayer);
    archive.Value(attributes.font, 1, kFonts - 1);
    archive.Value(attributes.weight, 1, kWeights - 1);
    archive.Value(attributes.fontFrom, 0, static_cast<int>(From::kDefault));
    archive.Value(attributes.weightFrom, 0, static_cast<int>(From::kDefault));
}

template <class Archive, class Content>
void VisitTables(Archive& archive, Content& content) {
    archive.Value(content.encoding, 0, static_cast<int>(Encoding::kUtf8));
    archive.Value(content.version, 0, 8);
    archive.Pairs(content.store, content.header);
    archive.Elements(content.lineTypes, [&](auto& type) {
        archive.Text(type.name);
        archive.Text(type.comment);
        archive.Elements(type.pitches, [&](auto& pitch) { archive.Value(pitch); });
        archive.Value(type.plain, 0, 1);
    });
    const int lastLineType = Last(content.lineTypes.size());
    archive.Elements(content.layers, [&](auto& layer) {
        archive.Text(layer.name);
        archive.Value(layer.color, 1, 255);
        archive.Value(layer.lineType, -1, lastLineType);
        archive.Value(layer.lineWidth, -3, 10000);
        archive.Value(layer.flags, 0, 5);
        archive.Value(layer.off, 0, 1);
        archive.Value(layer.itemClass, 0, kNumbers - 1);
        archive.Value(layer.revision, 0, kNumbers - 1);
    });
    for (auto* entries : {&content.styles, &content.dimensionStyles, &content.applications})
        archive.Elements(*entries, [&](auto& entry) {
            archive.Text(entry.name);
            archive.Pairs(content.store, entry.pairs);
        });
    archive.Value(content.layersAreRevisions, 0, 1);
    for (auto& name : content.classNames) archive.Text(name);
    for (auto& name : content.revisionNames) archive.Text(name);
    for (auto& type : content.fontLineType) archive.Value(type, 0, lastLineType + 1);
    for (auto& width : content.weightWidth) archive.Value(width, 0, 10001);
}

template <class Archive, class Content>
void Visit(Archive& archive, Content& content) {
    VisitTables(archive, content);
    archive.Elements(content.layouts, [&](auto& layout) {
        archive.Elements(layout.windows, [&](auto& picture) { archive.Value(picture, 1, kNumbers - 1); });
    });
    for (auto& scale : content.pictures) archive.Value(scale);
    archive.Value(content.modelPicture, 0, kNumbers - 1);
    const int ownPictures = static_cast<int>(content.layouts.size());
    archive.Elements(content.items, [&](auto& item) {
        archive.Pairs(content.store, item.pairs);
        VisitAttributes(archive, content, item.attributes);
        archive.Value(item.picture, -ownPictures, kNumbers - 1);
        for (auto* flag : {&item.paper, &item.hidden, &item.inBlock, &item.part, &item.markers})
            archive.Value(*flag, 0, 1);
    });
    const int items = static_cast<int>(content.items.size());
    archive.Elements(content.blocks, [&](auto& block) {
        archive.Text(block.name);
        archive.Pairs(content.store, block.pairs);
        VisitAttributes(archive, content, block.attributes);
        archive.Value(block.first, 0, items);
        archive.Value(block.count, 0, items - static_cast<int>(block.first));
    });
}

}  // namespace

std::string FormatModelContent(const ModelContent& content) {
    Output output;
    Visit(output, content);
    return std::move(output.bytes);
}

bool ParseModelContent(std::string_view bytes, ModelContent& content) {
    content = {};
    Input input(bytes);
    Visit(input, content);
    return input.IsWhole();
}
