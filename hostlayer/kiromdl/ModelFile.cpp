#include "ModelFile.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "ModelText.h"

namespace {

using nlohmann::json;

constexpr std::size_t kMaxFileSize = 1 << 20;  // far beyond what 256 pictures and layouts need

[[noreturn]] void Fail(const std::string& where, const std::string& what) { throw ModelFileError(where + ": " + what); }

// ---- Values ----

constexpr int kMaxWhole = std::numeric_limits<std::int32_t>::max();
constexpr int kMinWhole = std::numeric_limits<std::int32_t>::min();

struct Range {
    int min;
    int max;
};

void Read(const json& value, const std::string& where, bool& out) {
    if (!value.is_boolean()) Fail(where, "true or false is expected");
    out = value.get<bool>();
}

// What is too large for a double is no JSON, so that every number here is finite.
void Read(const json& value, const std::string& where, double& out) {
    if (!value.is_number()) Fail(where, "a number is expected");
    out = value.get<double>();
}

void ReadScale(const json& value, const std::string& where, double& out) {
    const double scale = value.is_number() ? value.get<double>() : 0.0;
    if (scale <= 0.0) Fail(where, "a number above 0 is expected");
    out = scale;
}

void Read(const json& value, const std::string& where, Range range, int& out) {
    const bool tooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > kMaxWhole;
    const std::int64_t number = value.is_number_integer() && !tooLarge ? value.get<std::int64_t>() : INT64_MIN;
    if (number < range.min || number > range.max)
        Fail(where,
             "a whole number from " + std::to_string(range.min) + " to " + std::to_string(range.max) + " is expected");
    out = static_cast<int>(number);
}

using Decode = std::optional<std::string> (*)(std::string_view utf8);

void Read(const json& value, const std::string& where, Decode decode, std::string& out) {
    if (!value.is_string()) Fail(where, "a text is expected");
    const auto& utf8 = value.get_ref<const std::string&>();
    if (utf8.find('\0') != std::string::npos) Fail(where, "the text has a NUL");
    const auto text = decode(utf8);
    if (!text) Fail(where, "code page 932 has not all of its characters");
    out = *text;
}

// ---- Objects and lists ----

// A misspelt member would otherwise pass for a missing one. The name may hold anything, so only its form is told.
[[noreturn]] void FailUnknown(const std::string& where, const std::string& name) {
    const bool printable =
        name.size() <= 40 && std::all_of(name.begin(), name.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
    Fail(where, printable ? "unknown member \"" + name + "\"" : std::string("unknown member"));
}

// read(name, member, where): false for a name that is not known.
template <class ReadMember>
void ForEachMember(const json& value, const std::string& where, ReadMember read) {
    if (!value.is_object()) Fail(where.empty() ? "model" : where, "an object {...} is expected");
    for (const auto& [name, member] : value.items())
        if (!read(std::string_view(name), member, where.empty() ? name : where + "." + name))
            FailUnknown(where.empty() ? "model" : where, name);
}

template <class ReadElement>
void ForEachElement(const json& value, const std::string& where, ReadElement read) {
    if (!value.is_array()) Fail(where, "a list [...] is expected");
    for (std::size_t i = 0; i < value.size(); ++i) read(value[i], where + "[" + std::to_string(i) + "]");
}

// What has a number of its own.
template <class Thing>
void Number(std::array<std::optional<Thing>, 256>& things, int number, Thing thing, const std::string& where,
            const char* what) {
    if (!number) Fail(where, "\"number\" is missing");
    auto& slot = things[static_cast<std::size_t>(number - 1)];
    if (slot) Fail(where, what + std::to_string(number) + " is given twice");
    slot = std::move(thing);
}

// ---- Names: a text, or its bytes in EUC or what is none ----

int HexDigit(char c) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return static_cast<int>(kDigits.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c));
}

std::string Bytes(const json& value, const std::string& where) {
    const std::string text = value.is_string() ? value.get<std::string>() : std::string("?");
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = HexDigit(text[i]);
        const int low = i + 1 < text.size() ? HexDigit(text[i + 1]) : -1;
        if (high < 0 || low < 0 || high + low == 0)
            Fail(where, "pairs of hexadecimal digits without 00 are expected, such as \"B0A1\"");
        bytes += static_cast<char>(16 * high + low);
    }
    return bytes;
}

