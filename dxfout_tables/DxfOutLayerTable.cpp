#include "dxfout_tables/DxfOutLayerTable.h"

#include <algorithm>
#include <iterator>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 127;
constexpr std::size_t kBytes = 72;  // of values behind a keyword
constexpr std::int32_t kUnsetColor = -1;
constexpr std::string_view kNoLayer = "0";

constexpr std::string_view kBadPicture = " ***** 無効なピクチャ番号です (0-%d) *****\n";
constexpr std::string_view kBadClass = " ***** 無効なクラス番号です (0-%d) *****\n";  // deliberate: of PICTURE_OFF too
constexpr std::string_view kBadRevision = " ***** 無効なレビジョン番号です (0-%d) *****\n";
constexpr std::string_view kBadColor = " ***** 無効な色番号です (0-%d) *****\n";
constexpr std::string_view kPictureForm = " ***** 書式が違います *****      PICTURE  picture# = layer_name\n";
constexpr std::string_view kClassForm = " ***** 書式が違います *****      CLASS  class# = layer_name\n";
constexpr std::string_view kRevisionForm = " ***** 書式が違います *****      REVISION  revision# = layer_name\n";
// Deliberately without the blank that the others have before the second asterisks.
constexpr std::string_view kColorForm = " ***** 書式が違います*****       COLOR  color# = color#\n";

class LayerReader : public RecordReader<DxfOutLayerTable> {
  public:
    using RecordReader::RecordReader;

    Reading PictureOff(FieldText& fields);
    Reading ClassControl(FieldText& fields);
    Reading LayerControl(FieldText& fields);
    Reading Picture(FieldText& fields) { return Layer(fields, table_.pictureLayer, kPictureForm, kBadPicture); }
    Reading Class(FieldText& fields) { return Layer(fields, table_.classLayer, kClassForm, kBadClass); }
    Reading Revision(FieldText& fields) { return Layer(fields, table_.revisionLayer, kRevisionForm, kBadRevision); }
    Reading Color(FieldText& fields);

  private:
    template <std::size_t N>
    Reading Layer(FieldText& fields, char (&names)[kDxfOutLayers][N], std::string_view form,
                  std::string_view badNumber);
};

constexpr Keyword<LayerReader> kKeywords[] = {
    {"PICTURE_OFF ", &LayerReader::PictureOff, 0, kBytes, ""},
    {"CLASS_CONTROL ", &LayerReader::ClassControl, 0, kBytes, ""},
    {"LAYER_CONTROL ", &LayerReader::LayerControl, 0, kBytes, ""},
    {"PICTURE ", &LayerReader::Picture, 0, kBytes, ""},
    {"CLASS ", &LayerReader::Class, 0, kBytes, ""},
    {"REVISION ", &LayerReader::Revision, 0, kBytes, ""},
    {"COLOR ", &LayerReader::Color, 0, kBytes, ""},
};

Reading LayerReader::PictureOff(FieldText& fields) {
    const auto number = ReadInteger(fields.Rest(), -kDxfOutFrame, kDxfOutFrame);
    if (!number) return Refuse(kBadClass, kDxfOutFrame);
    table_.pictureOff = *number;
    return Reading::kGoOn;
}

// Words are known by their starts, and an unknown one is no error.
Reading LayerReader::ClassControl(FieldText& fields) {
    const std::string_view word = fields.Rest();
    table_.classControl = word.starts_with("COMP")   ? kClassControlComposite
                          : word.starts_with("ITEM") ? kClassControlItem
                                                     : kClassControlNone;
    return Reading::kGoOn;
}

Reading LayerReader::LayerControl(FieldText& fields) {
    const std::string_view word = fields.Rest();
    table_.layerControl = word.starts_with("CLASS")      ? kLayerControlClass
                          : word.starts_with("REVISION") ? kLayerControlRevision
                                                         : kLayerControlNone;
    return Reading::kGoOn;
}

