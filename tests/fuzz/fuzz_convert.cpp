// Reads whatever comes as a drawing; what is read is written, and what is written is read again. The first bytes choose
// words of the parameters, the version and the tables.
#include <cstdint>
#include <memory>

#include "convert/Convert.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/kiromdl/ModelStore.h"
#include "tests/fuzz/DxfReading.h"
#include "tests/native/TableKinds.h"

namespace {

using namespace convert;

struct Sink final : ByteSink {
    std::string bytes;
    bool Write(std::string_view more) override {
        bytes += more;
        return true;
    }
};

// In place of the system's: every byte is a character.
std::string Same(std::string_view text) { return std::string(text); }

struct Tables {
    DxfInLayerTable inLayers;
    DxfInLineTable inLines;
    DxfOutLayerTable outLayers;
    DxfOutLineTable outLines;
    Tables() {
        ListingText text;
        TableListing listing(text);
        Parse("LAYER A = 256\nLAYER-REVISION A = 1\nCOLOR-CLASS 256 = 9\n", inLayers, listing);
        Parse("LINE-TYPE A = 63,16\nWIDTH 0, 1 = 16\nLINE-WIDTH 2.11 = 16\n", inLines, listing);
        Parse("CLASS 256 = \x83\x5C\nPICTURE 257 = F\nCOLOR 256 = 255\n", outLayers, listing);
        Parse("LINE-FONT1 63 = A\nLINE-FONT2 16 = 2,3\nPITCH-A = 1,-1\n", outLines, listing);
    }
};

void Check(const ModelContent& content) {
    const auto within = [](int value, int low, int high) { Require(value >= low && value <= high); };
    for (const Item& item : content.items) {
        const Attributes& a = item.attributes;
        within(a.layer, 0, static_cast<int>(content.layers.size()) - 1);
        within(a.itemClass, 1, 256), within(a.revision, 1, 256), within(a.color, 0, 256);
        within(a.font, 1, 63), within(a.weight, 1, 16), within(item.picture, -1, 256);
        Require(item.picture != 0);
    }
}

// The model's bytes come back as they are; with something else in their middle they are refused, or are those of
// another model.
void CheckStore(const ModelContent& content, std::string_view noise, std::size_t place) {
    std::string bytes = FormatModelContent(content);
    ModelContent again;
    Require(ParseModelContent(bytes, again) && FormatModelContent(again) == bytes);
    place = bytes.size() * place / 256;
    bytes.replace(place, 16, noise.substr(0, 16));
    if (ParseModelContent(bytes, again)) Check(again), Require(FormatModelContent(again) == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto tables = std::make_unique<Tables>();
    constexpr std::size_t kChoices = 3;
    if (size < kChoices) return 0;
    ImportSettings import;
    ExportSettings output;
    import.unicode = output.unicode = {Same, Same};
    DxfInParamBlock& in = import.params;
    in.layerConversion = in.lineTypeConversion = data[0] % 3;
    in.lineWidthConversion = in.colorConversion = data[0] / 3 % 3;
    in.layerTarget = data[0] / 9 % 2, in.kanjiCode = data[0] / 18 % 2;
    in.paperSpaceTarget = data[1] % 2, in.convertHidden = data[1] / 2 % 2, in.convertLayerNames = data[1] / 4 % 2;
    import.pictureNumber = data[1] / 8 % 2 ? 256 : -1;
    import.layers = &tables->inLayers, import.lines = &tables->inLines;
    output.layers = &tables->outLayers, output.lines = &tables->outLines;
    output.params.outputVersion = data[2] % 8;
    output.params.binaryFormat = data[2] / 8 % 2, output.params.kanjiCode = data[2] / 16 % 2;
    output.params.layerConversion = data[2] / 32 % 2, output.params.lineConversion = data[2] / 64 % 2;

    const std::string_view bytes(reinterpret_cast<const char*>(data) + kChoices, size - kChoices);
    MemorySource source(bytes), failing(bytes, "\7", bytes.size() / 2);
    ModelContent content, again;
    Summary summary, other;
    const int half = ReadDrawing(failing, import, again, other);
    const int result = ReadDrawing(source, import, content, summary);
    Require(half != 0 || result == 0);  // what follows "EOF" plays no part
    Require(result <= 0 && (result == 0 || content.items.empty()));
    if (result != 0) return 0;
    Check(content);
    CheckStore(content, bytes, data[0]);
    Sink sink;
    const Target target = {static_cast<int>(!content.layouts.empty()), content.modelPicture};
    const int written = WriteDrawing(content, target, output, sink, summary);
    Require(written == 0 || written == kDxfNothing || (written == kDxfNotThatVersion && data[2] % 8 == 0));
    if (written != 0) return 0;
    // What was written is a drawing, with the items that it says it has.
    in.convertHidden = 1;
    MemorySource result2(sink.bytes);
    Summary counted;
    const std::size_t items = summary.items;
    Require(ReadDrawing(result2, import, again, counted) == 0);
    Require(counted.items <= items);
    return 0;
}
