#include "platform/text/Signatures.h"

#include <cstdio>
#include <memory>
#include <sodium.h>
#include <vector>

namespace zv {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

constexpr std::size_t maximumFileSize = std::size_t { 1 } << 30;

bool readWhole(std::string const& path, std::vector<std::byte>& bytes)
{
    std::unique_ptr<std::FILE, FileCloser> const file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return false;
    std::byte buffer[1 << 16];
    while (auto const count = std::fread(buffer, 1, sizeof buffer, file.get())) {
        if (bytes.size() + count > maximumFileSize)
            return false;
        bytes.insert(bytes.end(), buffer, buffer + count);
    }
    return std::ferror(file.get()) == 0;
}

unsigned char const* raw(std::span<std::byte const> bytes) { return reinterpret_cast<unsigned char const*>(bytes.data()); }

} // namespace

bool isSignedBy(std::span<std::byte const> key, std::span<std::byte const> signature, std::span<std::byte const> bytes)
{
    bool const isPlausible = key.size() == crypto_sign_PUBLICKEYBYTES && signature.size() == crypto_sign_BYTES && sodium_init() >= 0;
    return isPlausible && crypto_sign_verify_detached(raw(signature), raw(bytes), bytes.size(), raw(key)) == 0;
}

bool isSignedBy(std::span<std::byte const> key, std::span<std::byte const> signature, Url const& file)
{
    std::vector<std::byte> bytes;
    return readWhole(file.path(), bytes) && isSignedBy(key, signature, bytes);
}

} // namespace zv
