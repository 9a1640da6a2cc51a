#pragma once

#include <taglib/tfile.h>
#include <taglib/tiostream.h>

#include "companions/ontiva/files/edited_file.h"

namespace mavrin2::ontiva {

// An edited file as TagLib sees files, from `start` on. What fails is kept until Check, since
// nothing may be thrown through the library.
class EditedStream final : public TagLib::IOStream {
public:
    explicit EditedStream(EditedFile& file, std::int64_t start = 0) : file_(file), start_(start) {}

    // Throws FileFault if anything has failed.
    void Check() const {
        if (failed_) throw FileFault("cannot read the file");
    }

    TagLib::FileName name() const override { return ""; }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector& data) override;
    void insert(const TagLib::ByteVector& data, unsigned long start,
                unsigned long replace) override;
    void removeBlock(unsigned long start, unsigned long length) override;
    bool readOnly() const override { return false; }
    bool isOpen() const override { return true; }
    void seek(long offset, Position from) override;
    long tell() const override { return position_; }
    long length() override { return static_cast<long>(file_.Length() - start_); }
    void truncate(long length) override;

private:
    void Replace(std::int64_t offset, std::int64_t count, std::string_view bytes);

    EditedFile& file_;
    std::int64_t start_;
    long position_ = 0;
    bool failed_ = false;
};

// What TagLib's tags at the end of a file are read through.
class StreamFile final : public TagLib::File {
public:
    explicit StreamFile(TagLib::IOStream& stream) : File(&stream) {}

    TagLib::Tag* tag() const override { return nullptr; }
    TagLib::AudioProperties* audioProperties() const override { return nullptr; }
    bool save() override { return false; }
};

}  // namespace mavrin2::ontiva
