// Group pairs as the text or the bytes of a drawing.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

// Where the bytes of a drawing go.
class ByteSink {
  public:
    virtual ~ByteSink() = default;
    virtual bool Write(std::string_view bytes) = 0;  // false: nothing more can be written
};

class DxfWriter {
  public:
    DxfWriter(ByteSink& sink, bool binary);
    // A value as a text file has it. False, and nothing is written, when a binary file has no form for it.
    bool Put(int code, std::string_view text);
    void Put(std::initializer_list<std::pair<int, std::string_view>> pairs) {
        for (const auto& [code, text] : pairs) Put(code, text);
    }
    void PutNumber(int code, std::int64_t number);
    void PutReal(int code, double number);
    void PutHandle(int code, std::uint64_t handle);
    bool Finish();  // whether everything was written

  private:
    void PutText(int code, std::string_view text);
    bool PutBinary(int code, std::string_view text);
    bool PutChunk(std::string_view digits);
    template <class T>
    void Append(T value);
    void Flush();

    ByteSink& sink_;
    bool binary_;
    bool good_ = true;
    std::string buffer_;
};
