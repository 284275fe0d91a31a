#include "dxfin_tables/KrDxfInTbl_IO.h"

#include <algorithm>

#include "entry/host/kirodxf.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kCannotWrite[] = "%s\n\nファイルを開けません。";
constexpr TableFile kLayers{"", {"レイヤ・色割当", kCannotWrite}, ParseDxfInLayerTable, FormatDxfInLayerTable};
constexpr TableFile kLines{"DXFKIRO_LINE", {"線種・線幅割当", kCannotWrite}, ParseDxfInLineTable, FormatDxfInLineTable};
constexpr TableFile kStyles{
    "DXFKIRO_STYLE", {"文字スタイル割当", kCannotWrite}, ParseDxfInStyleTable, FormatDxfInStyleTable};
constexpr TableFile kArrows{"DXFKIRO_ARROW", {"矢印割当", kCannotWrite}, ParseDxfInArrowTable, FormatDxfInArrowTable};

}  // namespace

void KrDxfInTbl_IO::ReadLayerTable(DxfInLayerTable& table) {
    DxfSetColorRGB();
    Read(kLayers, table, DxfGetColorRGB);
}
void KrDxfInTbl_IO::ReadLineTable(DxfInLineTable& table) { Read(kLines, table); }
void KrDxfInTbl_IO::ReadStyleTable(DxfInStyleTable& table) { Read(kStyles, table); }
void KrDxfInTbl_IO::ReadArrowTable(DxfInArrowTable& table) { Read(kArrows, table); }

bool KrDxfInTbl_IO::WriteLayerTable(const DxfInLayerTable& table) { return Write(kLayers, table); }
bool KrDxfInTbl_IO::WriteLineTable(DxfInLineTable& table) { return Write(kLines, table); }
bool KrDxfInTbl_IO::WriteStyleTable(const DxfInStyleTable& table) { return Write(kStyles, table); }
bool KrDxfInTbl_IO::WriteArrowTable(const DxfInArrowTable& table) { return Write(kArrows, table); }

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
