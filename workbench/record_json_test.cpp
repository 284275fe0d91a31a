#include "RecordJson.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"

namespace kiro {
namespace {

// Heap memory of its exact size.
struct Record {
    explicit Record(std::size_t drawings = 0, int filler = 0)
        : size(sizeof(TARNAINFO) + drawings * sizeof(TarnaDrawing)), bytes(new std::byte[size]) {
        std::memset(bytes.get(), filler, size);
    }
    TARNAINFO& Info() { return *reinterpret_cast<TARNAINFO*>(bytes.get()); }
    std::span<std::byte> Span() { return {bytes.get(), size}; }
    std::size_t size;
    std::unique_ptr<std::byte[]> bytes;
};

Json Parse(const char8_t* text) { return Json::parse(reinterpret_cast<const char*>(text)); }

std::string ErrorOf(const RecordView& view, const Json& json) {
    Record record;
    try {
        FromJson(view, json, record.Span());
    } catch (const RecordError& error) {
        return error.what();
    }
    return "none";
}

TEST(RecordJsonTest, PutsTextsInTheFieldsEncoding) {
    Record record;
    const Json json = Parse(u8R"({"scale": 0.5, "pictureNumber": -256, "subModelName": "表髙①", "password": "表"})");
    FromJson(kImportView, json, record.Span());
    EXPECT_EQ(0.5, record.Info().input.scale);
    EXPECT_EQ(-256, record.Info().input.pictureNumber);
    EXPECT_STREQ("\xC9\xBD", std::string(record.Info().input.subModelName, 2).c_str());
    EXPECT_STREQ("\x95\x5C", record.Info().input.password);
    const Json back = ToJson(kImportView, record.Span());
    for (const auto& [name, value] : json.items()) EXPECT_EQ(value, back[name]) << name;
}

TEST(RecordJsonTest, ReadsFieldsWithoutNulWithinTheirWidth) {
    Record record(0, 'x');
    const Json import = ToJson(kImportView, record.Span());
    EXPECT_EQ(std::string(129, 'x'), import["password"]);
    EXPECT_EQ(std::string(257, 'x'), import["inputFileName"]);
    // A count that no record has: only the drawings that are there are read.
    Record database(2, 'x');
    EXPECT_EQ(3u, ToJson(kDatabaseInputView, database.Span())["dbDrawings"].size());
}

TEST(RecordJsonTest, ClearsWhatALongerTextLeftAndNothingElse) {
    Record record(0, 'x');
    FromJson(kImportView, {{"subModelName", "A"}}, record.Span());
    const auto& input = record.Info().input;
    EXPECT_EQ(std::string(256, '\0'), std::string(input.subModelName + 1, 256));
    EXPECT_EQ('x', input.inputFileName[256]);
    EXPECT_EQ('x', input.layerTableFileName[0]);
}

TEST(RecordJsonTest, NumbersSlotsAsTheHostDoes) {
    Record record;
    const Json json = Parse(
        u8R"({"dbPageCounts": {"1": 5, "256": 7}, "dbPageNames": {"1": "平面図"},
        "plFloppyGroups": {"511": "ABCDEF"}, "dbDrawingCount": 1,
        "dbDrawings": [{"selected": 1, "drawingName": "図面", "modelName": "M"}]})");
    FromJson(kDatabaseInputView, json, record.Span());
    const auto& database = record.Info().database;
    EXPECT_EQ(5, database.dbPageCounts[0]);
    EXPECT_EQ(7, database.dbPageCounts[255]);
    EXPECT_NE('\0', database.dbPageNames[1][0]);
    EXPECT_EQ(0, std::memcmp(database.plFloppyGroups[511], "ABCDEF", 6));
    EXPECT_EQ(1, database.dbDrawings[0].selected);
    const Json back = ToJson(kDatabaseInputView, record.Span());
    for (const auto& [name, value] : json.items()) EXPECT_EQ(value, back[name]) << name;
}

TEST(RecordJsonTest, LetsNamedFieldsWinOverWords) {
    DxfInParamBlock block{};
    const auto bytes = std::as_writable_bytes(std::span(&block, 1));
    FromJson(kDxfInParams, Parse(u8R"({"kanjiCode": 2, "words": [9, 8]})"), bytes);
    EXPECT_EQ(2, block.kanjiCode);
    EXPECT_EQ(8, block.fill);
    EXPECT_EQ(32u, ToJson(kDxfInParams, bytes)["words"].size());
}

TEST(RecordJsonTest, SaysWhatDoesNotFit) {
    EXPECT_EQ("TarnaImportView has no field scales", ErrorOf(kImportView, {{"scales", 1}}));
    EXPECT_EQ("scale: a number is expected", ErrorOf(kImportView, {{"scale", "1"}}));
    EXPECT_EQ("addMode: an integer is expected", ErrorOf(kImportView, {{"addMode", 1.5}}));
    EXPECT_EQ("addMode: no 32-bit integer", ErrorOf(kImportView, {{"addMode", 2147483648}}));
    EXPECT_EQ("addMode: no 32-bit integer", ErrorOf(kImportView, {{"addMode", UINT64_MAX}}));
    EXPECT_EQ("password: 130 bytes, the field has 129", ErrorOf(kImportView, {{"password", std::string(130, 'x')}}));
    // Outside the macro, which would also want it in the execution character set.
    const Json accent = Parse(u8R"({"password": "é"})");
    EXPECT_EQ("password: code page 932 has not all of its characters", ErrorOf(kImportView, accent));
    EXPECT_EQ("subModelName: the text has a NUL", ErrorOf(kImportView, {{"subModelName", std::string(1, '\0')}}));
    EXPECT_EQ("dbPageCounts: there is no number 0", ErrorOf(kDatabaseInputView, {{"dbPageCounts", {{"0", 1}}}}));
    EXPECT_EQ("dbPageNames[2]: a text is expected", ErrorOf(kDatabaseInputView, {{"dbPageNames", {{"2", 1}}}}));
    EXPECT_EQ("dbDrawings: there is room for 1", ErrorOf(kDatabaseInputView, Parse(u8R"({"dbDrawings": [{}, {}]})")));
    EXPECT_EQ("TarnaImportView: an object is expected", ErrorOf(kImportView, Json::array()));
}

}  // namespace
}  // namespace kiro
