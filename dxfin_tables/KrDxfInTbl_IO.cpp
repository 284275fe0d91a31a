#include "dxfin_tables/KrDxfInTbl_IO.h"

#include <algorithm>
#include <memory>

#include "entry/host/kirodxf.h"
#include "text/SlotText.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kLineFile[] = "DXFKIRO_LINE";
constexpr char kStyleFile[] = "DXFKIRO_STYLE";
constexpr char kArrowFile[] = "DXFKIRO_ARROW";

constexpr char kCannotWrite[] = "%s\n\nファイルを開けません。";
constexpr TableWording kLayerWording = {"レイヤ・色割当", kCannotWrite};
constexpr TableWording kLineWording = {"線種・線幅割当", kCannotWrite};
constexpr TableWording kStyleWording = {"文字スタイル割当", kCannotWrite};
constexpr TableWording kArrowWording = {"矢印割当", kCannotWrite};

void FetchPalette(DxfInPalette& palette) {
    DxfSetColorRGB();
    for (std::int32_t color = 0; color < kDxfInColors; ++color) {
        std::int16_t rgb[3] = {};
        DxfGetColorRGB(color, &rgb[0], &rgb[1], &rgb[2]);
        std::copy_n(rgb, 3, palette[color]);
    }
}

}  // namespace

void KrDxfInTbl_IO::ReadLayerTable(DxfInLayerTable& table) {
    ReadTable(table, PathOf(SlotText(table.fileName)), table.noFileRead == 0, kLayerWording,
              [](std::string_view bytes, DxfInLayerTable& copy, TableListing& listing) {
                  FetchPalette(copy.colorRgb);
                  ParseDxfInLayerTable(bytes, copy.colorRgb, copy, listing);
              });
}

void KrDxfInTbl_IO::ReadLineTable(DxfInLineTable& table) {
    ReadTable(table, PathOf(kLineFile), true, kLineWording, ParseDxfInLineTable);
}

void KrDxfInTbl_IO::ReadStyleTable(DxfInStyleTable& table) {
    ReadTable(table, PathOf(kStyleFile), true, kStyleWording, ParseDxfInStyleTable);
}

void KrDxfInTbl_IO::ReadArrowTable(DxfInArrowTable& table) {
    ReadTable(table, PathOf(kArrowFile), true, kArrowWording, ParseDxfInArrowTable);
}

bool KrDxfInTbl_IO::WriteLayerTable(const DxfInLayerTable& table) {
    const std::string path = PathOf(SlotText(table.fileName));
    return WriteTable(path, FormatDxfInLayerTable(table, {path, Now()}), kLayerWording);
}

bool KrDxfInTbl_IO::WriteLineTable(DxfInLineTable& table) {
    const std::string path = PathOf(kLineFile);
    return WriteTable(path, FormatDxfInLineTable(table, {path, Now()}), kLineWording);
}

bool KrDxfInTbl_IO::WriteStyleTable(const DxfInStyleTable& table) {
    const std::string path = PathOf(kStyleFile);
    return WriteTable(path, FormatDxfInStyleTable(table, {path, Now()}), kStyleWording);
}

bool KrDxfInTbl_IO::WriteArrowTable(const DxfInArrowTable& table) {
    const std::string path = PathOf(kArrowFile);
    return WriteTable(path, FormatDxfInArrowTable(table, {path, Now()}), kArrowWording);
}

bool KrDxfInTbl_IO::IsAllDigits(const std::string& text) const {
    const auto bad = std::find_if(text.begin(), text.end(), [](char c) { return c < '0' || c > '9'; });
    if (bad == text.end()) return true;
    std::string message = "数字以外の文字が入力されました: ";
    const auto at = static_cast<std::size_t>(bad - text.begin());
    // A double-byte character is named whole.
    const std::string_view two = std::string_view(text).substr(at, 2);
    message += CutAtCharacter(two, 1).empty() ? two : two.substr(0, 1);
    kiro::ui::Tell(Owner(), message, "テーブル編集");
    return false;
}
