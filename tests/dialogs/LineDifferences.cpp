#include <algorithm>
#include <sstream>
#include <vector>

#include "tests/dialogs/LineDifferences.h"

namespace {

constexpr std::size_t kContext = 2;

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// By the longest common subsequence: " ", "-" or "+" and the line.
std::vector<std::string> Merged(const std::vector<std::string>& a, const std::vector<std::string>& b) {
    std::vector<std::vector<int>> common(a.size() + 1, std::vector<int>(b.size() + 1));
    for (std::size_t i = a.size(); i-- > 0;)
        for (std::size_t j = b.size(); j-- > 0;)
            common[i][j] = a[i] == b[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    std::vector<std::string> merged;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() || j < b.size()) {
        if (i < a.size() && j < b.size() && a[i] == b[j]) {
            merged.push_back(" " + a[i++]);
            ++j;
        } else if (j == b.size() || (i < a.size() && common[i + 1][j] >= common[i][j + 1])) {
            merged.push_back("-" + a[i++]);
        } else {
            merged.push_back("+" + b[j++]);
        }
    }
    return merged;
}

}  // namespace

std::string LineDifferences(const std::string& expected, const std::string& actual) {
    const auto merged = Merged(LinesOf(expected), LinesOf(actual));
    std::string text;
    std::string chapter;
    std::size_t shown = 0;  // lines that are done with
    for (std::size_t i = 0; i < merged.size(); ++i) {
        if (merged[i].compare(1, 4, "====") == 0) chapter = merged[i].substr(1);
        if (merged[i][0] == ' ') continue;
        const std::size_t from = std::max(shown, i - std::min(i, kContext));
        if (from > shown || shown == 0) text += "@@ " + chapter + "\n";
        std::size_t to = i + 1;
        for (std::size_t k = i + 1; k < merged.size() && k < to + kContext + 1; ++k)
            if (merged[k][0] != ' ') to = k + 1;
        to = std::min(merged.size(), to + kContext);
        for (std::size_t k = from; k < to; ++k) text += merged[k] + "\n";
        shown = to;
        i = to - 1;
    }
    return text;
}
