#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <utility>

#include "text/TextFormat.h"

struct TableHeader {
    std::string_view path;  // full path of the file, code page 932
    std::string_view date;  // "%Y/%m/%d %H:%M:%S"
};

std::string MakeDateText(std::time_t time);  // local time, as the header has it

// The text of a table file with its header and its end. Lines end with "\n": the file is written in text mode.
// piece: how much of a line the table's reader takes at once. A path is cut to that, for its rest would be read as a
// line of its own, and a bad one.
class TableWriter {
  public:
    TableWriter(const TableHeader& header, std::size_t piece);
    template <class... Values>
    void Add(std::string_view format, const Values&... values) {
        AppendFormat(text_, format, {FormatArgument(values)...});
    }
    std::string Finish() &&;

  private:
    std::string text_;
};
