#include "companions/ontiva/backends/taglib/edited_stream.h"

#include "companions/ontiva/backends/taglib/conversions.h"

namespace mavrin2::ontiva {

TagLib::ByteVector EditedStream::readBlock(unsigned long length) {
    std::string bytes;
    try {
        const auto most = static_cast<unsigned long>(file_.Length());
        bytes = file_.Bytes(start_ + position_, static_cast<std::int64_t>(std::min(length, most)));
    } catch (...) {
        failed_ = true;
    }
    position_ += static_cast<long>(bytes.size());
    return ToVector(bytes);
}

void EditedStream::Replace(std::int64_t offset, std::int64_t count, std::string_view bytes) {
    try {
        file_.Replace(start_ + offset, count, bytes);
    } catch (...) {
        failed_ = true;
    }
}

void EditedStream::writeBlock(const TagLib::ByteVector& data) {
    const std::string bytes = ToBytes(data);
    Replace(position_, static_cast<std::int64_t>(bytes.size()), bytes);
    position_ += static_cast<long>(bytes.size());
}

void EditedStream::insert(const TagLib::ByteVector& data, unsigned long start,
                          unsigned long replace) {
    Replace(static_cast<std::int64_t>(start), static_cast<std::int64_t>(replace), ToBytes(data));
}

void EditedStream::removeBlock(unsigned long start, unsigned long length) {
    Replace(static_cast<std::int64_t>(start), static_cast<std::int64_t>(length), {});
}

void EditedStream::seek(long offset, Position from) {
    const long base = from == Current ? position_ : from == End ? length() : 0;
    position_ = std::max(0L, base + offset);
}

void EditedStream::truncate(long length) {
    Replace(length, file_.Length() - start_ - length, {});
}

}  // namespace mavrin2::ontiva
