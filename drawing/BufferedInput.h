#pragma once

#include <cstddef>
#include <string_view>

#include "drawing/ByteSource.h"

// A window of fixed size on a byte source.
class BufferedInput {
  public:
    void Attach(ByteSource* source);  // null: nothing can be read
    // The bytes at hand: at least `least` of them (up to kLargestPeek), fewer only when the input ends before. Valid
    // until the next call.
    std::string_view Peek(std::size_t least);
    void Skip(std::size_t count);  // count: not more than Peek gave
    bool Failed() const { return failed_; }

    static constexpr std::size_t kLargestPeek = 256;

  private:
    // Who only looks for the version finds it in the first bytes, so a drawing of any size costs one small read.
    static constexpr unsigned kFirstRead = 4 * 1024;
    static constexpr unsigned kBufferSize = 64 * 1024;

    ByteSource* source_ = nullptr;  // null once the end or a failure was met
    bool failed_ = false;
    unsigned nextRead_ = kFirstRead;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    char buffer_[kBufferSize];
};
