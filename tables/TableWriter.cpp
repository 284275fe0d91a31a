#include "tables/TableWriter.h"

#include "text/SlotText.h"

std::string MakeDateText(std::time_t time) {
    const std::tm* local = std::localtime(&time);
    char text[32] = "";
    if (local) std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", local);
    return text;
}

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
