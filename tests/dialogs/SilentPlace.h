// A drive or share that does not answer until it is let.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <string>

#include "ui/Probe.h"

class SilentPlace {
  public:
    explicit SilentPlace(const std::wstring& path, DWORD patience = 0) : probe(path, Question(), patience) {}
    SilentPlace(const SilentPlace&) = delete;
    SilentPlace& operator=(const SilentPlace&) = delete;
    ~SilentPlace() { Answer(); }

    // Comes back when the question has been answered, with yes, and what it owns is gone.
    void Answer() const {
        SetEvent(gate_.get());
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(gone_.get(), kLong));
    }

  private:
    using Event = std::shared_ptr<void>;

    static constexpr DWORD kLong = 10000;  // milliseconds

    static Event MakeEvent() { return {CreateEventW(nullptr, TRUE, FALSE, nullptr), CloseHandle}; }
    std::function<bool()> Question() const {
        const Event owned(gate_.get(), [gate = gate_, gone = gone_](HANDLE) { SetEvent(gone.get()); });
        return [owned] { return WaitForSingleObject(owned.get(), 3 * kLong) == WAIT_OBJECT_0; };
    }

    const Event gate_ = MakeEvent();
    const Event gone_ = MakeEvent();

  public:
    const kiro::ui::Probe probe;
};
