// A short text of which no copy stays behind: it lies in a page of its own, which the system keeps out of the paging
// file, and is overwritten as it shrinks and when it goes.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

class SecretText {
  public:
    static constexpr std::size_t kCapacity = 128;  // UTF-16 units

    SecretText();  // std::bad_alloc when there is no page
    SecretText(const SecretText&) = delete;
    SecretText& operator=(const SecretText&) = delete;
    ~SecretText();

    std::wstring_view View() const { return {page_->now.units, page_->now.length}; }
    std::size_t Length() const { return page_->now.length; }

    // Puts `count` units in the place of those that are removed; what has no room is left out. Changes that follow one
    // another as those of somebody who types or who deletes are undone together.
    void Replace(std::size_t at, std::size_t removed, const wchar_t* units, std::size_t count);
    // Takes the last change back; once more, and it is made again. False when there is none.
    bool Undo();
    bool CanUndo() const { return lastChange_ != Change::kNone; }
    void ForgetUndo();
    void Wipe();  // so does the destructor, whatever way out the command takes

  private:
    enum class Change { kNone, kTyped, kDeleted, kUndone };
    struct Text {
        wchar_t units[kCapacity];  // zeros behind the length
        std::size_t length;
    };
    struct Page {
        Text now;
        Text before;  // the last change
    };

    bool Continues(Change change, std::size_t at, std::size_t removed) const;

    Page* page_;
    Change lastChange_ = Change::kNone;
    std::size_t changeEnd_ = 0;
};
