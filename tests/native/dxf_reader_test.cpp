#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "hostlayer/kirodxf/DxfErrorText.h"
#include "tests/fuzz/DxfReading.h"

using Items = std::vector<DxfItem>;
using namespace std::string_literals;

namespace {

constexpr const char* kEverySize[] = {"\1", "\2", "\3", "\4", "\5", "\6", "\7", "\1\3\2\7"};

Items Read(std::string_view file, bool binary, std::string_view sizes = {}, std::size_t failAt = std::string::npos) {
    MemorySource source(file, sizes, failAt);
    return ReadAll(source, binary);
}

std::string Show(const Items& items) {
    std::string all;
    for (const DxfItem& item : items) all += std::to_string(item.code) + '=' + item.text + '|';
    return all;
}

// What is read does not depend on the pieces the file comes in; of a file that breaks off, at an end or at a failure,
// nothing is read that is not in the whole one.
void CheckPiecesAndCuts(const std::string& file, bool binary, const std::string& expected) {
    const Items all = Read(file, binary);
    EXPECT_EQ(Show(all), expected);
    for (const char* sizes : kEverySize) EXPECT_EQ(Show(Read(file, binary, sizes)), expected) << int{sizes[0]};
    for (std::size_t cut = 0; cut < file.size(); ++cut) {
        Items start = Read(std::string_view(file).substr(0, cut), binary);
        if (!binary && !start.empty()) start.pop_back();  // the last line may be half of one
        EXPECT_TRUE(IsStartOf(start, all)) << "cut after " << cut;
        EXPECT_TRUE(IsStartOf(Read(file, binary, "\5", cut), all)) << "failure after " << cut;
    }
}

template <class T>
std::string Bytes(T value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

const std::string kMark = "AutoCAD Binary DXF\r\n\x1a\0"s;

// Writes binary pairs; the bytes of a value are the caller's.
struct Writer {
    bool wide;
    std::string file = kMark;
    Writer& Pair(int code, const std::string& value) {
        if (wide || code >= 255)
            file += (wide ? "" : "\xff") + Bytes(static_cast<std::int16_t>(code));
        else
            file += static_cast<char>(code);
        file += value;
        return *this;
    }
};

TEST(DxfText, LinesOfEveryForm) {
    const std::string file =
        "\xEF\xBB\xBF  999\r\na comment\r999\nanother\r\n\t0 \nSECTION\r\r\n\n2\nHEAD\0ER\n70\r\n     1\n"
        "2147483647\n2147483648\n-5\n1.5\n12 3\n0x0\n\0000\n\xEF\xBB\xBF\n\x1a"s;
    CheckPiecesAndCuts(file, false,
                       "999=  999|-1=a comment|999=999|-1=another|0=\t0 |-1=SECTION|-1=|-1=|2=2|-1=HEAD|70=70|1=     1|"
                       "2147483647=2147483647|-1=2147483648|-1=-5|-1=1.5|-1=12 3|-1=0x0|-1=|-1=\xEF\xBB\xBF|-1=\x1a|");
    EXPECT_EQ(Show(Read("", false)), "");
    EXPECT_EQ(Show(Read("\xEF\xBB\xBF", false)), "");
    EXPECT_EQ(Show(Read("0\r\n", false)), "0=0|");
}

TEST(DxfText, LinesOfAnyLength) {
    constexpr int kLong = 10'000'000;
    const std::string file = std::string(kLong, 'a') + "\r\n" + std::string(5000, '0') + "\n7";
    MemorySource source(file);
    static DxfReader reader(ShortestReal);
    ASSERT_TRUE(reader.OpenText(source));
    EXPECT_LE(source.Taken(), 8192u) << "the start of a huge file costs little";
    ASSERT_TRUE(reader.ReadLine());
    char out[10];
    EXPECT_EQ(reader.GetText(out, sizeof out), kLong);
    EXPECT_STREQ(out, "aaaaaaaaa");
    EXPECT_EQ(TakeText(reader, 5000), std::string(ValueText::kCapacity, 'a'));
    ASSERT_TRUE(reader.ReadLine());
    EXPECT_EQ(reader.LineAsCode(), -1) << "a number that was cut is another number";
    ASSERT_TRUE(reader.ReadLine());
    EXPECT_EQ(reader.LineAsCode(), 7);
    EXPECT_FALSE(reader.ReadLine());
}

class DxfBinary : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(CodeWidth, DxfBinary, testing::Bool(), [](const auto& p) { return p.param ? "two" : "one"; });

TEST_P(DxfBinary, ValuesOfEveryKind) {
    Writer w{GetParam()};
    w.Pair(999, "first\0"s).Pair(0, "SECTION\0"s).Pair(9, "\0"s).Pair(10, Bytes(0.1)).Pair(140, Bytes(-2.5e300));
    w.Pair(70, Bytes<std::int16_t>(-2)).Pair(90, Bytes(INT_MIN)).Pair(160, Bytes(INT64_MAX));
    w.Pair(290, "\xff").Pair(310, "\x03\x00\xab\n"s).Pair(1004, "\0"s).Pair(5, "2F\0"s).Pair(330, "1A\0"s);
    w.Pair(1071, Bytes(255)).Pair(1040, Bytes(3.0)).Pair(255, "");
    CheckPiecesAndCuts(w.file, true,
                       "999=first|0=SECTION|9=|10=0.1|140=-2.5e+300|70=-2|90=-2147483648|160=9223372036854775807|"
                       "290=255|310=00AB0A|1004=|5=2F|330=1A|1071=255|1040=3|");
}

TEST_P(DxfBinary, NothingIsReadAfterNonsense) {
    for (const int code : {80, 250, 400 + 82, 1072, -1, INT16_MIN}) {
        if (code < 0 && !GetParam()) continue;
        Writer w{GetParam()};
        w.Pair(0, "SECTION\0"s).Pair(code, "\0\0\0\0\0\0\0\0"s).Pair(0, "EOF\0"s);
        EXPECT_EQ(Show(Read(w.file, true)), "0=SECTION|") << code;
    }
    Writer endless{GetParam()};
    endless.Pair(0, "SECTION\0"s).Pair(1, std::string(10'000'000, 'a'));
    EXPECT_EQ(Show(Read(endless.file, true)), "0=SECTION|");
    endless.file += '\0';
    EXPECT_EQ(Read(endless.file, true).back().text, std::string(ValueText::kCapacity, 'a'));
}

TEST_P(DxfBinary, TheStartTellsTheForm) {
    for (const int code : {0, 999}) {
        const DxfStart form = ExamineDxfStart(Writer{GetParam()}.Pair(code, "SECTION\0"s).file);
        EXPECT_TRUE(form.binary);
        EXPECT_EQ(form.wideCodes, GetParam()) << code;
    }
}

TEST(DxfReading, OnlyTheRightKindIsRead) {
    static DxfReader reader(ShortestReal);
    const std::string text = "0\nSECTION\n";
    MemorySource asText(text), noBinary(text), broken(text, {}, 0), halfMark(std::string_view(kMark).substr(0, 21));
    EXPECT_FALSE(reader.OpenBinary(noBinary));
    EXPECT_FALSE(reader.OpenBinary(halfMark));
    EXPECT_FALSE(reader.OpenText(broken));
    EXPECT_FALSE(reader.ReadLine());
    ASSERT_TRUE(reader.OpenText(asText));
    EXPECT_LT(reader.ReadPair(), 0);
    EXPECT_TRUE(reader.ReadLine()) << "the wrong call did no harm";
    reader.Close();
    EXPECT_FALSE(reader.ReadLine());
    EXPECT_EQ(reader.LineAsCode(), -1);
}

TEST(DxfErrorTexts, EveryCodeHasOne) {
    const auto text = [](int code) {
        char out[256];
        return std::string(out, DxfErrorText(code, out, sizeof out));
    };
    EXPECT_EQ(text(0), "正常に終了しました。");
    EXPECT_EQ(text(-28), "パスワードが違います。");
    EXPECT_EQ(text(28), text(-28));
    for (const int code : {-77777, INT_MIN, INT_MAX})
        EXPECT_NE(text(code).find(std::to_string(code)), std::string::npos);
    char tiny[4];
    EXPECT_EQ(DxfErrorText(-1, tiny, sizeof tiny), 3u);
}

}  // namespace
