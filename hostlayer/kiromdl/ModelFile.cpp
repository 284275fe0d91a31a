#include "ModelFile.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;

constexpr std::size_t kMaxFileSize = 1 << 20;  // far beyond what 256 pictures need

[[noreturn]] void Fail(const std::string& where, const std::string& what) { throw ModelFileError(where + ": " + what); }

// ---- Values ----

bool Boolean(const json& value, const std::string& where) {
    if (!value.is_boolean()) Fail(where, "true or false is expected");
    return value.get<bool>();
}

// What is too large for a double is no JSON, so that every number here is finite.
double Scale(const json& value, const std::string& where) {
    const double scale = value.is_number() ? value.get<double>() : 0.0;
    if (scale <= 0.0) Fail(where, "a number above 0 is expected");
    return scale;
}

int Whole(const json& value, const std::string& where, int max) {
    // What is beyond the signed range comes out negative.
    const std::int64_t number = value.is_number_integer() ? value.get<std::int64_t>() : 0;
    if (number < 1 || number > max) Fail(where, "a whole number from 1 to " + std::to_string(max) + " is expected");
    return static_cast<int>(number);
}

// ---- Objects ----

const json& Object(const json& value, const std::string& where) {
    if (!value.is_object()) Fail(where, "an object {...} is expected");
    return value;
}

// A misspelt member would otherwise pass for a missing one. The name may hold anything, so only its form is told.
[[noreturn]] void FailUnknown(const std::string& where, const std::string& name) {
    const bool printable =
        name.size() <= 40 && std::all_of(name.begin(), name.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
    Fail(where, printable ? "unknown member \"" + name + "\"" : std::string("unknown member"));
}

void ReadPicture(const json& value, const std::string& where, Model& model) {
    int number = 0;
    double scale = 1.0;
    for (const auto& [name, member] : Object(value, where).items()) {
        if (name == "number") {
            number = Whole(member, where + ".number", kPictures);
        } else if (name == "scale") {
            scale = Scale(member, where + ".scale");
        } else {
            FailUnknown(where, name);
        }
    }
    if (!number) Fail(where, "\"number\" is missing");
    std::optional<double>& slot = model.pictureScales[static_cast<std::size_t>(number - 1)];
    if (slot) Fail(where, "picture " + std::to_string(number) + " is given twice");
    slot = scale;
}

void ReadPictures(const json& value, Model& model) {
    if (!value.is_array()) Fail("pictures", "a list [...] is expected");
    for (std::size_t i = 0; i < value.size(); ++i) ReadPicture(value[i], "pictures[" + std::to_string(i) + "]", model);
}

Model ReadModel(const json& value) {
    constexpr int kMaxCount = std::numeric_limits<std::int32_t>::max();
    Model model;
    for (const auto& [name, member] : Object(value, "model").items()) {
        if (name == "modified") {
            model.modified = Boolean(member, name);
        } else if (name == "baseScale") {
            model.baseScale = Scale(member, name);
        } else if (name == "maxItemCount") {
            model.maxItemCount = Whole(member, name, kMaxCount);
        } else if (name == "maxSplitCount") {
            model.maxSplitCount = Whole(member, name, kMaxCount);
        } else if (name == "pictures") {
            ReadPictures(member, model);
        } else {
            FailUnknown("model", name);
        }
    }
    return model;
}

std::string Position(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, byte > 0 ? byte - 1 : 0);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t start = before.rfind('\n') + 1;  // npos + 1 is 0: the first line
    return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - start + 1);
}

struct HandleCloser {
    void operator()(void* handle) const { CloseHandle(handle); }
};
using FileHandle = std::unique_ptr<void, HandleCloser>;

}  // namespace

Model ReadModelText(const std::string& text) {
    json value;
    try {
        value = json::parse(text);
    } catch (const json::parse_error& error) {
        Fail(Position(text, error.byte), "this is not JSON");
    } catch (const json::exception&) {
        Fail("model", "a number is too large");
    }
    return ReadModel(value);
}

Model ReadModelFile(const wchar_t* file) {
    const HANDLE opened =
        CreateFileW(file, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) Fail("file", "cannot be opened, error " + std::to_string(GetLastError()));
    const FileHandle handle(opened);
    std::string text(kMaxFileSize + 1, '\0');
    DWORD read = 0;
    if (!ReadFile(opened, text.data(), static_cast<DWORD>(text.size()), &read, nullptr))
        Fail("file", "cannot be read, error " + std::to_string(GetLastError()));
    if (read > kMaxFileSize) Fail("file", "is larger than 1 MB");
    text.resize(read);
    return ReadModelText(text);
}
