// What reading and writing a conversion table needs of the program: paths, the error list and the message boxes. Paths
// and texts are Shift-JIS.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "entry/host/KrUtility.h"
#include "tables/ErrorList.h"
#include "tables/TableWriter.h"
#include "text/SlotText.h"

inline constexpr char kTableKey[] = "#DXF:TABLE#";
inline constexpr std::size_t kLongestTablePath = 260;  // what the tables' own fields hold, the NUL included

// A file in the folder of a key, given by its name or its full path: its full path, or "" when there can be none.
std::string TablePath(KrUtility& utility, const char* key, std::string_view name);

// What the boxes of a table say.
struct TableWording {
    const char* caption;
    const char* cannotWrite;  // with %s for the path
};

enum class MissingFile { kGivesDefaults, kChangesNothing };

// What there is to say about a table file. parse(bytes, table, listing, more that only this table needs...) and
// format(table, header) are the portable functions of the table.
template <class Parse, class Format>
struct TableFile {
    const char* name;  // not used by a table that has a field for it
    TableWording wording;
    Parse* parse;
    Format* format;
    MissingFile missing = MissingFile::kGivesDefaults;
};

// An object knows what the files held that it read or wrote: before one is replaced that is another by now, the user is
// asked. So a dialog reads and writes its table with the same object.
class TableIo {
  public:
    TableIo(const TableIo&) = delete;
    TableIo& operator=(const TableIo&) = delete;

    void SetOwner(HWND owner) { owner_ = owner; }  // of the boxes from now on

  protected:
    TableIo(KrUtility& utility, HWND owner) : utility_(utility), owner_(owner) {}
    ~TableIo() = default;

    // The table changes in one step, when everything is read; then the user is told of errors. A file that cannot be
    // opened is no error. A table that wants its file not to be read has its defaults.
    template <class File, class Table, class... More>
    void Read(const File& file, Table& table, More&&... more) {
        const auto copy = std::make_unique<Table>(table);
        const std::string path = PathOf(file, table);
        OpenErrorList();
        TableListing listing(list_);
        listing.FileName(path);
        const std::string* const bytes = Load(path);
        const bool reads = bytes && !LeavesUnread(table);
        file.parse(reads ? std::string_view(*bytes) : "", *copy, listing, more...);
        list_.CloseErrorList();
        if (reads || file.missing == MissingFile::kGivesDefaults) table = *copy;
        if (listing.HasErrors()) TellOfErrors(path, file.wording);
    }
    // Replaces the file in one step. False when the user does not want that, or has been told that it cannot be done.
    template <class File, class Table>
    bool Write(const File& file, Table& table) {
        const std::string path = PathOf(file, table);
        const std::string date = MakeDateText(std::time(nullptr));
        return WriteText(path, file.format(table, {path, date}), file.wording);
    }

    HWND Owner() const { return owner_; }

  private:
    template <class File, class Table>
    std::string PathOf(const File& file, const Table& table) const {
        if constexpr (requires { table.fileName; })
            return TablePath(utility_, kTableKey, SlotText(table.fileName));
        else
            return TablePath(utility_, kTableKey, file.name);
    }
    template <class Table>
    static bool LeavesUnread(const Table& table) {
        if constexpr (requires { table.noFileRead; })
            return table.noFileRead != 0;
        else
            return false;
    }

    // The error list: "DXF_Interface.lis" in the host's home folder, which holds the listing of the last read. Without
    // it (a folder that cannot be written) a table is read all the same.
    void OpenErrorList();
    const std::string* Load(const std::string& path);  // the file's bytes, now known; null when it cannot be opened
    void TellOfErrors(const std::string& path, const TableWording& wording) const;
    bool WriteText(const std::string& path, std::string_view text, const TableWording& wording);
    bool MayReplace(const std::string& path, const TableWording& wording) const;

    KrUtility& utility_;
    HWND owner_;
    ErrorList list_;
    std::map<std::string, std::optional<std::string>> known_;  // paths and what is there; nothing: no file
};
