#include "platform/windows/file_system.h"

#include <algorithm>
#include <string>

#include "platform/windows/file.h"

namespace mavrin2::platform {
namespace {

// Others may do what they like with an open file, removing it included.
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Handle OpenPath(const std::filesystem::path& path, DWORD access, DWORD disposition,
                DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    return Handle(
        ::CreateFileW(path.c_str(), access, kShareAll, nullptr, disposition, flags, nullptr));
}

bool IsFolderPath(const std::filesystem::path& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Whether a handle opened without following is a link to another name, as a symbolic link is.
bool IsLink(const Handle& handle) {
    FILE_ATTRIBUTE_TAG_INFO information = {};
    return ::GetFileInformationByHandleEx(handle.Get(), FileAttributeTagInfo, &information,
                                          sizeof(information)) &&
           (information.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(information.ReparseTag);
}

// Names compare as the system compares them, for the letters that prefixes and suffixes are made
// of.
bool EqualInAnyCase(std::wstring_view name, std::string_view ascii) {
    const auto lower = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
    };
    return std::ranges::equal(name, ascii, [&](wchar_t a, char b) {
        return lower(a) == lower(static_cast<unsigned char>(b));
    });
}

std::filesystem::path FullPath(const std::filesystem::path& path) {
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        const bool fits = length < full.size();
        full.resize(length);
        if (fits) return full;
    }
}

struct FindCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { ::FindClose(search); }
};

class WindowsFiles final : public FileSystem {
public:
    std::unique_ptr<File> OpenForReading(const std::filesystem::path& path) override {
        return WindowsFile::Of(OpenPath(path, GENERIC_READ, OPEN_EXISTING));
    }

    std::unique_ptr<File> OpenForUpdate(const std::filesystem::path& path) override {
        return WindowsFile::Of(OpenPath(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
    }

    std::unique_ptr<File> Create(const std::filesystem::path& path) override {
        // Opened and emptied rather than made anew, which would go through a link.
        Handle handle = OpenPath(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT);
        if (!handle || IsLink(handle)) return nullptr;
        if (::GetFileType(handle.Get()) == FILE_TYPE_DISK && !::SetEndOfFile(handle.Get()))
            return nullptr;
        return WindowsFile::Of(std::move(handle));
    }

    std::filesystem::path CreateUniqueFile(const std::filesystem::path& folder,
                                           std::string_view prefix) override {
        if (folder.empty()) return {};
        const std::wstring begin(prefix.begin(), prefix.end());
        wchar_t path[MAX_PATH + 1] = {};
        if (::GetTempFileNameW(folder.c_str(), begin.c_str(), 0, path) == 0) return {};
        return path;
    }

    bool Remove(const std::filesystem::path& path) override {
        return ::DeleteFileW(path.c_str()) != 0;
    }

    bool IsFolder(const std::filesystem::path& path) override { return IsFolderPath(path); }

    std::vector<std::filesystem::path> List(const std::filesystem::path& folder,
                                            std::string_view prefix,
                                            std::string_view suffix) override {
        std::vector<std::filesystem::path> found;
        WIN32_FIND_DATAW entry = {};
        HANDLE search = ::FindFirstFileExW((folder / "*").c_str(), FindExInfoBasic, &entry,
                                           FindExSearchNameMatch, nullptr, 0);
        if (search == INVALID_HANDLE_VALUE) return found;
        const std::unique_ptr<HANDLE, FindCloser> closer(search);
        do {
            constexpr DWORD noFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
            const std::wstring_view name = entry.cFileName;
            if ((entry.dwFileAttributes & noFile) == 0 &&
                name.size() >= prefix.size() + suffix.size() &&
                EqualInAnyCase(name.substr(0, prefix.size()), prefix) &&
                EqualInAnyCase(name.substr(name.size() - suffix.size()), suffix)) {
                found.push_back(folder / name);
            }
        } while (::FindNextFileW(search, &entry));
        std::sort(found.begin(), found.end());
        return found;
    }

    std::filesystem::path UsableFolder(const std::filesystem::path& folder) override {
        if (folder.empty()) return {};
        std::filesystem::path path = FullPath(folder);
        // What the system asks of a folder that becomes a process's current one.
        if (path.empty() || !IsFolderPath(path) ||
            !OpenPath(path, FILE_TRAVERSE | SYNCHRONIZE, OPEN_EXISTING,
                      FILE_FLAG_BACKUP_SEMANTICS)) {
            return {};
        }
        return path / "";
    }

    std::filesystem::path TemporaryFolder() override {
        wchar_t path[MAX_PATH + 2] = {};
        const DWORD length = ::GetTempPathW(static_cast<DWORD>(std::size(path)), path);
        if (length == 0 || length >= std::size(path)) return {};
        // It is in the user's own profile; the system names it without making it.
        if (!IsFolderPath(path) && !::CreateDirectoryW(path, nullptr)) return {};
        return path;
    }

    bool IsOnCdDrive(const std::filesystem::path& path) override {
        wchar_t volume[MAX_PATH + 1] = {};
        return ::GetVolumePathNameW(path.c_str(), volume, static_cast<DWORD>(std::size(volume))) &&
               ::GetDriveTypeW(volume) == DRIVE_CDROM;
    }

    std::filesystem::path DriveOf(const std::filesystem::path& path) override {
        return path.root_name();
    }
};

}  // namespace

std::shared_ptr<FileSystem> WindowsFileSystem() {
    return std::make_shared<WindowsFiles>();
}

}  // namespace mavrin2::platform
