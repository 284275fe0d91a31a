// The error list of a read: the file that the listing goes to, and in memory the first of its errors, for the user who
// cannot be pointed to the file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tables/FileReplace.h"
#include "tables/TableListing.h"

class ErrorList final : public ListingSink {
  public:
    void OpenErrorList(const SystemPath& path);  // "": there can be no file
    void PrintErrorList(std::string_view text);
    void CloseErrorList();

    // Of a list that was closed.
    bool IsWhole() const { return whole_; }  // everything that was printed is in the file
    std::string FirstErrors() const;  // a line for each with the number of its line, and how many there are besides

    void Write(std::string_view text) override { PrintErrorList(text); }
    void OnLine(std::string_view, std::size_t number) override { line_ = number; }
    void OnError(std::string_view message) override;

  private:
    OwnedFile file_;
    bool whole_ = false;
    std::size_t line_ = 0;
    std::size_t errors_ = 0;
    std::string firstErrors_;
};
