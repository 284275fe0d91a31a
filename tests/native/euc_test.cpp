// The codec against the converter of the GNU C library, whose EUC-JP-MS and CP932 are made from other sources. Both
// agree on every character, byte for byte: there is no exception for the wave dash, the minus sign and their kind,
// since what Unicode would make of them never shows between these two encodings.
#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "hostlayer/kirobc/EucCodec.h"

namespace {

using kirobc::EucToSjis;
using kirobc::SjisToEuc;

class Iconv {
  public:
    Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        EXPECT_NE(handle_, reinterpret_cast<iconv_t>(-1));
    }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;
    ~Iconv() { iconv_close(handle_); }

    // "" when the bytes are no text of the source encoding.
    std::string operator()(std::string text) const {
        char out[16];
        char* from = text.data();
        char* to = out;
        std::size_t left = text.size();
        std::size_t room = sizeof out;
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        return iconv(handle_, &from, &left, &to, &room) == 0 ? std::string(out, to) : std::string();
    }

  private:
    iconv_t handle_;
};

std::string Bytes(std::initializer_list<int> bytes) { return {bytes.begin(), bytes.end()}; }

// A source character -> a result character, for all that the library knows as one character of up to three bytes.
using Characters = std::map<std::string, std::string>;

Characters AllCharacters(const Iconv& convert) {
    Characters all;
    const auto add = [&](const std::string& c) {
        const std::string result = convert(c);
        if (!result.empty()) all[c] = result;
        return !result.empty();
    };
    for (int a = 0; a < 256; ++a) {
        if (add(Bytes({a}))) continue;
        for (int b = 0x40; b < 256; ++b) {
            if (add(Bytes({a, b})) || a != 0x8F) continue;
            for (int c = 0x40; c < 256; ++c) add(Bytes({a, b, c}));
        }
    }
    return all;
}

const Characters& EucCharacters() {
    static const Characters all = AllCharacters(Iconv("CP932", "EUC-JP-MS"));
    return all;
}
const Characters& SjisCharacters() {
    static const Characters all = AllCharacters(Iconv("EUC-JP-MS", "CP932"));
    return all;
}

TEST(EucCodec, AgreesWithTheLibraryOnEveryCharacter) {
    EXPECT_EQ(EucCharacters().size(), 128u + 63 + 7902 + 1328);  // ASCII, katakana, pairs, triples
    EXPECT_EQ(SjisCharacters().size(), 128u + 63 + 9604);
    for (const auto& [euc, sjis] : EucCharacters()) ASSERT_EQ(EucToSjis(euc), sjis) << testing::PrintToString(euc);
    for (const auto& [sjis, euc] : SjisCharacters()) ASSERT_EQ(SjisToEuc(sjis), euc) << testing::PrintToString(sjis);
}

TEST(EucCodec, CanonicalCharactersSurviveTheRoundTrip) {
    std::size_t canonical = 0;
    for (const auto& [sjis, euc] : SjisCharacters()) {
        const std::string once = EucToSjis(euc);
        if (once == sjis) ++canonical;
        ASSERT_EQ(EucToSjis(SjisToEuc(once)), once);
    }
    // Not canonical: 9 of NEC row 13, 374 of NEC's selection, 15 of the IBM extensions.
    EXPECT_EQ(canonical, SjisCharacters().size() - 9 - 374 - 15);
}

// One "?" for every single byte, pair or triple of the right form without a character.
TEST(EucCodec, EverythingElseBecomesAQuestionMark) {
    const auto fromEuc = [](const std::string& code) { return EucCharacters().contains(code) ? "?" : EucToSjis(code); };
    const auto fromSjis = [](const std::string& code) {
        return SjisCharacters().contains(code) ? "?" : SjisToEuc(code);
    };
    for (int a = 0x80; a < 256; ++a) {
        ASSERT_EQ(fromEuc(Bytes({a})), "?") << a;
        ASSERT_EQ(fromSjis(Bytes({a})), "?") << a;
        for (int b = 0xA1; b < 0xFF; ++b) {
            const bool eucLead = a == 0x8E || (a >= 0xA1 && a < 0xFF);
            ASSERT_EQ(eucLead ? fromEuc(Bytes({a, b})) : "?", "?") << a << " " << b;
            ASSERT_EQ(eucLead && a != 0x8E ? fromEuc(Bytes({0x8F, a, b})) : "?", "?") << a << " " << b;
        }
        for (int b = 0x40; b < 0xFD; ++b) {
            const bool sjisPair = ((a > 0x80 && a < 0xA0) || (a >= 0xE0 && a < 0xFD)) && b != 0x7F;
            ASSERT_EQ(sjisPair ? fromSjis(Bytes({a, b})) : "?", "?") << a << " " << b;
        }
    }
}

