// The files that a pattern matches, taken in parts: a folder may hold thousands of drawings, and may be far away.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

struct FoundDrawing {
    std::string name;  // Shift-JIS, without the folder
    std::uint64_t size = 0;
};

class DrawingSearch {
  public:
    enum class Start {
        kFound,   // there is at least one file
        kNone,    // there is none
        kFolder,  // the pattern is the name of a folder
        kSilent,  // the folder's drive or share does not answer
        kFailed   // no such folder, or it cannot be read
    };

    DrawingSearch() = default;
    DrawingSearch(const DrawingSearch&) = delete;
    DrawingSearch& operator=(const DrawingSearch&) = delete;
    ~DrawingSearch() { Close(); }

    // pattern: a real path whose name may have "*" and "?".
    Start Begin(const std::string& pattern);
    // At most count more files. False when these were the last ones, also because the folder has gone meanwhile.
    bool Take(int count, std::vector<FoundDrawing>& found);
    // Files whose names code page 932 cannot hold: no host could be told of them.
    int Unnamed() const { return unnamed_; }

  private:
    bool Next();
    void Close();

    HANDLE search_ = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW entry_{};  // the next one
    bool isFile_ = false;       // there is a next one
    int unnamed_ = 0;
};
