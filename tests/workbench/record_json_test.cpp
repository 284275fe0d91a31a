#include "RecordJson.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"

namespace kiro {
namespace {

// Heap memory of its exact size.
struct Record {
    explicit Record(std::size_t drawings = 0, std::byte filler = {})
        : bytes(sizeof(TARNAINFO) + drawings * sizeof(TarnaDrawing), filler) {}
    TARNAINFO& Info() { return *reinterpret_cast<TARNAINFO*>(bytes.data()); }
    // Fills it, and compares what it then gives.
    void Take(const RecordView& view, const char8_t* text) {
        const Json json = Json::parse(reinterpret_cast<const char*>(text));
        FromJson(view, json, bytes);
        const Json back = ToJson(view, bytes);
        for (const auto& [name, value] : json.items()) EXPECT_EQ(value, back[name]) << name;
    }
    std::vector<std::byte> bytes;
};
constexpr std::byte kRubbish{'x'};

TEST(RecordJson, PutsTextsInTheFieldsEncoding) {
    Record record(0, kRubbish);
    auto& input = record.Info().input;
    record.Take(kImportView, u8R"({"scale": 0.5, "pictureNumber": -256, "subModelName": "表髙①", "password": "表"})");
    EXPECT_EQ(0.5, input.scale);
    EXPECT_EQ(-256, input.pictureNumber);
    EXPECT_STREQ("\x95\x5C", input.password);
    EXPECT_EQ("\xC9\xBD\x8F", std::string(input.subModelName, 3));
    // What a longer text left is cleared, and nothing else.
    EXPECT_EQ('\0', input.subModelName[sizeof input.subModelName - 1]);
    EXPECT_EQ('x', input.inputFileName[256]);
    EXPECT_EQ('x', input.layerTableFileName[0]);
}

TEST(RecordJson, ReadsWithinFieldAndRecord) {
    Record record(2, kRubbish);  // no NUL, and a count of drawings that no record has
    EXPECT_EQ(std::string(129, 'x'), ToJson(kImportView, record.bytes)["password"]);
    EXPECT_EQ(3u, ToJson(kDatabaseInputView, record.bytes)["dbDrawings"].size());
}

TEST(RecordJson, NumbersSlotsAsTheHostDoes) {
    Record record;
    record.Take(kDatabaseInputView,
                u8R"({"dbPageCounts": {"1": 5, "256": 7}, "dbPageNames": {"1": "平面図"},
        "plFloppyGroups": {"511": "ABCDEF"}, "dbDrawingCount": 1,
        "dbDrawings": [{"selected": 1, "drawingName": "図面", "modelName": "M"}]})");
    const auto& database = record.Info().database;
    EXPECT_EQ(5, database.dbPageCounts[0]);
    EXPECT_EQ(7, database.dbPageCounts[255]);
    EXPECT_NE('\0', database.dbPageNames[1][0]);
    EXPECT_EQ("ABCDEF", std::string(database.plFloppyGroups[511], 6));  // padded to its whole width
    EXPECT_EQ(1, database.dbDrawings[0].selected);
}

TEST(RecordJson, LetsNamedFieldsWinOverWords) {
    DxfInParamBlock block{};
    FromJson(kDxfInParams, {{"kanjiCode", 2}, {"words", {9, 8}}}, std::as_writable_bytes(std::span(&block, 1)));
    EXPECT_EQ(2, block.kanjiCode);
    EXPECT_EQ(8, block.fill);
}

TEST(RecordJson, SaysWhatDoesNotFit) {
    const struct {
        const RecordView& view;
        Json json;
        const char* message;
    } rows[] = {
        {kImportView, {{"scales", 1}}, "TarnaImportView has no field scales"},
        {kImportView, {{"scale", "1"}}, "scale: a number is expected"},
        {kImportView, {{"addMode", 1.5}}, "addMode: an integer is expected"},
        {kImportView, {{"addMode", 2147483648}}, "addMode: no 32-bit integer"},
        {kImportView, {{"addMode", UINT64_MAX}}, "addMode: no 32-bit integer"},
        {kImportView, {{"password", std::string(130, 'x')}}, "password: 130 bytes, the field has 129"},
        {kImportView, {{"password", "\xC3\xA9"}}, "password: code page 932 has not all of its characters"},
        {kImportView, {{"subModelName", std::string(1, '\0')}}, "subModelName: the text has a NUL"},
        {kImportView, Json::array(), "TarnaImportView: an object is expected"},
        {kDatabaseInputView, {{"dbPageCounts", {{"0", 1}}}}, "dbPageCounts: there is no number 0"},
        {kDatabaseInputView, {{"dbPageNames", {{"2", 1}}}}, "dbPageNames[2]: a text is expected"},
        {kDatabaseInputView, {{"dbDrawings", Json::parse("[{}, {}]")}}, "dbDrawings: there is room for 1"},
    };
    Record record;
    for (const auto& row : rows) {
        std::string message;
        try {
            FromJson(row.view, row.json, record.bytes);
        } catch (const RecordError& error) {
            message = error.what();
        }
        EXPECT_EQ(row.message, message);
    }
}

}  // namespace
}  // namespace kiro
