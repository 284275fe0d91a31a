// Standard output and standard error of the command-line tools: UTF-8, bytes as they are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

// The command line's words behind the program's name. UTF-8 on Windows; elsewhere the bytes that were given.
std::vector<std::string> Arguments(int count, char** words);

// Sets the streams up and gives the console back as it was.
class Console {
  public:
    explicit Console(const char* program);  // the program's name
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console();

  private:
    unsigned int codePage_ = 0;
};

void Print(std::string_view text);
void PrintError(std::string_view text);  // the program's name, ": ", the text made printable, and a line end

// False when not everything that was printed arrived.
bool FlushOutput();

}  // namespace cli
