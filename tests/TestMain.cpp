// The main function of the test programs that drive windows.
#include <gtest/gtest.h>

#include "driver/Driver.h"

namespace {

constexpr UINT kCrashed = 70;

// Without this a crash after a window was open may end the program with status 0 under Wine.
LONG WINAPI EndAtCrash(EXCEPTION_POINTERS*) {
    TerminateProcess(GetCurrentProcess(), kCrashed);
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

int main(int argc, char** argv) {
    SetUnhandledExceptionFilter(EndAtCrash);
    // Tests that move the mouse run beside others.
    kiro::drive::UsePrivateDesktop();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
