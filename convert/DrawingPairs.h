// The pairs of group code and value of a drawing, text or binary, one after the other.
#pragma once

#include <cstddef>
#include <string_view>

#include "convert/Results.h"
#include "hostlayer/kirodxf/DxfReader.h"

namespace convert {

class DrawingPairs {
  public:
    Result Open(ByteSource& source);  // the source must outlive this
    bool Next();                      // false after "EOF" and on an error
    Result Error() const { return error_; }

    int Code() const { return code_; }
    std::string_view Text() const { return text_; }  // numbers without blanks around; valid until the next call
    bool IsWhole() const { return reader_.Value().IsWhole(); }
    bool IsRecord(std::string_view type) const { return code_ == 0 && text_ == type; }

    static constexpr int kLargestCode = 1071;  // of the format

  private:
    // The start of a file is looked at before a reader has it.
    class Source final : public ByteSource {
      public:
        bool Attach(ByteSource& source);
        std::string_view Start() const { return {start_, length_}; }
        int Read(char* buffer, unsigned size) override;
        bool Failed() const { return failed_; }

      private:
        ByteSource* source_ = nullptr;
        char start_[kDxfStartLength];
        std::size_t length_ = 0;
        std::size_t given_ = 0;
        bool failed_ = false;
    };

    bool ReadPair();
    bool Fail(Result error);

    Source source_;
    DxfReader reader_;
    bool binary_ = false;
    bool any_ = false;
    bool ended_ = false;
    int code_ = 0;
    std::string_view text_;
    Result error_ = kDone;
};

}  // namespace convert
