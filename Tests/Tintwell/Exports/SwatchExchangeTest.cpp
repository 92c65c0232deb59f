#include "SwatchExchange.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

TEST(SwatchExchange, ABlockIsLaidOutByItsLengths)
{
    const std::string expected("ASEF\0\1\0\0\0\0\0\1"
                               "\0\1\0\0\0\x1C\0\4\0A\xD8\x3C\xDF\xA8\0\0RGB "
                               "\x3F\x80\0\0\0\0\0\0\x3E\x4C\xCC\xCD\0\2",
        12 + 6 + 28);
    EXPECT_EQ(swatchExchangeBytes({ { "a", "A\U0001F3A8", { 1, 0, 0.2, 0.5 }, {} } }), expected);
}

} // namespace
} // namespace tintwell
