// Words and options of a program, stated as data, with their help and what is said about wrong ones. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace cli {

struct Option {
    std::string names;  // "-o,--output"
    std::string value;  // what its value is called in the help; "": it has none
    std::string text;
    std::function<std::string(const std::string& value)> take;  // what is wrong with the value, or ""
};
Option Flag(std::string names, std::string text, bool& flag);
Option Word(std::string names, std::string value, std::string text, std::string& word);

struct Operands {
    std::string names;  // as the usage has them: "FILE..."
    std::string text;
    std::vector<std::string>* words;
    std::size_t least, most;
};
constexpr std::size_t kAny = static_cast<std::size_t>(-1);

struct Command {
    std::string name;  // "" of a program's only one
    std::string text;
    std::string footer;
    Operands operands;
    std::vector<Option> options;
    std::function<int()> run;  // the exit status
};

struct Program {
    std::string name, version;
    std::string text;    // when there are several commands
    std::string footer;  // the same
    std::vector<Command> commands;
};

// Reads the words behind the program's name and runs the command. The exit status; kTrouble after wrong words, which
// are explained on the standard error.
int Run(const Program& program, const std::vector<std::string>& words);

// The whole of a program's main: its console, Run, and what is thrown.
int Main(int count, char** words, const char* name, const std::function<int(const std::vector<std::string>&)>& run);

// The one of the words that a mistyped one is most like; "" when none is.
std::string Nearest(const std::string& word, const std::vector<std::string>& words);

}  // namespace cli
