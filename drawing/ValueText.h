#pragma once

#include <cstddef>
#include <string_view>

// The text of one value. It ends at the first NUL, as it would for any caller that takes it as a C string; what comes
// after is dropped. A text may have any length: the first kCapacity bytes are kept and all are counted.
class ValueText {
  public:
    void Clear() { length_ = 0, ended_ = false; }
    void Append(std::string_view bytes);

    std::string_view Kept() const { return {bytes_, length_ < kCapacity ? length_ : kCapacity}; }
    bool IsWhole() const { return length_ <= kCapacity; }
    // Writes what fits in size bytes with the NUL. The length of the whole text, at most INT_MAX.
    int CopyTo(char* out, int size) const;

    // The DXF format allows no text longer than 2049 bytes.
    static constexpr std::size_t kCapacity = 4095;

  private:
    std::size_t length_ = 0;
    bool ended_ = false;
    char bytes_[kCapacity];
};
