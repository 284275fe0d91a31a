#include "catia/SecretText.h"

#include <algorithm>
#include <new>
#include <utility>

SecretText::SecretText()
    : page_(static_cast<Page*>(VirtualAlloc(nullptr, sizeof(Page), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {
    if (!page_) throw std::bad_alloc();
    // A process may lock a few dozen pages. Where the host has used them up the text is still wiped.
    VirtualLock(page_, sizeof(Page));
}

SecretText::~SecretText() {
    Wipe();
    VirtualUnlock(page_, sizeof(Page));
    VirtualFree(page_, 0, MEM_RELEASE);
}

bool SecretText::Continues(Change change, std::size_t at, std::size_t removed) const {
    if (change != lastChange_) return false;
    if (change == Change::kTyped) return removed == 0 && at == changeEnd_;
    return at == changeEnd_ || at + removed == changeEnd_;  // the Delete key, Backspace
}

void SecretText::Replace(std::size_t at, std::size_t removed, const wchar_t* units, std::size_t count) {
    Text& now = page_->now;
    at = (std::min)(at, now.length);
    removed = (std::min)(removed, now.length - at);
    count = (std::min)(count, kCapacity - (now.length - removed));
    if (removed == 0 && count == 0) return;

    const Change change = count > 0 ? Change::kTyped : Change::kDeleted;
    if (!Continues(change, at, removed)) page_->before = now;
    lastChange_ = change;
    changeEnd_ = at + count;

    const std::size_t tail = now.length - at - removed;
    MoveMemory(now.units + at + count, now.units + at + removed, tail * sizeof(wchar_t));
    CopyMemory(now.units + at, units, count * sizeof(wchar_t));
    now.length = at + count + tail;
    SecureZeroMemory(now.units + now.length, (kCapacity - now.length) * sizeof(wchar_t));
}

bool SecretText::Undo() {
    if (!CanUndo()) return false;
    // Unit by unit: a swap of the whole would put one of the texts on the stack.
    std::swap_ranges(page_->now.units, page_->now.units + kCapacity, page_->before.units);
    std::swap(page_->now.length, page_->before.length);
    lastChange_ = Change::kUndone;
    return true;
}

void SecretText::ForgetUndo() {
    SecureZeroMemory(&page_->before, sizeof page_->before);
    lastChange_ = Change::kNone;
}

void SecretText::Wipe() {
    SecureZeroMemory(page_, sizeof(Page));
    lastChange_ = Change::kNone;
}