template <std::size_t N>
Reading LayerReader::Layer(FieldText& fields, char (&names)[kDxfOutLayers][N], std::string_view form,
                           std::string_view badNumber) {
    const auto parts = fields.Cut("=");
    if (!parts) return Refuse(form);
    const auto number = ReadInteger((*parts)[0], 0, kDxfOutFrame);
    if (!number) return Refuse(badNumber, kDxfOutFrame);
    Keep(names[*number], fields.Rest());
    if (*number != 0) return Reading::kGoOn;
    // Deliberately only what is empty at this moment. "0" is a name too: empty are entries that an earlier record left
    // without one.
    for (auto& name : names)
        if (SlotText(name).empty()) StoreText(name, fields.Rest());
    return Reading::kGoOn;
}

Reading LayerReader::Color(FieldText& fields) {
    const auto parts = fields.Cut("=");
    if (!parts) return Refuse(kColorForm);
    const auto color = ReadInteger((*parts)[0], 0, kDxfOutColors - 1);
    const auto value = ReadInteger(fields.Rest(), 0, kDxfOutMaxColor);
    // Deliberately one limit for both in the message, though the second number ends at 255.
    if (!color || !value) return Refuse(kBadColor, kDxfOutColors - 1);
    table_.colorMap[*color] = *value;
    if (*color == 0) std::replace(std::begin(table_.colorMap), std::end(table_.colorMap), kUnsetColor, *value);
    return Reading::kGoOn;
}

void SetDefaults(DxfOutLayerTable& table) {
    table.pictureOff = 0;
    table.layerControl = kLayerControlNone;
    table.spareSlot = kDxfOutFrame;
    table.classControl = kClassControlNone;
    for (std::int32_t i = 0; i < kDxfOutLayers; ++i) {
        StoreText(table.pictureLayer[i], kNoLayer);
        StoreText(table.classLayer[i], kNoLayer);
        StoreText(table.revisionLayer[i], kNoLayer);
    }
    std::fill(std::begin(table.colorMap), std::end(table.colorMap), kUnsetColor);
}

// Older files give with PICTURE_OFF the class that names the drawing frame. Deliberately a negative number ends as 257
// too: the choice of revisions is lost.
void CompletePictureOff(DxfOutLayerTable& table) {
    auto& frame = table.classLayer[kDxfOutFrame];
    if (table.pictureOff > 0 && SlotText(frame) == kNoLayer)
        StoreText(frame, SlotText(table.classLayer[table.pictureOff]));
    if (table.pictureOff != 0) table.pictureOff = kDxfOutFrame;
}

}  // namespace

void ParseDxfOutLayerTable(std::string_view file, DxfOutLayerTable& table, TableListing& listing) {
    SetDefaults(table);
    LayerReader reader(table, listing);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
    CompletePictureOff(table);
    std::replace(std::begin(table.colorMap), std::end(table.colorMap), kUnsetColor, 0);
}

std::string FormatDxfOutLayerTable(const DxfOutLayerTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Convert Picture to Layer\n/\n");
    out.Add("PICTURE_OFF  %d\n/\n", table.pictureOff);
    if (table.layerControl == kLayerControlClass) out.Add("LAYER_CONTROL  CLASS\n");
    if (table.layerControl == kLayerControlRevision) out.Add("LAYER_CONTROL  REVISION\n");
    if (table.classControl == kClassControlComposite) out.Add("/\nCLASS_CONTROL  COMPOSITE\n");
    if (table.classControl == kClassControlItem) out.Add("/\nCLASS_CONTROL  ITEM\n");
    // Entry 0 of the names is never written.
    const auto addNames = [&out](std::string_view format, const auto& names) {
        out.Add("/\n");
        for (std::int32_t i = 1; i < kDxfOutLayers; ++i) out.Add(format, i, SlotText(names[i]));
    };
    addNames("PICTURE  %3d = %s\n", table.pictureLayer);
    addNames("CLASS    %3d = %s\n", table.classLayer);
    addNames("REVISION %3d = %s\n", table.revisionLayer);
    out.Add("/\n");
    for (std::int32_t i = 0; i < kDxfOutColors; ++i) out.Add("COLOR    %3d = %3d\n", i, table.colorMap[i]);
    return std::move(out).Finish();
}
