// coverage_bench: what finding the names that a large drawing uses is held to.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

#include "benchmarks/Measure.h"
#include "drawing/DxfReader.h"
#include "drawing/UsedNames.h"

namespace {

std::size_t taken = 0, most = 0;  // bytes of the heap
constexpr std::size_t kHead = 16;

}  // namespace

void* operator new(std::size_t size) {
    auto* const memory = static_cast<std::size_t*>(std::malloc(size + kHead));
    if (!memory) throw std::bad_alloc();
    *memory = size;
    most = std::max(most, taken += size);
    return reinterpret_cast<char*>(memory) + kHead;
}
void operator delete(void* memory) noexcept {
    if (!memory) return;
    auto* const start = reinterpret_cast<std::size_t*>(static_cast<char*>(memory) - kHead);
    taken -= *start;
    std::free(start);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace {

constexpr int kRounds = 3;
constexpr std::size_t kMegabyte = 1'000'000;
constexpr std::size_t kDrawing = 300 * kMegabyte;

// "0/LINE/8/A/" as the pairs of a text file.
std::string Lines(std::string text) {
    std::string out;
    for (const char c : text) out += c == '/' ? std::string("\r\n") : std::string(1, c);
    return out;
}

// Items such as drawings have, on changing layers.
std::string Items() {
    std::string items;
    for (int i = 0; items.size() < kMegabyte; ++i) {
        const std::string layer = "/100/AcDbEntity/8/LAYER_" + std::to_string(i / 3 % 200);
        const std::string point = "10/1234.5678/20/" + std::to_string(i) + ".25/30/0.0/";
        items += "0/LINE/5/" + std::to_string(i) + layer + "/6/DASHED/100/AcDbLine/" + point + "11/1.5/21/2.5/31/0.0/";
        items += "0/TEXT" + layer + "/100/AcDbText/" + point + "40/2.5/1/Room " + std::to_string(i) + "/7/NOTES/";
        items += "0/LWPOLYLINE" + layer + "/62/5/100/AcDbPolyline/90/4/70/1/";
        for (int k = 0; k < 4; ++k) items += "10/" + std::to_string(k * i) + ".5/20/17.25/";
        items += "0/DIMENSION" + layer + "/100/AcDbDimension/2/*D7/" + point + "3/MARKS/";
    }
    return Lines(items);
}

// A drawing that is never there as a whole.
class LargeDrawing final : public ByteSource {
  public:
    LargeDrawing(std::string_view items, std::size_t size) : parts_(size / items.size()), items_(items) {}
    int Read(char* buffer, unsigned size) override {
        std::size_t count = 0;
        while (count < size && part_ <= parts_ + 1) {
            const std::string_view text = part_ == 0 ? head_ : part_ <= parts_ ? items_ : tail_;
            const std::size_t copied = text.copy(buffer + count, size - count, at_);
            count += copied;
            at_ += copied;
            if (at_ == text.size()) at_ = 0, ++part_;
        }
        return static_cast<int>(count);
    }

  private:
    inline static const std::string head_ =
        Lines("0/SECTION/2/HEADER/9/$ACADVER/1/AC1015/0/ENDSEC/0/SECTION/2/ENTITIES/");
    inline static const std::string tail_ = Lines("0/ENDSEC/0/EOF/");
    std::size_t parts_, part_ = 0, at_ = 0;
    std::string_view items_;
};

std::string ToCp932(std::string_view text) { return std::string(text); }

void FindNames(std::string_view items, std::size_t size) {
    LargeDrawing drawing(items, size);
    drawing::UsedNames names;
    if (names.Add(drawing, {ToCp932}) != drawing::kDone || names.SortedByUse(drawing::NameKind::kLayer).size() != 200)
        throw std::runtime_error("the names are not found");
}

void ReadOnly(std::string_view items, std::size_t size) {
    LargeDrawing drawing(items, size);
    const auto reader = std::make_unique<DxfReader>(nullptr);
    std::size_t records = 0;
    if (!reader->OpenText(drawing)) throw std::runtime_error("the drawing cannot be opened");
    while (reader->ReadLine()) {
        const int code = reader->LineAsCode();
        if (!reader->ReadLine()) break;
        records += code == 0;
    }
    if (records < size / 1000) throw std::runtime_error("the drawing is not read");
}

std::size_t MostMemory(std::string_view items, std::size_t size) {
    const std::size_t before = most = taken;
    FindNames(items, size);
    return most - before;
}

}  // namespace

int main() {
    try {
        const std::string items = Items();
        const Comparison times = Compare(
            kRounds, [&] { FindNames(items, kDrawing); }, [&] { ReadOnly(items, kDrawing); });
        bool kept = Report("names of a drawing of 300 MB / its lines alone", times, 1.5);
        const auto small = static_cast<double>(MostMemory(items, 3 * kMegabyte));
        const auto large = static_cast<double>(MostMemory(items, kDrawing));
        kept = ReportValue("the same, memory; as for 3 MB", large, small, "bytes") && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "coverage_bench: %s\n", failure.what());
        return 2;
    }
}
