#include "companions/dusoro/backends/sndfile/sndfile_io.h"

#include <cstddef>
#include <cstdio>

namespace mavrin2::dusoro {
namespace {

SndfileStream& StreamOf(void* user) {
    return *static_cast<SndfileStream*>(user);
}

sf_count_t Length(void* user) {
    return StreamOf(user).File->Length().value_or(-1);
}

sf_count_t Seek(sf_count_t offset, int whence, void* user) {
    SndfileStream& stream = StreamOf(user);
    if (whence == SEEK_CUR) offset += stream.Position;
    if (whence == SEEK_END) offset += Length(user);
    if (offset < 0) return -1;
    return stream.Position = offset;
}

sf_count_t Read(void* target, sf_count_t count, void* user) {
    SndfileStream& stream = StreamOf(user);
    if (count <= 0) return 0;
    const auto got = stream.File->Read(
        stream.Position, {static_cast<std::byte*>(target), static_cast<std::size_t>(count)});
    if (!got) return 0;
    stream.Position += static_cast<std::int64_t>(*got);
    return static_cast<sf_count_t>(*got);
}

sf_count_t Write(const void* source, sf_count_t count, void* user) {
    SndfileStream& stream = StreamOf(user);
    if (count <= 0) return 0;
    stream.Failed = stream.Failed ||
                    !stream.File->Write(stream.Position, {static_cast<const std::byte*>(source),
                                                          static_cast<std::size_t>(count)});
    stream.Position += count;
    return count;
}

sf_count_t Tell(void* user) {
    return StreamOf(user).Position;
}

}  // namespace

SNDFILE* SndfileStream::Open(int mode, SF_INFO& info) {
    SF_VIRTUAL_IO io{Length, Seek, Read, Write, Tell};
    return sf_open_virtual(&io, mode, &info, this);
}

}  // namespace mavrin2::dusoro
