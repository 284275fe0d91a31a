#pragma once

#include <cstddef>
#include <string_view>

// The lines of a table file, in a buffer of fixed size. A line keeps its LF; a CR LF is one LF. A line longer than a
// piece comes in several pieces, each of which is a line to the readers; one that is just as long as a piece leaves its
// LF over as a line of its own. A NUL ends the text of a piece, not the piece. 0x1A ends the file, as in text mode: old
// editors put it there.
class TableLines {
  public:
    // file must outlive this. piece: 1 to kLargestPiece.
    TableLines(std::string_view file, std::size_t piece) : file_(file.substr(0, file.find(kEndMark))), piece_(piece) {}

    bool Next();                                              // false at the end
    std::string_view Text() const { return {text_, size_}; }  // valid until the next call
    std::size_t Number() const { return number_; }            // of the file's line, from 1 on; its pieces share it
    void TabsToBlanks();

    static constexpr std::size_t kLargestPiece = 256;
    static constexpr char kEndMark = 0x1A;  // no second byte of a character

  private:
    std::string_view file_;
    std::size_t piece_;
    std::size_t position_ = 0;
    std::size_t size_ = 0;
    std::size_t number_ = 0;
    bool ended_ = true;  // the last piece was the end of its line
    char text_[kLargestPiece];
};
