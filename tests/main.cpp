#include "base/MainThread.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    zv::markMainThread();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
