#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdio>

#include "model/SafeFile.h"

namespace velmora::test {

// A block writer that writes the first n bytes and then fails as a full disk does.
inline model::BlockWriter failingAfter(std::size_t n)
{
    return [n](std::FILE* file, std::span<const std::uint8_t> bytes) {
        const std::size_t part = n < bytes.size() ? n : bytes.size();
        if (part > 0 && std::fwrite(bytes.data(), 1, part, file) != part)
            return false;
        if (part == bytes.size())
            return true;
        errno = ENOSPC;
        return false;
    };
}

} // namespace velmora::test
