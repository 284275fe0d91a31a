// What reading and writing a conversion table needs of the program: paths, the error list and the message boxes. Paths
// and texts are Shift-JIS.
#pragma once

#include <windows.h>

#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>

#include "entry/host/KrUtility.h"
#include "tables/TableListing.h"

inline constexpr char kTableKey[] = "#DXF:TABLE#";
inline constexpr std::size_t kLongestTablePath = 260;  // what the tables' own fields hold, the NUL included

// A file in the folder of a key, given by its name or its full path: its full path, or "" when there can be none.
std::string TablePath(KrUtility& utility, const char* key, std::string_view name);

// What the boxes of a table say.
struct TableWording {
    const char* caption;
    const char* cannotWrite;  // with %s for the path
};

class TableIo : private ListingSink {
  public:
    TableIo(const TableIo&) = delete;
    TableIo& operator=(const TableIo&) = delete;

  protected:
    TableIo(KrUtility& utility, HWND owner) : utility_(utility), owner_(owner) {}
    ~TableIo() = default;

    // Reads a file over a copy of the table with parse(bytes, copy, listing) while the error list is open; a file that
    // cannot be opened has no bytes and is no error. The table changes in one step, when everything is read; then the
    // user is told of errors. read false: the file is not opened.
    enum class Missing { kGivesDefaults, kChangesNothing };
    template <class Table, class Parse>
    void ReadTable(Table& table, const std::string& path, bool read, const TableWording& wording, Parse parse,
                   Missing missing = Missing::kGivesDefaults) {
        const auto copy = std::make_unique<Table>(table);
        OpenErrorList();
        TableListing listing(*this);
        listing.FileName(path);
        std::string bytes;
        const bool opened = read && ReadBytes(path, bytes);
        parse(std::string_view(bytes), *copy, listing);
        CloseErrorList();
        if (opened || missing == Missing::kGivesDefaults) table = *copy;
        if (listing.HasErrors()) TellOfErrors(path, wording);
    }
    // Replaces the file in one step; tells the user when that cannot be done. text: lines end with "\n".
    bool WriteTable(const std::string& path, std::string_view text, const TableWording& wording);

    std::string PathOf(std::string_view name) const { return TablePath(utility_, kTableKey, name); }
    // "%Y/%m/%d %H:%M:%S", local time
    static std::string MakeDateText(std::time_t time);
    static std::string Now() { return MakeDateText(std::time(nullptr)); }

    // The error list: "DXF_Interface.lis" in the host's home folder, which holds the listing of the last read. Without
    // it (a folder that cannot be written) a table is read all the same.
    void OpenErrorList();
    void PrintErrorList(std::string_view text);
    void CloseErrorList() { list_.reset(); }

    HWND Owner() const { return owner_; }

  private:
    struct FileCloser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void Write(std::string_view text) override { PrintErrorList(text); }
    static bool ReadBytes(const std::string& path, std::string& bytes);
    void TellOfErrors(const std::string& path, const TableWording& wording) const;

    KrUtility& utility_;
    HWND owner_;
    std::unique_ptr<std::FILE, FileCloser> list_;
};
