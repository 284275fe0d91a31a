#include "dxfout_tables/KrDxfOutTbl_IO.h"

#include <cstdio>
#include <memory>
#include <new>

#include "entry/host/ParamBlocks.h"
#include "entry/host/kirodxf.h"
#include "tables/SlotText.h"

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

// Each caller's table changes in one step, when everything is read.

void KrDxfOutTbl_IO::ReadLayerTable(DxfOutLayerTable* table) {
    const auto copy = std::make_unique<DxfOutLayerTable>(*table);
    ReadTable(PathOf(SlotText(copy->fileName)), copy->noFileRead == 0, kLayerWording,
              [&](std::string_view bytes, TableListing& listing) { ParseDxfOutLayerTable(bytes, *copy, listing); });
    *table = *copy;
}

void KrDxfOutTbl_IO::ReadLineTable(DxfOutLineTable* table) {
    const auto copy = std::make_unique<DxfOutLineTable>(*table);
    StandardOutput output;
    ReadTable(PathOf(kLineFile), true, kLineWording, [&](std::string_view bytes, TableListing& listing) {
        ParseDxfOutLineTable(bytes, *copy, listing, output);
    });
    *table = *copy;
}

void KrDxfOutTbl_IO::ReadStyleTable(const TARNAINFO* info, DxfOutStyleTable* table) {
    const auto copy = std::make_unique<DxfOutStyleTable>(*table);
    const DxfOutParamBlock* params = info->output.exportParams;
    ReadTable(PathOf(kStyleFile), true, kStyleWording, [&](std::string_view bytes, TableListing& listing) {
        ParseDxfOutStyleTable(bytes, params ? params->outputVersion : 0, *copy, listing);
    });
    *table = *copy;
}

void KrDxfOutTbl_IO::ReadArrowTable(DxfOutArrowTable* table) {
    const auto copy = std::make_unique<DxfOutArrowTable>(*table);
    if (ReadTable(PathOf(kArrowFile), true, kArrowWording, [&](std::string_view bytes, TableListing& listing) {
            ParseDxfOutArrowTable(bytes, dxfotCheckArrow, *copy, listing);
        })) {
        *table = *copy;
    }
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
