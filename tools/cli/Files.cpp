#include "Files.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace cli {

namespace {

bool Matches(std::string_view name, std::string_view pattern) {
    // Back to the last star when something behind it does not fit: no more steps than the two lengths multiplied.
    std::size_t at = 0, star = pattern.npos, resume = 0;
    for (std::size_t i = 0; i < name.size();) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            resume = i;
        } else if (at < pattern.size() && (pattern[at] == '?' || pattern[at] == name[i])) {
            ++at, ++i;
        } else if (star != pattern.npos) {
            at = star + 1;
            i = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == pattern.npos;
}

}  // namespace

fs::path PathOf(const std::string& name) {
#ifdef _WIN32
    return std::u8string(name.begin(), name.end());
#else
    return name;
#endif
}

std::string NameOf(const fs::path& path) {
#ifdef _WIN32
    const auto name = path.u8string();
    return std::string(name.begin(), name.end());
#else
    return path.native();
#endif
}

std::string FullName(const std::string& name) {
    std::error_code error;
    const fs::path full = fs::absolute(PathOf(name), error).lexically_normal();
    return error ? name : NameOf(full);
}

std::string FileKey(std::string name) {
    for (char& c : name)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return name;
}

std::vector<std::string> Expanded(const std::string& name) {
    std::error_code error;
    const fs::path path = PathOf(name);
    const std::string pattern = FileKey(NameOf(path.filename()));
    if (pattern.find_first_of("*?") == pattern.npos || fs::exists(path, error)) return {name};
    std::vector<std::string> names;
    const fs::path folder = path.parent_path();
    for (fs::directory_iterator file(folder.empty() ? "." : folder, error), end; !error && file != end;
         file.increment(error)) {
        const fs::path its = file->path().filename();
        std::error_code ignored;
        if (Matches(FileKey(NameOf(its)), pattern) && file->is_regular_file(ignored))
            names.push_back(NameOf(folder / its));
    }
    if (names.empty()) throw Failure(name + ": 合うファイルがありません");
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> Expanded(const std::vector<std::string>& names) {
    std::vector<std::string> all;
    for (const std::string& name : names)
        for (std::string& one : Expanded(name)) all.push_back(std::move(one));
    return all;
}

}  // namespace cli
