#pragma once

#include <stdexcept>

namespace cli {

// Exit statuses.
constexpr int kFine = 0;
constexpr int kFindings = 1;  // or differences, or a refusal
constexpr int kTrouble = 2;   // wrong words, or a file that cannot be read or written

// What ends a command with kTrouble; the text is for the user.
class Failure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace cli
