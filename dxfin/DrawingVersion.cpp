#include "dxfin/DrawingVersion.h"

#include <fcntl.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"

namespace {

constexpr char kVersionCaption[] = "ファイルバージョン：";

// The keywords are compared by their first characters only; what follows in a value does not matter.
constexpr std::string_view kSection = "SECTION";
constexpr std::string_view kHeader = "HEADER";
constexpr std::string_view kVersionVariable = "$ACADVER";

constexpr int kEntityCode = 0;
constexpr int kTextCode = 1;
constexpr int kNameCode = 2;
constexpr int kVariableCode = 9;  // also the largest code that is looked at

// More than any version code; what is longer is not shown whole.
constexpr int kValueSize = 64;
constexpr unsigned int kDwgStart = 32;
constexpr std::size_t kDwgCodeLength = 6;

struct VersionLabel {
    std::string_view code;
    const char* label;
};
constexpr VersionLabel kLabels[] = {
    {"AC1006", "(GX-3)"}, {"AC1009", "(GX-5)"}, {"AC1012", "(R13)"},  {"AC1014", "(R14)"},  {"AC1015", "(2000)"},
    {"AC1018", "(2004)"}, {"AC1021", "(2007)"}, {"AC1024", "(2010)"}, {"AC1027", "(2013)"},
};
constexpr char kUnknownLabel[] = "(不明)";

// The host's reader, open for one file.
class DxfPairs {
  public:
    DxfPairs(const std::string& path, int most) : left_(most) {
        *DxfKiroInp() = DxfInputBlock{};
        if (DxfCheckBinary(path.c_str()) != 0) return;
        binary_ = DxfGetBinary() != 0;
        open_ = (binary_ ? DxfOpenBinary(path.c_str()) : dxfxxopen(path.c_str())) == 0;
    }
    DxfPairs(const DxfPairs&) = delete;
    DxfPairs& operator=(const DxfPairs&) = delete;
    ~DxfPairs() { dxfxxclos(); }

    bool IsOpen() const { return open_; }

    // The next pair whose code is 0 to 9; false at the end or when the file breaks off.
    bool Next(int* code, std::string* value) {
        do {
            if (left_ == 0 || !ReadPair(code)) return false;
            if (left_ > 0) --left_;
        } while (*code < 0 || *code > kVariableCode);
        char text[kValueSize];
        DxfGetText(text, kValueSize);
        *value = text;
        return true;
    }

  private:
    bool ReadPair(int* code) {
        if (binary_) {
            *code = dxfinbinary();
            return *code >= 0;
        }
        if (dxfinread() != 0) return false;
        *code = dxfinctoi();
        return dxfinread() == 0;
    }

    int left_;  // pairs to be read; negative: all
    bool binary_ = false;
    bool open_ = false;
};

std::optional<std::string> ScanHeader(DxfPairs& pairs) {
    bool section = false;  // inside a section whose name has not come yet
    bool header = false;
    bool armed = false;  // the next text is the version
    int code = 0;
    std::string value;
    while (pairs.Next(&code, &value)) {
        const auto starts = [&](std::string_view keyword) { return value.starts_with(keyword); };
        if (code == kEntityCode) {
            if (!starts(kSection)) return std::nullopt;
            section = true;
            header = armed = false;
        } else if (code == kNameCode && !header) {
            if (!section || !starts(kHeader)) return std::nullopt;
            header = true;
        } else if (code == kVariableCode && header) {
            armed = starts(kVersionVariable);
        } else if (code == kTextCode && armed) {
            return value;
        }
    }
    return std::nullopt;
}

}  // namespace

DrawingVersion ReadDxfVersion(const std::string& path, int mostPairs) {
    DxfPairs pairs(path, mostPairs);
    if (!pairs.IsOpen()) return {};
    return {true, ScanHeader(pairs)};
}

DrawingVersion ReadDwgVersion(const std::string& path) {
    HxFileIO file;
    if (!file.Open(path, _O_RDONLY | _O_BINARY, 0666)) return {};
    char start[kDwgStart];
    const int count = file.Read(start, kDwgStart);
    if (count < static_cast<int>(kDwgCodeLength) || start[0] != 'A' || start[1] != 'C') return {true, std::nullopt};
    start[kDwgCodeLength] = 0;  // a NUL before it ends the code too
    return {true, std::string(start)};
}

std::string EmptyVersionLine() { return kVersionCaption; }

std::string VersionText(const DrawingVersion& version) {
    if (!version.code) return {};
    const auto label = std::find_if(std::begin(kLabels), std::end(kLabels),
                                    [&](const VersionLabel& candidate) { return candidate.code == *version.code; });
    return *version.code + (label == std::end(kLabels) ? kUnknownLabel : label->label);
}

std::string VersionLine(const DrawingVersion& version) {
    return version.opened ? kVersionCaption + VersionText(version) : "ファイルが見つかりません";
}
