#include "dxfout_tables/KrDxfOutTbl_IO.h"

#include <cstdio>
#include <memory>
#include <new>

#include "entry/host/ParamBlocks.h"
#include "entry/host/kirodxf.h"
#include "text/SlotText.h"

namespace {

constexpr char kLineFile[] = "KIRODXF_LINE";
constexpr char kStyleFile[] = "KIRODXF_STYLE";
constexpr char kArrowFile[] = "KIRODXF_ARROW";

constexpr char kCannotWrite[] = "No such a file or directory : %s";
constexpr TableWording kLayerWording = {"レイヤ・色割当", kCannotWrite};
constexpr TableWording kLineWording = {"線種・線幅割当", kCannotWrite};
constexpr TableWording kStyleWording = {"文字スタイル割当", kCannotWrite};
constexpr TableWording kArrowWording = {"矢印割当", kCannotWrite};

class StandardOutput final : public ListingSink {
  public:
    void Write(std::string_view text) override { std::fwrite(text.data(), 1, text.size(), stdout); }
};

}  // namespace

OwnedUtility::OwnedUtility(HWND owner) : owned_(KrCreateUtility()) {
    if (!owned_) throw std::bad_alloc();
    owned_->SetParentWindow(owner);
}

void KrDxfOutTbl_IO::ReadLayerTable(DxfOutLayerTable* table) {
    ReadTable(*table, PathOf(SlotText(table->fileName)), table->noFileRead == 0, kLayerWording, ParseDxfOutLayerTable);
}

void KrDxfOutTbl_IO::ReadLineTable(DxfOutLineTable* table) {
    StandardOutput output;
    ReadTable(*table, PathOf(kLineFile), true, kLineWording,
              [&](std::string_view bytes, DxfOutLineTable& copy, TableListing& listing) {
                  ParseDxfOutLineTable(bytes, copy, listing, output);
              });
}

void KrDxfOutTbl_IO::ReadStyleTable(const TARNAINFO* info, DxfOutStyleTable* table) {
    const DxfOutParamBlock* params = info->output.exportParams;
    ReadTable(*table, PathOf(kStyleFile), true, kStyleWording,
              [&](std::string_view bytes, DxfOutStyleTable& copy, TableListing& listing) {
                  ParseDxfOutStyleTable(bytes, params ? params->outputVersion : 0, copy, listing);
              });
}

void KrDxfOutTbl_IO::ReadArrowTable(DxfOutArrowTable* table) {
    ReadTable(
        *table, PathOf(kArrowFile), true, kArrowWording,
        [](std::string_view bytes, DxfOutArrowTable& copy, TableListing& listing) {
            ParseDxfOutArrowTable(bytes, dxfotCheckArrow, copy, listing);
        },
        Missing::kChangesNothing);
}

bool KrDxfOutTbl_IO::WriteLayerTable(const DxfOutLayerTable* table) {
    const std::string path = PathOf(SlotText(table->fileName));
    return WriteTable(path, FormatDxfOutLayerTable(*table, {path, Now()}), kLayerWording);
}

bool KrDxfOutTbl_IO::WriteLineTable(const DxfOutLineTable* table) {
    const std::string path = PathOf(kLineFile);
    return WriteTable(path, FormatDxfOutLineTable(*table, {path, Now()}), kLineWording);
}

bool KrDxfOutTbl_IO::WriteStyleTable(const DxfOutStyleTable* table) {
    const std::string path = PathOf(kStyleFile);
    return WriteTable(path, FormatDxfOutStyleTable(*table, {path, Now()}), kStyleWording);
}

bool KrDxfOutTbl_IO::WriteArrowTable(const DxfOutArrowTable* table) {
    const std::string path = PathOf(kArrowFile);
    return WriteTable(path, FormatDxfOutArrowTable(*table, {path, Now()}), kArrowWording);
}
