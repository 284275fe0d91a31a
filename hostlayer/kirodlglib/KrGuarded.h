// Nothing is thrown across the boundary of the library: what fails for want of memory gives the failure value.
#pragma once

template <class Result, class Body>
Result Guarded(Result failure, Body body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

template <class Body>
void Guarded(Body body) noexcept {
    try {
        body();
    } catch (...) {
    }
}
