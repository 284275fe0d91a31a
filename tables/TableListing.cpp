#include "tables/TableListing.h"

void TableListing::FileName(std::string_view path) {
    text_ = "\n";
    AppendFormat(text_, "File Name : %s\n\n", {path});
    sink_.Write(text_);
}

void TableListing::Line(std::string_view line, std::size_t number) {
    sink_.OnLine(line, number);
    text_ = "    ";
    text_ += line;
    sink_.Write(text_);
}
