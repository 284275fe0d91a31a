// table_writer FILE [once]: replaces the file by 300,000 times "a" and by 500,000 times "b" in turn, until it is
// killed. once: by "b" alone; exit status 3 when that is refused.
#include <string>

#include "tables/FileReplace.h"

int wmain(int count, wchar_t** arguments) {
    const std::string tables[] = {std::string(300000, 'a'), std::string(500000, 'b')};
    if (count == 3) return ReplaceWholeFile(arguments[1], tables[1]) ? 0 : 3;
    for (std::size_t i = 0; count == 2; ++i) ReplaceWholeFile(arguments[1], tables[i % 2]);
    return 2;
}
