#include "companions/ontiva/info_files.h"

#include <algorithm>
#include <vector>

namespace mavrin2::ontiva {
namespace {

std::span<const std::byte> BytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

// The system copies from whole pages of memory to whole pages of a file faster than otherwise.
struct alignas(4096) Page {
    char Bytes[4096];
};

}  // namespace

std::unique_ptr<platform::File> InfoFiles::Open(const std::filesystem::path& path) const {
    auto file = files_->OpenForReading(path);
    if (!file) throw FileFault("cannot open the file");
    return file;
}

SoundInfo InfoFiles::Read(const std::filesystem::path& path) const {
    const auto file = Open(path);
    EditedFile edited(*file);
    const auto format = FormatOf(edited, *libraries_);
    return format ? format->Read(edited) : SoundInfo();
}

void InfoFiles::Write(const std::filesystem::path& path, const SoundInfo& info) const {
    const auto file = Open(path);
    EditedFile edited(*file);
    const auto format = FormatOf(edited, *libraries_);
    if (!format) {
        if (info.Empty()) return;
        throw NotWritable("files of this kind have no tags or markers");
    }
    const auto edit = format->Write(edited, info);
    if (edit) return WriteInPlace(path, edited.Length(), *edit);
    if (edited.IsEdited()) Replace(path, edited);
}

void InfoFiles::WriteInPlace(const std::filesystem::path& path, std::int64_t length,
                             const TailEdit& edit) const {
    const auto file = files_->OpenForUpdate(path);
    if (!file) throw FileFault("cannot write to the file");
    const EditedFile before(*file);
    std::vector<TailEdit::Switch> undo;
    for (const auto& [offset, bytes] : edit.Switches)
        if (offset < length)
            undo.push_back({offset, before.Bytes(offset, static_cast<std::int64_t>(bytes.size()))});
    bool written = file->Write(length, BytesOf(edit.Tail));
    for (const auto& [offset, bytes] : edit.Switches)
        written = written && file->Write(offset, BytesOf(bytes));
    if (written) return;
    // What was appended may go only if nothing refers to it.
    bool undone = true;
    for (const auto& [offset, bytes] : undo)
        undone = undone && file->Write(offset, BytesOf(bytes));
    if (undone) file->Truncate(length);
    throw FileFault("cannot write to the file");
}

void InfoFiles::Replace(const std::filesystem::path& path, const EditedFile& file) const {
    constexpr std::size_t kPages = 64;
    std::error_code error;
    const auto target = replacements_->Create(path, error);
    if (!target) throw FileFault("cannot write a new file: " + error.message());
    std::vector<Page> pages(kPages);
    const std::span block(pages[0].Bytes, sizeof(Page) * kPages);
    for (std::int64_t done = 0; done < file.Length();) {
        const std::size_t count = file.Read(done, block);
        if (!target->Write(done, std::as_bytes(block.first(count)))) break;
        done += static_cast<std::int64_t>(count);
    }
    if (const auto failed = target->Commit())
        throw FileFault("cannot write a new file: " + failed.message());
}

}  // namespace mavrin2::ontiva
