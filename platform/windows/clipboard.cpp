#include "platform/windows/clipboard.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "platform/automation.h"

namespace mavrin2::platform {
namespace {

// The clipboard, open for a private window, since what is put there needs an owner; it stays
// when the window goes. Programs that watch the clipboard open it for moments, so opening is tried
// for a tenth of a second.
class OpenClipboard {
public:
    OpenClipboard() {
        window_ = ::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    nullptr, nullptr);
        constexpr int attempts = 10;
        for (int i = 0; window_ && i < attempts && !open_; ++i) {
            if (i > 0) ::Sleep(10);
            open_ = ::OpenClipboard(window_) != 0;
        }
    }
    ~OpenClipboard() {
        if (open_) ::CloseClipboard();
        if (window_) ::DestroyWindow(window_);
    }
    OpenClipboard(const OpenClipboard&) = delete;
    OpenClipboard& operator=(const OpenClipboard&) = delete;

    explicit operator bool() const { return open_; }

private:
    HWND window_ = nullptr;
    bool open_ = false;
};

// Movable global memory, owned until the clipboard takes it.
class GlobalBlock {
public:
    explicit GlobalBlock(std::size_t size) : block_(::GlobalAlloc(GMEM_MOVEABLE, size)) {}
    ~GlobalBlock() {
        if (block_) ::GlobalFree(block_);
    }
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;

    bool ReadFrom(File& file, std::size_t size) {
        void* const bytes = block_ ? ::GlobalLock(block_) : nullptr;
        if (!bytes) return false;
        const auto read = file.Read(0, {static_cast<std::byte*>(bytes), size});
        ::GlobalUnlock(block_);
        return read == size;
    }

    bool GiveToClipboard() {
        if (!::SetClipboardData(CF_WAVE, block_)) return false;
        block_ = nullptr;
        return true;
    }

private:
    HGLOBAL block_;
};

// The clipboard's own block, read in place while the clipboard is open.
class ClipboardFile final : public File {
public:
    ClipboardFile() {
        if (open_) block_ = ::GetClipboardData(CF_WAVE);
        if (block_) bytes_ = static_cast<const std::byte*>(::GlobalLock(block_));
    }
    ~ClipboardFile() override {
        if (bytes_) ::GlobalUnlock(block_);
    }
    ClipboardFile(const ClipboardFile&) = delete;
    ClipboardFile& operator=(const ClipboardFile&) = delete;

    bool HasSound() const { return bytes_ != nullptr; }

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        if (offset < 0) return std::nullopt;
        const std::int64_t left = std::max<std::int64_t>(Size() - offset, 0);
        const auto count =
            static_cast<std::size_t>(std::min(left, static_cast<std::int64_t>(target.size())));
        if (count > 0) std::memcpy(target.data(), bytes_ + offset, count);
        return count;
    }
    bool Write(std::int64_t, std::span<const std::byte>) override { return false; }
    std::optional<std::int64_t> Length() override { return Size(); }

private:
    std::int64_t Size() const { return static_cast<std::int64_t>(::GlobalSize(block_)); }

    const OpenClipboard open_;
    HGLOBAL block_ = nullptr;
    const std::byte* bytes_ = nullptr;
};

class SystemClipboard final : public SoundClipboard {
public:
    PutOutcome Put(File& file) override {
        const std::int64_t length = file.Length().value_or(0);
        if (length <= 0 || length > std::numeric_limits<std::ptrdiff_t>::max())
            return PutOutcome::NotRead;
        const auto size = static_cast<std::size_t>(length);
        // Read first: reading takes longer than others should wait for the clipboard.
        GlobalBlock block(size);
        if (!block.ReadFrom(file, size)) return PutOutcome::NotRead;
        const OpenClipboard open;
        if (!open || !::EmptyClipboard() || !block.GiveToClipboard())
            return PutOutcome::Unavailable;
        return PutOutcome::Done;
    }

    std::unique_ptr<File> Open() override {
        auto sound = std::make_unique<ClipboardFile>();
        if (!sound->HasSound()) return nullptr;
        return sound;
    }
};

}  // namespace

std::shared_ptr<SoundClipboard> WindowsClipboard() {
    return std::make_shared<SystemClipboard>();
}

}  // namespace mavrin2::platform
