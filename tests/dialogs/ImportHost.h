// What all tests of an import share: its record and the tables' files.
#pragma once

#include "tests/dialogs/CommandHost.h"

inline constexpr wchar_t kTables[] = L"DXF\\TABLE\\";
inline constexpr wchar_t kLayerFile[] = L"DXFKIRO_LAYER";
inline constexpr wchar_t kSaveQuestion[] = L"変更内容を保存しますか？";

class ImportHost : public CommandHost {
  protected:
    std::filesystem::path TableFile(const std::wstring& name) const { return home / (kTables + name); }
    std::filesystem::path WriteTable(const std::wstring& name, const std::string& bytes) const {
        return Write(kTables + name, bytes);
    }
    std::string Bytes(const std::wstring& name) const { return BytesOf(TableFile(name)); }

    ImportRecord record;
};
