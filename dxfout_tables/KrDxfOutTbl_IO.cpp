#include "dxfout_tables/KrDxfOutTbl_IO.h"

#include <cstdio>
#include <new>

#include "entry/host/ParamBlocks.h"
#include "entry/host/kirodxf.h"

namespace {

constexpr char kCannotWrite[] = "No such a file or directory : %s";
constexpr TableFile kLayers{"", {"レイヤ・色割当", kCannotWrite}, ParseDxfOutLayerTable, FormatDxfOutLayerTable};
constexpr TableFile kLines{
    "KIRODXF_LINE", {"線種・線幅割当", kCannotWrite}, ParseDxfOutLineTable, FormatDxfOutLineTable};
constexpr TableFile kStyles{
    "KIRODXF_STYLE", {"文字スタイル割当", kCannotWrite}, ParseDxfOutStyleTable, FormatDxfOutStyleTable};
constexpr TableFile kArrows{"KIRODXF_ARROW",
                            {"矢印割当", kCannotWrite},
                            ParseDxfOutArrowTable,
                            FormatDxfOutArrowTable,
                            MissingFile::kChangesNothing};

class StandardOutput final : public ListingSink {
  public:
    void Write(std::string_view text) override { std::fwrite(text.data(), 1, text.size(), stdout); }
};

}  // namespace

OwnedUtility::OwnedUtility(HWND owner) : owned_(KrCreateUtility()) {
    if (!owned_) throw std::bad_alloc();
    owned_->SetParentWindow(owner);
}

void KrDxfOutTbl_IO::ReadLayerTable(DxfOutLayerTable* table) { Read(kLayers, *table); }
void KrDxfOutTbl_IO::ReadLineTable(DxfOutLineTable* table) {
    StandardOutput output;
    Read(kLines, *table, output);
}
void KrDxfOutTbl_IO::ReadStyleTable(const TARNAINFO* info, DxfOutStyleTable* table) {
    const DxfOutParamBlock* params = info ? info->output.exportParams : nullptr;
    Read(kStyles, *table, params ? params->outputVersion : 0);
}
void KrDxfOutTbl_IO::ReadArrowTable(DxfOutArrowTable* table) { Read(kArrows, *table, dxfotCheckArrow); }

bool KrDxfOutTbl_IO::WriteLayerTable(const DxfOutLayerTable* table) { return Write(kLayers, *table); }
bool KrDxfOutTbl_IO::WriteLineTable(const DxfOutLineTable* table) { return Write(kLines, *table); }
bool KrDxfOutTbl_IO::WriteStyleTable(const DxfOutStyleTable* table) { return Write(kStyles, *table); }
bool KrDxfOutTbl_IO::WriteArrowTable(const DxfOutArrowTable* table) { return Write(kArrows, *table); }