void ReadName(const json& value, const std::string& where, std::size_t limit, std::string& out) {
    if (value.is_object() && !value.empty()) {
        ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
            if (name != "hex") return false;
            out = Bytes(member, at);
            return true;
        });
    } else {
        Read(value, where, EucFromUtf8, out);
    }
    if (out.size() > limit)
        Fail(where, std::to_string(out.size()) + " bytes in EUC, at most " + std::to_string(limit) + " are expected");
}

// ---- The model's parts ----

constexpr Range kItems = {0, kMaxWhole};
constexpr Range kErrorCodes = {kMinWhole, -1};

Fault ReadFault(const json& value, const std::string& where) {
    Fault fault;
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "item")
            Read(member, at, {1, kMaxWhole}, fault.item);
        else if (name == "text")
            Read(member, at, SjisFromUtf8, fault.text);
        else
            return false;
        return true;
    });
    if (!fault.item) Fail(where, "\"item\" is missing");
    return fault;
}

void ReadPicture(const json& value, const std::string& where, Model& model) {
    int number = 0;
    Picture picture;
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "number")
            Read(member, at, {1, kPictures}, number);
        else if (name == "scale")
            ReadScale(member, at, picture.scale);
        else if (name == "itemCount")
            Read(member, at, kItems, picture.itemCount);
        else if (name == "writerError")
            Read(member, at, kErrorCodes, picture.writerError);
        else if (name == "faults")
            ForEachElement(member, at, [&](const json& fault, const std::string& faultAt) {
                picture.faults.push_back(ReadFault(fault, faultAt));
            });
        else
            return false;
        return true;
    });
    for (const Fault& fault : picture.faults)
        if (fault.item > picture.itemCount)
            Fail(where + ".faults",
                 "item " + std::to_string(fault.item) + " of " + std::to_string(picture.itemCount) + " items");
    Number(model.pictures, number, std::move(picture), where, "picture ");
}

Frame ReadFrame(const json& value, const std::string& where) {
    constexpr std::size_t kNameLimit = 256;  // what HxDloFrame has room for
    Frame frame;
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "valid")
            Read(member, at, frame.valid);
        else if (name == "kind")
            Read(member, at, {kMinWhole, kMaxWhole}, frame.kind);
        else if (name == "name")
            ReadName(member, at, kNameLimit, frame.name);
        else if (name == "width")
            Read(member, at, frame.width);
        else if (name == "height")
            Read(member, at, frame.height);
        else
            return false;
        return true;
    });
    return frame;
}

void ReadLayout(const json& value, const std::string& where, Model& model) {
    constexpr Range kWindowPictures = {INT16_MIN, INT16_MAX};  // all that a window can name
    int number = 0;
    Layout layout;
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "number")
            Read(member, at, {1, kLayouts}, number);
        else if (name == "name")
            ReadName(member, at, kMaxFileSize, layout.name);
        else if (name == "windows")
            ForEachElement(member, at, [&](const json& window, const std::string& windowAt) {
                Read(window, windowAt, kWindowPictures, layout.windows.emplace_back());
            });
        else if (name == "frame")
            layout.frame = ReadFrame(member, at);
        else if (name == "writerError")
            Read(member, at, kErrorCodes, layout.writerError);
        else
            return false;
        return true;
    });
    Number(model.layouts, number, std::move(layout), where, "layout ");
}

void ReadMessage(const json& value, const std::string& where, Model& model) {
    int number = 0;
    std::string text;
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "number")
            Read(member, at, {1, kMaxWhole}, number);
        else if (name == "text")
            Read(member, at, SjisFromUtf8, text);
        else
            return false;
        return true;
    });
    if (!number) Fail(where, "\"number\" is missing");
    if (!model.messages.emplace(number, text).second)
        Fail(where, "message " + std::to_string(number) + " is given twice");
}

std::vector<double> ReadNumbers(const json& value, const std::string& where, std::size_t most) {
    std::vector<double> numbers;
    ForEachElement(value, where,
                   [&](const json& element, const std::string& at) { Read(element, at, numbers.emplace_back()); });
    if (numbers.size() > most) Fail(where, "at most " + std::to_string(most) + " numbers are expected");
    return numbers;
}

