#include "base/MainThread.h"
#include "tests/SourceTree.h"

#include <gtest/gtest.h>

std::string zv::tests::inSourceTree(std::string const& name) { return ZV_SOURCE_DIR "/" + name; }

int main(int argc, char** argv)
{
    zv::markMainThread();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
