// Cleared memory for one T and some bytes more that ends where an inaccessible page begins.
#pragma once

#include <windows.h>

#include <cstddef>
#include <new>
#include <span>

namespace kiro {

template <class T>
class GuardedMemory {
  public:
    explicit GuardedMemory(std::size_t more = 0) : size_(sizeof(T) + more) {
        const std::size_t room = (size_ + kPage - 1) / kPage * kPage;
        base_ = static_cast<std::byte*>(VirtualAlloc(nullptr, room + kPage, MEM_RESERVE, PAGE_NOACCESS));
        if (!base_ || !VirtualAlloc(base_, room, MEM_COMMIT, PAGE_READWRITE)) throw std::bad_alloc();
        start_ = base_ + room - size_;
    }
    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;
    ~GuardedMemory() { VirtualFree(base_, 0, MEM_RELEASE); }

    T* Get() { return reinterpret_cast<T*>(start_); }
    T* operator->() { return Get(); }
    std::span<std::byte> Bytes() { return {start_, size_}; }

  private:
    static constexpr std::size_t kPage = 4096;
    std::size_t size_;
    std::byte* base_ = nullptr;
    std::byte* start_ = nullptr;
};

}  // namespace kiro