void ReadPattern(const json& value, const std::string& where, LineStyle& style,
                 std::array<bool, kLinePatterns>& given) {
    int number = 0;
    LinePattern pattern;
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "number")
            Read(member, at, {1, kLinePatterns}, number);
        else if (name == "name")
            ReadName(member, at, kMaxFileSize, pattern.name);
        else if (name == "pitches")
            pattern.pitches = ReadNumbers(member, at, kPitches);
        else
            return false;
        return true;
    });
    if (!number) Fail(where, "\"number\" is missing");
    const auto index = static_cast<std::size_t>(number) - 1;
    if (std::exchange(given[index], true)) Fail(where, "pattern " + std::to_string(number) + " is given twice");
    style.patterns[index] = std::move(pattern);
}

// null: the model has none.
std::optional<LineStyle> ReadLineStyle(const json& value, const std::string& where) {
    if (value.is_null()) return std::nullopt;
    LineStyle style;
    std::array<bool, kLinePatterns> given{};
    ForEachMember(value, where, [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "patterns")
            ForEachElement(member, at, [&](const json& pattern, const std::string& patternAt) {
                ReadPattern(pattern, patternAt, style, given);
            });
        else if (name == "widths")
            std::ranges::copy(ReadNumbers(member, at, kLineWidths), style.widths.begin());
        else if (name == "weightPitch")
            Read(member, at, style.weightPitch);
        else if (name == "weightEnabled")
            Read(member, at, style.weightEnabled);
        else if (name == "realWeight")
            Read(member, at, style.realWeight);
        else if (name == "scaledFont")
            Read(member, at, style.scaledFont);
        else
            return false;
        return true;
    });
    return style;
}

void ReadNames(const json& value, const std::string& where, NameList& names) {
    ForEachElement(value, where, [&](const json& element, const std::string& elementAt) {
        int number = 0;
        std::string text;
        ForEachMember(element, elementAt, [&](std::string_view name, const json& member, const std::string& at) {
            if (name == "number")
                Read(member, at, {1, kListNames}, number);
            else if (name == "name")
                ReadName(member, at, kMaxFileSize, text);
            else
                return false;
            return true;
        });
        if (!number) Fail(elementAt, "\"number\" is missing");
        if (!names.emplace(number, text).second) Fail(elementAt, "name " + std::to_string(number) + " is given twice");
    });
}

Model ReadModel(const json& value) {
    Model model;
    const auto readAll = [&model](const json& list, const std::string& where, auto read) {
        ForEachElement(list, where, [&](const json& element, const std::string& at) { read(element, at, model); });
    };
    ForEachMember(value, "", [&](std::string_view name, const json& member, const std::string& at) {
        if (name == "modified")
            Read(member, at, model.modified);
        else if (name == "baseScale")
            ReadScale(member, at, model.baseScale);
        else if (name == "maxItemCount")
            Read(member, at, {1, kMaxWhole}, model.maxItemCount);
        else if (name == "maxSplitCount")
            Read(member, at, {1, kMaxWhole}, model.maxSplitCount);
        else if (name == "currentPicture")
            Read(member, at, {0, 1023}, model.currentPicture);  // ten bits
        else if (name == "checkBeforeExport")
            Read(member, at, model.checkBeforeExport);
        else if (name == "pictures")
            readAll(member, at, ReadPicture);
        else if (name == "layouts")
            readAll(member, at, ReadLayout);
        else if (name == "lineStyle")
            model.lineStyle = ReadLineStyle(member, at);
        else if (name == "classNames")
            ReadNames(member, at, model.classNames);
        else if (name == "revisionNames")
            ReadNames(member, at, model.revisionNames);
        else if (name == "draftingScale")
            ReadScale(member, at, model.draftingScale);
        else if (name == "messages")
            readAll(member, at, ReadMessage);
        else
            return false;
        return true;
    });
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
    std::string text;
    for (DWORD read = 1; read > 0 && (text.size() <= kMaxFileSize || IsModelBytes(text));) {
        const std::size_t size = text.size();
        text.resize(size + kMaxFileSize);
        if (!ReadFile(opened, text.data() + size, kMaxFileSize, &read, nullptr))
            Fail("file", "cannot be read, error " + std::to_string(GetLastError()));
        text.resize(size + read);
    }
    if (IsModelBytes(text)) return ReadModelBytes(text);
    if (text.size() > kMaxFileSize) Fail("file", "is larger than 1 MB");
    return ReadModelText(text);
}
