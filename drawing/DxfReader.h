// Reads the pairs of group code and value of a DXF file, text or binary, from its start to its end. Memory is the same
// for every file; no byte of a file is trusted.
#pragma once

#include <cstddef>
#include <string_view>

#include "drawing/BufferedInput.h"
#include "drawing/ValueText.h"

// What the start of a file tells. start: the first kDxfStartLength bytes, or the whole of a shorter file.
inline constexpr std::size_t kDxfStartLength = 24;
struct DxfStart {
    bool binary = false;
    bool wideCodes = false;  // of a binary file: its group codes have two bytes
};
DxfStart ExamineDxfStart(std::string_view start);

// Writes a real number as text to out, which has room for kRealTextSize characters; gives their count.
inline constexpr std::size_t kRealTextSize = 32;
using RealText = std::size_t (*)(double value, char* out);
// The shortest text that reads as the same number (at most 24 characters). The tables it needs have 150 KB: whoever
// does not look at reals does without it.
std::size_t ShortestReal(double value, char* out);

class DxfReader {
  public:
    // realText: makes the values of a binary file that are reals; null: those have an empty text.
    explicit DxfReader(RealText realText) : realText_(realText) {}

    // A source stays the caller's and must live until Close. False when the source cannot be read, or is not binary DXF
    // where it should be; nothing is open then.
    bool OpenText(ByteSource& source);
    bool OpenBinary(ByteSource& source);
    bool Open(ByteSource& source);  // whichever it is by its start
    bool IsBinary() const { return kind_ == Kind::kBinary; }
    void Close();

    bool ReadLine();         // text files: false at the end or on a failure
    int LineAsCode() const;  // the line as a group code; kNoCode when it is none
    int ReadPair();  // binary files: the group code; kNoCode at the end, or when the file breaks off or is wrong

    // The line or value read last; empty when there is none. The length of the whole text.
    int GetText(char* out, int size) const { return text_.CopyTo(out, size); }
    // The same without a copy: what was kept of it, valid until the next reading.
    const ValueText& Value() const { return text_; }

    static constexpr int kNoCode = -1;

  private:
    enum class Kind { kNone, kText, kBinary };

    bool StartText();  // of the input that is attached
    bool StartBinary();
    void Stop();  // nothing more can be read
    int ReadCode();
    bool ReadValue(int code);
    bool ReadString();
    bool ReadChunk();
    template <class T>
    bool Take(T& value);
    template <class T>
    bool ReadInteger();
    bool ReadReal();

    const RealText realText_;
    Kind kind_ = Kind::kNone;
    bool wideCodes_ = false;
    bool afterCr_ = false;  // the last line ended with a CR, to which an LF may belong
    BufferedInput input_;
    ValueText text_;
};
