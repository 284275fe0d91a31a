#include "tables/TableWriter.h"

#include "text/SlotText.h"

TableWriter::TableWriter(const TableHeader& header, std::size_t piece) {
    constexpr std::size_t kAround = std::string_view("/ File name : \n").size();
    Add("/ File name : %s\n", CutAtCharacter(header.path, piece - kAround));
    Add("/      Date : %s\n", header.date);
    Add("/\n");
}

std::string TableWriter::Finish() && {
    Add("/\n/ Eof\n");
    return std::move(text_);
}
