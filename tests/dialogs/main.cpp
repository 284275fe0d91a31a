#include <gtest/gtest.h>

#include "tests/driver/Driver.h"

int main(int argc, char** argv) {
    // Tests that move the mouse run beside others.
    kiro::drive::UsePrivateDesktop();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
