// The characters of a drawing's texts, which its header tells: UTF-8 since 2007, before that the code page that it
// names ($DWGCODEPAGE), which is the Japanese one when it names none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace drawing {

class CharacterSet {
  public:
    // A pair of the header. False: it names a code page that the system does not have; the Japanese one stays.
    bool Take(int code, std::string_view text);

    const std::string& Version() const { return version_; }  // "AC1015"; "" when there is none
    bool IsUtf8() const { return version_ >= kFirstUtf8Version; }
    bool IsJapanese() const { return !IsUtf8() && page_ == kJapanesePage; }
    // Of a text of the drawing, when that is not Japanese.
    std::string ToUtf8(std::string_view text) const;

  private:
    static constexpr std::string_view kFirstUtf8Version = "AC1021";
    static constexpr int kJapanesePage = 932;

    std::string variable_, version_;
    int page_ = kJapanesePage;
};

// "\U+XXXX" becomes the character itself.
std::string Unescaped(std::string utf8);

// By the system's tables. Bytes that are no character become U+FFFD; nothing when the system has no such code page.
std::optional<std::string> Utf8OfCodePage(int page, std::string_view text);

}  // namespace drawing
