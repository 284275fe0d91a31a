// Group pairs in memory: four bytes and the text for each, so that a drawing takes about the room of its file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace convert {

struct Pair {
    int code;
    std::string_view text;  // lives as long as the store
};

// Pairs that were added one after the other.
struct PairRun {
    std::uint32_t block = 0;
    std::uint32_t offset = 0;
    std::uint32_t count = 0;
};

class PairStore {
  public:
    PairRun Begin() const;
    void Add(PairRun& run, int code, std::string_view text);  // to the run that was begun last

    class Cursor {
      public:
        Cursor(const PairStore& store, const PairRun& run) : store_(store), rest_(run) {}
        bool Next(Pair& pair);

      private:
        const PairStore& store_;
        PairRun rest_;
    };
    Cursor Read(const PairRun& run) const { return {*this, run}; }
    // The text of the first pair with that code; empty when there is none.
    std::string_view Find(const PairRun& run, int code) const;

  private:
    static constexpr std::size_t kBlock = 64 * 1024;
    std::deque<std::string> blocks_;  // each with its room from the start: what is in one never moves
};

}  // namespace convert
