// Reads and writes the four import conversion tables. A read lists every line in the error list and tells the user in
// one box when lines were bad; the table then holds its defaults and every good record. A file that is missing is no
// error: the defaults stand.
#pragma once

#include <string>

#include "dxfin_tables/DxfInArrowTable.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/DxfInStyleTable.h"
#include "tablehub/TableIo.h"

class KrDxfInTbl_IO final : public TableIo {
  public:
    // owner: of the boxes. Both must outlive this.
    KrDxfInTbl_IO(KrUtility& utility, HWND owner) : TableIo(utility, owner) {}

    // The file is the one named in fileName; with noFileRead it is not opened.
    void ReadLayerTable(DxfInLayerTable& table);
    void ReadLineTable(DxfInLineTable& table);
    void ReadStyleTable(DxfInStyleTable& table);
    void ReadArrowTable(DxfInArrowTable& table);

    // False when the file was not written, and is as it was: it cannot be, and the user has been told; or another
    // program changed it since this object read it, and the user wants to keep that.
    bool WriteLayerTable(const DxfInLayerTable& table);
    bool WriteLineTable(DxfInLineTable& table);  // raises the weights of line widths below 1 to 1, in the table too
    bool WriteStyleTable(const DxfInStyleTable& table);
    bool WriteArrowTable(const DxfInArrowTable& table);

    // Whether the text has only the digits 0 to 9, or nothing at all. Otherwise the user is told of the first character
    // that is none.
    bool IsAllDigits(const std::string& text) const;
};
