#include "hostlayer/kirobc/EucCodec.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "hostlayer/kirobc/IbmExtensions.h"

namespace kirobc {
namespace {

// Both encodings are foldings of one grid of rows with 94 cells, and a character's place in it is its row * 94 + cell,
// counted from 0. 932 puts two rows under each lead byte. EUC's two-byte codes have rows 0 to 83 as they are, and in
// the room after them what 932 has in rows 94 to 103; its three-byte codes have the rows after those, and JIS X 0212.
constexpr int kCells = 94;
constexpr int kJisRows = 84;
constexpr int kUserRow = 94;       // F040: first row of the user-defined characters
constexpr int kUserRow2 = 104;     // F540: the first that takes three bytes in EUC
constexpr int kUserRowsEnd = 114;  // FA40

constexpr bool IsSjisLead(std::uint8_t byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
constexpr bool IsSjisTrail(std::uint8_t byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }
constexpr bool IsKatakana(std::uint8_t byte) { return byte >= 0xA1 && byte <= 0xDF; }
constexpr bool IsEucByte(std::uint8_t byte) { return byte >= 0xA1 && byte <= 0xFE; }

constexpr int PlaceOfSjis(int code) {
    const int lead = code >> 8;
    const int trail = code & 0xFF;
    return (lead - (lead < 0xA0 ? 0x81 : 0xC1)) * 2 * kCells + trail - (trail < 0x7F ? 0x40 : 0x41);
}

constexpr int SjisOfPlace(int place) {
    const int lead = place / (2 * kCells);
    const int trail = place % (2 * kCells);
    return ((lead + (lead < 0x1F ? 0x81 : 0xC1)) << 8) | (trail + (trail < 0x3F ? 0x40 : 0x41));
}

constexpr int PlaceOfEuc(int code) { return ((code >> 8) - 0xA1) * kCells + (code & 0xFF) - 0xA1; }
constexpr int EucOfPlace(int place) { return ((place / kCells + 0xA1) << 8) | (place % kCells + 0xA1); }

struct CodeRange {
    int first;
    int last;
};

// Where JIS X 0208 and NEC row 13 have characters, in 932's codes.
constexpr CodeRange kAssigned[] = {
    {0x8140, 0x81AC}, {0x81B8, 0x81BF}, {0x81C8, 0x81CE}, {0x81DA, 0x81E8}, {0x81F0, 0x81F7}, {0x81FC, 0x81FC},
    {0x824F, 0x8258}, {0x8260, 0x8279}, {0x8281, 0x829A}, {0x829F, 0x82F1}, {0x8340, 0x8396}, {0x839F, 0x83B6},
    {0x83BF, 0x83D6}, {0x8440, 0x8460}, {0x8470, 0x8491}, {0x849F, 0x84BE}, {0x8740, 0x875D}, {0x875F, 0x8775},
    {0x877E, 0x878F}, {0x8793, 0x8794}, {0x8798, 0x8799}, {0x889F, 0x9872}, {0x989F, 0xEAA4},
};

// Characters that 932 has twice, and where Windows has them: JIS X 0208 goes before NEC row 13, that before the IBM
// extensions, and those before NEC's selection of them (ED40-EEFC). A range goes to as many places from target on.
struct Duplicates {
    int first;
    int last;
    int target;
};
constexpr Duplicates kDuplicates[] = {
    {0x8790, 0x8790, 0x81E0}, {0x8791, 0x8791, 0x81DF}, {0x8792, 0x8792, 0x81E7}, {0x8795, 0x8795, 0x81E3},
    {0x8796, 0x8796, 0x81DB}, {0x8797, 0x8797, 0x81DA}, {0x879A, 0x879A, 0x81E6}, {0x879B, 0x879B, 0x81BF},
    {0x879C, 0x879C, 0x81BE}, {0xED40, 0xEEEC, 0xFA5C}, {0xEEEF, 0xEEF8, 0xFA40}, {0xEEF9, 0xEEF9, 0x81CA},
    {0xEEFA, 0xEEFC, 0xFA55}, {0xFA4A, 0xFA53, 0x8754}, {0xFA54, 0xFA54, 0x81CA}, {0xFA58, 0xFA58, 0x878A},
    {0xFA59, 0xFA59, 0x8782}, {0xFA5A, 0xFA5A, 0x8784}, {0xFA5B, 0xFA5B, 0x81E6},
};

constexpr int kIbmPlace = PlaceOfSjis(0xFA40);
constexpr int kIbmCount = static_cast<int>(std::size(kIbmExtensions));
static_assert(kIbmPlace == kUserRowsEnd * kCells && kIbmPlace + kIbmCount - 1 == PlaceOfSjis(0xFC4B));

// The way back: three-byte codes by their last two bytes.
struct Supplement {
    int euc;
    int place;
};
constexpr auto kSupplements = [] {
    // Besides the IBM extensions JIS X 0212 shares two characters with 932, the tilde and the numero sign.
    std::array<Supplement, kIbmCount + 2> list{{{0xA2B7, PlaceOfSjis(0x8160)}, {0xA2F1, PlaceOfSjis(0x8782)}}};
    for (int i = 0; i < kIbmCount; ++i) {
        list[static_cast<std::size_t>(i) + 2] = {kIbmExtensions[i], kIbmPlace + i};
    }
    std::ranges::sort(list, {}, &Supplement::euc);
    return list;
}();

// The place under which each place's character comes out; kNone where there is no character.
constexpr int kPlaces = PlaceOfSjis(0xFCFC) + 1;
constexpr std::int16_t kNone = -1;
constexpr auto kCanonical = [] {
    std::array<std::int16_t, kPlaces> list{};
    list.fill(kNone);
    const auto set = [&list](int first, int last, int target) {
        for (int place = first; place <= last; ++place) {
            list[static_cast<std::size_t>(place)] = static_cast<std::int16_t>(target + place - first);
        }
    };
    for (const CodeRange& r : kAssigned) set(PlaceOfSjis(r.first), PlaceOfSjis(r.last), PlaceOfSjis(r.first));
    set(kUserRow * kCells, kIbmPlace + kIbmCount - 1, kUserRow * kCells);
    for (const Duplicates& d : kDuplicates) set(PlaceOfSjis(d.first), PlaceOfSjis(d.last), PlaceOfSjis(d.target));
    return list;
}();

int Canonical(int place) { return kCanonical[static_cast<std::size_t>(place)]; }

int PlaceOfPair(int code) {
    const int place = PlaceOfEuc(code);
    return Canonical(place < kJisRows * kCells ? place : place + (kUserRow - kJisRows) * kCells);
}

int PlaceOfTriple(int code) {
    const int place = PlaceOfEuc(code);
    if (place >= kJisRows * kCells) return place + (kUserRow2 - kJisRows) * kCells;
    const auto found = std::ranges::lower_bound(kSupplements, code, {}, &Supplement::euc);
    return found != kSupplements.end() && found->euc == code ? Canonical(found->place) : kNone;
}

// One character of the source, or what stands in the place of one.
struct Step {
    std::size_t taken;  // bytes of the source
    int code = '?';     // bytes of the result, the last one in the low bits
    constexpr std::size_t Size() const { return code > 0xFFFF ? 3 : code > 0xFF ? 2 : 1; }
};

std::uint8_t ByteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<std::uint8_t>(text[index]) : std::uint8_t{0};
}

Step StepFromEuc(std::string_view text) {
    const std::uint8_t first = ByteAt(text, 0);
    const std::uint8_t second = ByteAt(text, 1);
    if (first < 0x80) return {1, first};
    if ((!IsEucByte(first) && first != 0x8E && first != 0x8F) || !IsEucByte(second)) return {1};
    if (first == 0x8E) return {2, IsKatakana(second) ? second : '?'};

    const bool triple = first == 0x8F;
    const std::uint8_t third = ByteAt(text, 2);
    if (triple && !IsEucByte(third)) return {2};
    const int place = triple ? PlaceOfTriple(second << 8 | third) : PlaceOfPair(first << 8 | second);
    return {triple ? 3u : 2u, place == kNone ? '?' : SjisOfPlace(place)};
}

int EucOf(int place) {
    if (place < kJisRows * kCells) return EucOfPlace(place);
    if (place < kUserRow2 * kCells) return EucOfPlace(place - (kUserRow - kJisRows) * kCells);
    if (place < kIbmPlace) return 0x8F0000 | EucOfPlace(place - (kUserRow2 - kJisRows) * kCells);
    return 0x8F0000 | kIbmExtensions[place - kIbmPlace];
}

Step StepFromSjis(std::string_view text) {
    const std::uint8_t first = ByteAt(text, 0);
    const std::uint8_t second = ByteAt(text, 1);
    if (first < 0x80) return {1, first};
    if (IsKatakana(first)) return {1, 0x8E00 | first};
    if (!IsSjisLead(first) || !IsSjisTrail(second)) return {1};
    const int place = Canonical(PlaceOfSjis(first << 8 | second));
    return {2, place == kNone ? '?' : EucOf(place)};
}

Converted Convert(Step (*next)(std::string_view), std::string_view text, char* out, std::size_t limit) {
    Converted result;
    bool cut = false;
    while (!text.empty()) {
        const Step step = next(text);
        const std::size_t size = step.Size();
        cut = cut || size > limit - result.written;
        for (std::size_t i = size; !cut && i-- > 0;) {
            out[result.written++] = static_cast<char>(step.code >> 8 * i & 0xFF);
        }
        result.whole += size;
        text.remove_prefix(step.taken);
    }
    return result;
}

std::string Convert(Step (*next)(std::string_view), std::string_view text, std::size_t growth) {
    std::string out(text.size() * growth, '\0');
    out.resize(Convert(next, text, out.data(), out.size()).written);
    return out;
}

}  // namespace

std::string EucToSjis(std::string_view text) { return Convert(StepFromEuc, text, kMaxSjisPerEuc); }
std::string SjisToEuc(std::string_view text) { return Convert(StepFromSjis, text, kMaxEucPerSjis); }

Converted EucToSjis(std::string_view text, char* out, std::size_t limit) noexcept {
    return Convert(StepFromEuc, text, out, limit);
}
Converted SjisToEuc(std::string_view text, char* out, std::size_t limit) noexcept {
    return Convert(StepFromSjis, text, out, limit);
}

}  // namespace kirobc
