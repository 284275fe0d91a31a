// The pairs of group code and value of a drawing, text or binary, one after the other.
#pragma once

#include <cstddef>
#include <string_view>

#include "drawing/DxfReader.h"
#include "drawing/Results.h"

namespace drawing {

class DrawingPairs {
  public:
    explicit DrawingPairs(RealText realText) : reader_(realText) {}  // as DxfReader takes it

    Result Open(ByteSource& source);  // the source must outlive this
    bool Next();                      // false after "EOF" and on an error
    Result Error() const { return error_; }

    int Code() const { return code_; }
    std::string_view Text() const;  // numbers without blanks around; valid until the next call of Next
    bool IsWhole() const { return reader_.Value().IsWhole(); }
    bool IsRecord(std::string_view type) const { return code_ == 0 && Text() == type; }

    static constexpr int kLargestCode = 1071;  // of the format

  private:
    // Remembers what the reader does not tell: whether the bytes ended or could not be read.
    class Source final : public ByteSource {
      public:
        int Read(char* buffer, unsigned size) override {
            const int count = source->Read(buffer, size);
            failed |= count < 0;
            return count;
        }
        ByteSource* source = nullptr;
        bool failed = false;
    };

    bool ReadPair();
    bool Fail(Result error);

    Source source_;
    DxfReader reader_;
    bool any_ = false;
    bool ended_ = false;
    int code_ = 0;
    Result error_ = kDone;
};

}  // namespace drawing
