// Names of the host's model in the cells of a grid.
#pragma once

#include <cstddef>
#include <string>

// A name as its cell was filled. One that the user does not touch is stored byte for byte as it was: a model may have
// names that are no EUC, or that are longer than their cell shows.
class OpenedName {
  public:
    // The text of the cell: Shift-JIS, at most limit bytes. euc may be null.
    const std::string& Open(const char* euc, std::size_t limit = std::string::npos);
    std::string Stored(const std::string& cell) const;  // EUC
    bool HasRoom(const std::string& cell) const;        // in the host's model

  private:
    std::string euc_;
    std::string shown_;
};

constexpr char kNameTooLong[] = "名前が長すぎます。短くしてください。";
