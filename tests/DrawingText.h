// Drawings as text, written down in short.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

// "0 LINE/8 A" as the pairs of a text file.
inline std::string Pairs(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::string_view pair = text.substr(0, text.find('/'));
        const std::size_t blank = pair.find(' ');
        out.append(pair.substr(0, blank)).append("\n").append(pair.substr(blank + 1)).append("\n");
        text.remove_prefix(std::min(pair.size() + 1, text.size()));
    }
    return out;
}

inline std::string Section(const std::string& name, const std::string& pairs) {
    return Pairs("0 SECTION/2 " + name) + Pairs(pairs) + Pairs("0 ENDSEC");
}

inline std::string Drawing(const std::string& tables, const std::string& items, const std::string& blocks = "",
                           const std::string& version = "AC1015") {
    return Section("HEADER", "9 $ACADVER/1 " + version) + Section("TABLES", tables) + Section("BLOCKS", blocks) +
           Section("ENTITIES", items) + Pairs("0 EOF");
}
