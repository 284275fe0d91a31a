// No exception may leave an exported function: the caller may be built with another compiler.
#pragma once

namespace kirobc {

// What work returns, or failed when it ends with an exception (there is no memory).
template <class Result, class Work>
Result Guarded(Result failed, Work work) noexcept {
    try {
        return work();
    } catch (...) {
        return failed;
    }
}

}  // namespace kirobc
