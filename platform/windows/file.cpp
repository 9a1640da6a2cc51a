#include "platform/windows/file.h"

#include <algorithm>

namespace mavrin2::platform {
namespace {

// The system counts in 32 bits; a smaller step keeps what is locked in memory small.
constexpr std::size_t kLargestStep = std::size_t{1} << 30;

DWORD StepOf(std::size_t size) {
    return static_cast<DWORD>(std::min(size, kLargestStep));
}

OVERLAPPED At(std::int64_t offset) {
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

}  // namespace

std::unique_ptr<File> WindowsFile::Of(Handle handle) {
    // Pipes and devices have no offsets and may block for ever.
    if (!handle || ::GetFileType(handle.Get()) != FILE_TYPE_DISK) return nullptr;
    return std::make_unique<WindowsFile>(std::move(handle));
}

std::optional<std::size_t> WindowsFile::Read(std::int64_t offset, std::span<std::byte> target) {
    if (offset < 0) return std::nullopt;
    std::size_t done = 0;
    while (done < target.size()) {
        OVERLAPPED place = At(offset + static_cast<std::int64_t>(done));
        DWORD count = 0;
        if (!::ReadFile(handle_.Get(), target.data() + done, StepOf(target.size() - done), &count,
                        &place)) {
            if (::GetLastError() != ERROR_HANDLE_EOF) return std::nullopt;
            break;
        }
        if (count == 0) break;
        done += count;
    }
    return done;
}

bool WindowsFile::Write(std::int64_t offset, std::span<const std::byte> source) {
    // Offsets of all ones mean the file's end to the system.
    if (offset < 0) return false;
    while (!source.empty()) {
        OVERLAPPED place = At(offset);
        DWORD count = 0;
        if (!::WriteFile(handle_.Get(), source.data(), StepOf(source.size()), &count, &place) ||
            count == 0) {
            return false;
        }
        offset += count;
        source = source.subspan(count);
    }
    return true;
}

std::optional<std::int64_t> WindowsFile::Length() {
    LARGE_INTEGER length = {};
    if (!::GetFileSizeEx(handle_.Get(), &length)) return std::nullopt;
    return length.QuadPart;
}

bool WindowsFile::Truncate(std::int64_t length) {
    FILE_END_OF_FILE_INFO end = {};
    end.EndOfFile.QuadPart = length;
    return ::SetFileInformationByHandle(handle_.Get(), FileEndOfFileInfo, &end, sizeof end) != 0;
}

}  // namespace mavrin2::platform
