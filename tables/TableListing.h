#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/TextFormat.h"

// Where a listing goes: a file in the program, memory in tests.
class ListingSink {
  public:
    virtual ~ListingSink() = default;
    // text: at most a few hundred bytes more than a path. A line of the listing may come in several texts. "\n" ends a
    // line; a file takes it in text mode.
    virtual void Write(std::string_view text) = 0;
    // Called before the text is written, for those who want to know what it says: a line of the file, numbered from 1
    // on (the pieces of a long line have the same number), and what is wrong with the line that came last.
    virtual void OnLine(std::string_view /*line*/, std::size_t /*number*/) {}
    virtual void OnError(std::string_view /*message*/) {}
    // Something of the line that came last was not looked at, or found no room in its field.
    virtual void OnCut() {}
};

// The listing of one read: every line of the file, with an error line under each bad one.
class TableListing {
  public:
    explicit TableListing(ListingSink& sink) : sink_(sink) {}

    void FileName(std::string_view path);                  // the head of the listing
    void Line(std::string_view line, std::size_t number);  // as read, with its line end if it has one
    template <class... Values>
    void Error(std::string_view format, const Values&... values) {
        hasErrors_ = true;
        text_.clear();
        AppendFormat(text_, format, {FormatArgument(values)...});
        sink_.OnError(text_);
        sink_.Write(text_);
    }
    void Cut() { sink_.OnCut(); }  // not in the listing
    bool HasErrors() const { return hasErrors_; }

  private:
    ListingSink& sink_;
    std::string text_;  // kept, so that lines need no memory of their own
    bool hasErrors_ = false;
};
