// The codec against the converter of the GNU C library, whose EUC-JP-MS and CP932 are made from other sources. Both
// agree on every character, byte for byte: there is no exception for the wave dash, the minus sign and their kind,
// since what Unicode would make of them never shows between these two encodings.
#include <gtest/gtest.h>
#include <iconv.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "hostlayer/kirobc/EucCodec.h"

namespace {

std::string Bytes(std::initializer_list<int> bytes) { return {bytes.begin(), bytes.end()}; }

// How many bytes make one character or stand in the place of one. A stray first byte takes nothing with it.
using Length = std::size_t (*)(const unsigned char* three);
std::size_t EucLength(const unsigned char* three) {
    const auto isPart = [](unsigned char byte) { return byte >= 0xA1 && byte <= 0xFE; };
    if ((three[0] != 0x8E && three[0] != 0x8F && !isPart(three[0])) || !isPart(three[1])) return 1;
    return three[0] == 0x8F && isPart(three[2]) ? 3 : 2;
}
std::size_t SjisLength(const unsigned char* three) {
    const bool isLead = (three[0] > 0x80 && three[0] < 0xA0) || (three[0] >= 0xE0 && three[0] <= 0xFC);
    return isLead && three[1] >= 0x40 && three[1] <= 0xFC && three[1] != 0x7F ? 2 : 1;
}

// One direction as the library has it.
class Reference {
  public:
    Reference(const char* to, const char* from, Length length) : library_(iconv_open(to, from)), length_(length) {}
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
    ~Reference() { iconv_close(library_); }

    // What becomes of each character; "?" of what is none.
    std::vector<std::string> operator()(std::string text) {
        std::vector<std::string> results;
        while (!text.empty()) {
            const std::string three = text.substr(0, 3) + std::string(3, '\0');
            const std::size_t length = length_(reinterpret_cast<const unsigned char*>(three.data()));
            results.push_back(Character(text.substr(0, length)));
            text.erase(0, length);
        }
        return results;
    }

  private:
    std::string Character(std::string text) {
        const auto [known, isNew] = results_.emplace(text, "?");
        if (!isNew) return known->second;
        char out[16];
        char *from = text.data(), *to = out;
        std::size_t left = text.size(), room = sizeof out;
        iconv(library_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(library_, &from, &left, &to, &room) == 0) known->second.assign(out, to);
        return known->second;
    }

    iconv_t library_;
    Length length_;
    std::map<std::string, std::string> results_;
};

struct Direction {
    Reference reference;
    std::string (*convert)(std::string_view);
    kirobc::Converted (*cut)(std::string_view, char*, std::size_t) noexcept;
};
class EucCodec : public testing::Test {
  protected:
    Direction directions_[2] = {{{"CP932", "EUC-JP-MS", EucLength}, kirobc::EucToSjis, kirobc::EucToSjis},
                                {{"EUC-JP-MS", "CP932", SjisLength}, kirobc::SjisToEuc, kirobc::SjisToEuc}};
};

TEST_F(EucCodec, AgreesWithTheLibraryOnEveryCharacterAndOnWhatIsNone) {
    for (Direction& direction : directions_) {
        const auto check = [&](const std::string& text) {
            std::string expected;
            for (const std::string& result : direction.reference(text)) expected += result;
            ASSERT_EQ(direction.convert(text), expected) << testing::PrintToString(text);
        };
        for (int a = 0; a < 256; ++a) {
            check(Bytes({a}));
            for (int b = 0; b < 256; ++b) {
                check(Bytes({a, b}));
                for (int c = 0; c < 256 && a == 0x8F; ++c) check(Bytes({a, b, c}));
            }
        }
    }
}

// Every limit gives the longest run of whole characters that fits. In heap blocks of the exact size, so that the
// sanitizer sees every access behind them.
TEST_F(EucCodec, CutsAnyBytesAtTheEndOfACharacter) {
    std::mt19937 random(932);
    const std::string interesting = "a\x8E\x8F\xA1\xB1\xF4\xF5\xFA\xFB\xFC\xFE\xFF\x81\x95\x5C\x40\x80";
    for (int round = 0; round < 10000; ++round) {
        std::vector<char> text(random() % 24);
        for (char& c : text)
            c = random() % 2 ? interesting[random() % interesting.size()] : static_cast<char>(random() % 256);
        const std::string_view view(text.data(), text.size());
        std::vector<char> out(random() % 24);
        for (Direction& direction : directions_) {
            std::string whole;
            std::size_t fits = 0;
            for (const std::string& result : direction.reference(std::string(view))) {
                whole += result;
                if (whole.size() <= out.size()) fits = whole.size();
            }
            const kirobc::Converted result = direction.cut(view, out.data(), out.size());
            ASSERT_EQ(result.whole, whole.size());
            ASSERT_EQ(result.written, fits);
            ASSERT_EQ(std::string(out.data(), fits), whole.substr(0, fits));
            ASSERT_EQ(direction.convert(view), whole);
        }
    }
}

}  // namespace
