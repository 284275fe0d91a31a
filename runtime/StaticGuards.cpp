// The guards of a function's static objects, in the place of the C++ runtime's. Those make the thread known to the
// runtime's thread library, which takes a record and two handles for it and never gives them back when a DLL is freed.
// With the system's own locks there is nothing to give back.
#include <cxxabi.h>
#include <windows.h>

namespace {

SRWLOCK lock = SRWLOCK_INIT;
CONDITION_VARIABLE ended = CONDITION_VARIABLE_INIT;

// A guard has eight bytes. The first is the compiler's, which asks it before it calls these functions.
bool IsMade(const __cxxabiv1::__guard* guard) { return *reinterpret_cast<const char*>(guard) != 0; }
char& IsBusy(__cxxabiv1::__guard* guard) { return reinterpret_cast<char*>(guard)[1]; }

void End(__cxxabiv1::__guard* guard, bool made) {
    AcquireSRWLockExclusive(&lock);
    IsBusy(guard) = 0;
    if (made) __atomic_store_n(reinterpret_cast<char*>(guard), char{1}, __ATOMIC_RELEASE);
    ReleaseSRWLockExclusive(&lock);
    WakeAllConditionVariable(&ended);
}

}  // namespace

namespace __cxxabiv1 {

// 1: the caller makes the object, and tells the end of it with one of the other two.
extern "C" int __cxa_guard_acquire(__guard* guard) {
    AcquireSRWLockExclusive(&lock);
    while (IsBusy(guard)) SleepConditionVariableSRW(&ended, &lock, INFINITE, 0);
    const bool make = !IsMade(guard);
    if (make) IsBusy(guard) = 1;
    ReleaseSRWLockExclusive(&lock);
    return make;
}

extern "C" void __cxa_guard_release(__guard* guard) noexcept { End(guard, true); }

extern "C" void __cxa_guard_abort(__guard* guard) noexcept { End(guard, false); }

}  // namespace __cxxabiv1
