// Plays a user who does anything: random keys, clicks, menu choices, texts, pastes, changes of focus and closings, on a
// dialog and all that it opens. Whatever he does, the call returns, changes nothing that was not confirmed, throws
// nothing, leaves no window or object behind and the heap whole. The same seed plays the same.
#pragma once

#include <filesystem>

#include "catalogue/Catalogue.h"

namespace kiro {

struct PlayOrder {
    const CatalogueDialog* dialog = nullptr;
    int events = 300;
    unsigned seed = 1;
    int plays = 1;               // with this seed and those that follow it
    std::filesystem::path logs;  // a file for each play: what the user did, and what was wrong
    std::filesystem::path home;  // made anew for each play
};

// How many plays went wrong. A play that hangs is ended, and with it the program, with the status kPlayHangs.
int Play(const PlayOrder& order);
constexpr int kPlayHangs = 4;

}  // namespace kiro