TEST(EucCodec, StrayLeadBytesSwallowNothing) {
    for (int lead = 0x80; lead < 256; ++lead) {
        for (int next = 0; next < 0x80; ++next) {
            const std::string text = Bytes({lead, next, 'x'});
            ASSERT_EQ(EucToSjis(text), Bytes({'?', next, 'x'})) << lead << " " << next;
            if (next >= 0x40 && next != 0x7F) continue;  // second bytes of 932
            ASSERT_EQ(SjisToEuc(text).substr(SjisToEuc(text).size() - 2), Bytes({next, 'x'})) << lead << " " << next;
        }
    }
    EXPECT_EQ(EucToSjis("\x8F\xA1/\x8F"), "?/?");  // broken off after two bytes of three, and after one
    EXPECT_EQ(EucToSjis("\xB4"), "?");
    EXPECT_EQ(SjisToEuc("\x8A"), "?");
}

using Convert = kirobc::Converted (*)(std::string_view, char*, std::size_t);

// Every limit gives the longest run of whole characters that fits, and the bytes behind it stay as they were.
void ExpectCuts(Convert convert, const Characters& characters, const std::string& source) {
    for (std::size_t limit = 0; limit < 16; ++limit) {
        std::string expected;
        std::size_t whole = 0;
        bool cut = false;
        for (std::size_t at = 0, size = 1; at < source.size(); at += size, size = 1) {
            while (!characters.contains(source.substr(at, size))) ASSERT_LE(++size, 3u);
            const std::string& c = characters.at(source.substr(at, size));
            cut = cut || expected.size() + c.size() > limit;
            if (!cut) expected += c;
            whole += c.size();
        }
        std::string out(32, '#');
        const kirobc::Converted result = convert(source, out.data(), limit);
        EXPECT_EQ(result.whole, whole);
        EXPECT_EQ(result.written, expected.size()) << limit;
        EXPECT_EQ(out, expected + std::string(32 - expected.size(), '#')) << limit;
    }
}

TEST(EucCodec, CutsAtTheEndOfACharacter) {
    const std::string sjis = "a\x95\x5C\xB1\xFB\xFC\xF5\x40z";  // pair with 5C, katakana, IBM, user-defined
    ExpectCuts(kirobc::SjisToEuc, SjisCharacters(), sjis);
    ExpectCuts(kirobc::EucToSjis, EucCharacters(), SjisToEuc(sjis));
}

// Heap blocks of the exact size, so that the sanitizer sees every access behind them.
TEST(EucCodec, AnyBytesStayInBounds) {
    std::mt19937 random(932);
    const std::string interesting = "\x8E\x8F\xA1\xB1\xF4\xF5\xFC\xFE\xFF\x81\x5C\x40\x80";
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 24, '\0');
        for (char& c : text) {
            c = random() % 2 ? interesting[random() % interesting.size()] : static_cast<char>(random() % 256);
        }
        const std::vector<char> source(text.begin(), text.end());
        const std::string_view view(source.data(), source.size());
        ASSERT_LE(EucToSjis(view).size(), text.size() * kirobc::kMaxSjisPerEuc);
        ASSERT_LE(SjisToEuc(view).size(), text.size() * kirobc::kMaxEucPerSjis);
        for (const Convert convert : {Convert(kirobc::EucToSjis), Convert(kirobc::SjisToEuc)}) {
            std::vector<char> out(random() % 24);
            const kirobc::Converted cut = convert(view, out.data(), out.size());
            ASSERT_LE(cut.written, std::min(cut.whole, out.size()));
            ASSERT_TRUE(cut.whole > out.size() || cut.written == cut.whole);
        }
    }
}

}  // namespace
