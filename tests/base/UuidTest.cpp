#include "base/Uuid.h"

#include <gtest/gtest.h>

#include <string>

namespace zv {
namespace {

TEST(Uuid, IsReadOnlyFromItsOneForm)
{
    std::string const text = "01234567-89AB-4DEF-8123-456789abcdef";
    ASSERT_TRUE(Uuid::parse(text));
    EXPECT_EQ(Uuid::parse(text)->toString(), "01234567-89AB-4DEF-8123-456789ABCDEF");
    std::string const digits(70, '7');
    for (auto const& wrong : { std::string(), text.substr(1), text + "0", text + digits.substr(0, 34), digits.substr(0, 36), "x" + text.substr(1),
             text.substr(0, 23) + "0" + text.substr(24) })
        EXPECT_FALSE(Uuid::parse(wrong)) << wrong;
}

} // namespace
} // namespace zv
