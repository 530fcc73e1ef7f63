#include "platform/text/Signatures.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <sodium.h>
#include <span>

namespace zv {
namespace {

TEST(Signatures, AreTakenOnlyAsAWhole)
{
    ASSERT_GE(sodium_init(), 0);
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> key {};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret {};
    std::array<unsigned char, crypto_sign_BYTES + 1> signature {};
    crypto_sign_keypair(key.data(), secret.data());
    crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<unsigned char const*>("text"), 4, secret.data());
    tests::TemporaryFolder const folder;
    auto const file = Url::fromPath(folder.write("file", "text"));
    auto const other = Url::fromPath(folder.write("other", "Text"));
    auto const keyBytes = std::as_bytes(std::span(key));
    auto const bytes = std::as_bytes(std::span(signature));
    EXPECT_TRUE(isSignedBy(keyBytes, bytes.first(crypto_sign_BYTES), file));
    EXPECT_FALSE(isSignedBy(keyBytes, bytes.first(crypto_sign_BYTES), other));
    EXPECT_FALSE(isSignedBy(keyBytes, bytes.first(10), file)) << "its first bytes alone, whatever lies behind them";
    EXPECT_FALSE(isSignedBy(keyBytes, bytes, file));
    EXPECT_FALSE(isSignedBy(keyBytes.first(31), bytes.first(crypto_sign_BYTES), file));
}

} // namespace
} // namespace zv
