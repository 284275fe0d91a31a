#include "tables/TableWriter.h"

TableWriter::TableWriter(const TableHeader& header) {
    Add("/ File name : %s\n", header.path);
    Add("/      Date : %s\n", header.date);
    Add("/\n");
}

std::string TableWriter::Finish() && {
    Add("/\n/ Eof\n");
    return std::move(text_);
}
