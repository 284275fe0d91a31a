#include "CommandLine.h"

#include <algorithm>
#include <exception>
#include <numeric>
#include <sstream>

#include "Console.h"
#include "Status.h"
#include "Text.h"

namespace cli {

namespace {

constexpr std::size_t kTextColumn = 24;

std::vector<std::string> Split(const std::string& names) {
    std::vector<std::string> parts;
    std::istringstream all(names);
    for (std::string part; std::getline(all, part, ',');) parts.push_back(part);
    return parts;
}

// The row of a list in the help. What does not fit before the text has a line of its own.
std::string Row(const std::string& head, const std::string& text) {
    const std::size_t columns = ColumnsOf(head) + 2;
    const bool fits = columns < kTextColumn;
    return "  " + head + (fits ? std::string(kTextColumn - columns, ' ') : "\n" + std::string(kTextColumn, ' ')) +
           text + "\n";
}

std::size_t Distance(const std::string& from, const std::string& to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t changed = corner + (from[i] != to[j]);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, corner + 1});
        }
    }
    return row.back();
}

std::string Hint(const std::string& word, const std::vector<std::string>& words) {
    const std::string nearest = Nearest(word, words);
    return nearest.empty() ? "" : "。" + nearest + " ではありませんか";
}

// What is wrong with the words that were given.
struct Wrong {
    std::string text;
};

class Reader {
  public:
    Reader(const Program& program, const std::vector<std::string>& words) : program_(program), words_(words) {}

    const Command* command = nullptr;
    bool help = false, version = false;

    void Read() {
        if (program_.commands.size() == 1) command = &program_.commands.front();
        for (at_ = 0; at_ < words_.size() && !help && !version; ++at_) {
            const std::string& word = words_[at_];
            if (onlyOperands_ || word == "-" || !word.starts_with('-'))
                TakeWord(word);
            else if (word == "--")
                onlyOperands_ = true;
            else
                TakeOption(word);
        }
        if (help || version) return;
        if (!command) throw Wrong{"コマンドがありません"};
        if (taken_ < command->operands.least) throw Wrong{"引数が足りません: " + command->operands.names};
    }

  private:
    void TakeWord(const std::string& word) {
        if (!command) {
            std::vector<std::string> names;
            for (const Command& candidate : program_.commands) {
                if (candidate.name == word) command = &candidate;
                names.push_back(candidate.name);
            }
            if (!command) throw Wrong{word + " というコマンドはありません" + Hint(word, names)};
            return;
        }
        if (++taken_ > command->operands.most) throw Wrong{"余分な引数です: " + word};
        command->operands.words->push_back(word);
    }

    void TakeOption(const std::string& word) {
        const std::size_t equals = word.starts_with("--") ? word.find('=') : word.npos;
        const std::string name = word.substr(0, equals);
        help = name == "-h" || name == "--help";
        version = name == "--version";
        if (help || version) return;
        const Option* option = nullptr;
        std::vector<std::string> names = {"--help"};
        for (std::size_t i = 0; command && i < command->options.size(); ++i) {
            for (const std::string& its : Split(command->options[i].names)) {
                if (its == name) option = &command->options[i];
                names.push_back(its);
            }
        }
        if (!option) throw Wrong{name + " というオプションはありません" + Hint(name, names)};
        std::string value;
        if (equals != word.npos) {
            if (option->value.empty()) throw Wrong{name + " に値は付けられません"};
            value = word.substr(equals + 1);
        } else if (!option->value.empty()) {
            if (++at_ == words_.size()) throw Wrong{name + " には値 " + option->value + " が要ります"};
            value = words_[at_];
        }
        const std::string wrong = option->take(value);
        if (!wrong.empty()) throw Wrong{name + ": " + wrong};
    }

    const Program& program_;
    const std::vector<std::string>& words_;
    std::size_t at_ = 0, taken_ = 0;
    bool onlyOperands_ = false;
};

std::string HelpOf(const Program& program, const Command* command) {
    const bool several = program.commands.size() > 1;
    const std::string name = program.name + (command && several ? " " + command->name : "");
    std::string text = (command ? command->text : program.text) + "\n使い方: " + name;
    text += command ? " [オプション] " + command->operands.names + "\n" : " コマンド [オプション] [引数]...\n";
    if (command) text += "\n引数:\n" + Row(command->operands.names, command->operands.text);
    text += "\nオプション:\n" + Row("-h,--help", "この説明を表示して終わります");
    if (!command || !several) text += Row("--version", "版を表示して終わります");
    for (std::size_t i = 0; command && i < command->options.size(); ++i) {
        const Option& option = command->options[i];
        text += Row(option.names + (option.value.empty() ? "" : " " + option.value), option.text);
    }
    if (!command) {
        text += "\nコマンド:\n";
        for (const Command& one : program.commands) text += Row(one.name, one.text);
    }
    const std::string& footer = command ? command->footer : program.footer;
    return text + (footer.empty() ? "" : "\n" + footer + "\n");
}

}  // namespace

Option Flag(std::string names, std::string text, bool& flag) {
    return {std::move(names), "", std::move(text), [&flag](const std::string&) {
                flag = true;
                return std::string();
            }};
}

Option Word(std::string names, std::string value, std::string text, std::string& word) {
    return {std::move(names), std::move(value), std::move(text), [&word](const std::string& given) {
                word = given;
                return std::string();
            }};
}

std::string Nearest(const std::string& word, const std::vector<std::string>& words) {
    std::string nearest;
    std::size_t best = std::max<std::size_t>(word.size() / 2, 1) + 1;
    for (const std::string& candidate : words) {
        // The start of a long word is like it too.
        const std::size_t distance = word.size() > 1 && candidate.starts_with(word) ? 1 : Distance(word, candidate);
        if (distance < best) best = distance, nearest = candidate;
    }
    return nearest;
}

int Run(const Program& program, const std::vector<std::string>& words) {
    Reader reader(program, words);
    try {
        reader.Read();
    } catch (const Wrong& wrong) {
        const bool several = program.commands.size() > 1;
        PrintError(wrong.text);
        PrintError("使い方は " + program.name + (several && reader.command ? " " + reader.command->name : "") +
                   " --help で出ます");
        return kTrouble;
    }
    if (reader.version)
        Print(program.name + " " + program.version + "\n");
    else if (reader.help)
        Print(HelpOf(program, reader.command));
    return reader.version || reader.help ? kFine : reader.command->run();
}

int Main(int count, char** words, const char* name, const std::function<int(const std::vector<std::string>&)>& run) {
    const Console console(name);
    try {
        const int status = run(Arguments(count, words));
        if (FlushOutput()) return status;
        PrintError("標準出力に書けません");
    } catch (const std::bad_alloc&) {
        PrintError("メモリが足りません");
    } catch (const Failure& failure) {
        PrintError(failure.what());
    } catch (const std::exception&) {
        PrintError("内部エラーです");
    }
    return kTrouble;
}

}  // namespace cli
