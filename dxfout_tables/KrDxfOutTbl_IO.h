// Reads and writes the four export conversion tables. A read lists every line in the error list and tells the user in
// one box when lines were bad; the table then holds its defaults and every good record. A file that is missing is no
// error: the defaults stand.
#pragma once

#include <string>

#include "dxfout_tables/DxfOutArrowTable.h"
#include "dxfout_tables/DxfOutLayerTable.h"
#include "dxfout_tables/DxfOutLineTable.h"
#include "dxfout_tables/DxfOutStyleTable.h"
#include "entry/host/TARNAINFO.h"
#include "tablehub/TableIo.h"

// The utility object that an IO object brings along.
class OwnedUtility {
  protected:
    explicit OwnedUtility(HWND owner);
    KrUtilityPtr owned_;
};

class KrDxfOutTbl_IO final : private OwnedUtility, public TableIo {
  public:
    explicit KrDxfOutTbl_IO(HWND owner) : OwnedUtility(owner), TableIo(*owned_, owner) {}  // owner: of the boxes

    // The file is the one named in fileName; with noFileRead it is not opened.
    void ReadLayerTable(DxfOutLayerTable* table);
    void ReadLineTable(DxfOutLineTable* table);
    // The defaults go by the output version in the record's export parameters; without record or parameters by GX-3's.
    void ReadStyleTable(const TARNAINFO* info, DxfOutStyleTable* table);
    void ReadArrowTable(DxfOutArrowTable* table);  // without a file the table stays as it is

    // False when the file was not written, and is as it was: it cannot be, and the user has been told; or another
    // program changed it since this object read it, and the user wants to keep that.
    bool WriteLayerTable(const DxfOutLayerTable* table);
    bool WriteLineTable(const DxfOutLineTable* table);
    bool WriteStyleTable(const DxfOutStyleTable* table);
    bool WriteArrowTable(const DxfOutArrowTable* table);
};
