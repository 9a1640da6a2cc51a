#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace mavrin2::ontiva {

// Reading or writing a file failed.
struct FileFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A file of this kind, or in this state, cannot take what is to be written.
struct NotWritable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The bytes of a file. Offsets and sizes are bytes; bytes that are held are in a std::string.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    virtual std::int64_t Length() const = 0;
    // The number of bytes read: fewer than asked for only at the end. Throws FileFault.
    virtual std::size_t Read(std::int64_t offset, std::span<char> target) const = 0;

    // `count` bytes from `offset`, fewer at the end. Takes no more memory than there are bytes.
    std::string Bytes(std::int64_t offset, std::int64_t count) const {
        const std::int64_t length = Length();
        if (offset < 0 || offset >= length || count <= 0) return {};
        std::string bytes(static_cast<std::size_t>(std::min(count, length - offset)), '\0');
        bytes.resize(Read(offset, bytes));
        return bytes;
    }
};

}  // namespace mavrin2::ontiva
