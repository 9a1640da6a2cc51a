#include "platform/windows/instance_lock.h"

#include <vector>

#include "platform/windows/handle.h"

// After windows.h, which it builds on.
#include <sddl.h>

namespace mavrin2::platform {
namespace {

// Longer than any cleaning up takes. A process that has the gate for longer hangs, or is another
// user's that took the name to make this one wait.
constexpr DWORD kLongestCleaning = 10'000;

struct LocalFreer {
    void operator()(void* memory) const { ::LocalFree(memory); }
};

// The identifier of the user whose process this is; empty when unknown.
std::wstring UserId() {
    HANDLE opened = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened)) return {};
    const Handle token(opened);
    DWORD size = 0;
    ::GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
    std::vector<std::byte> room(size);
    wchar_t* text = nullptr;
    if (!::GetTokenInformation(token.Get(), TokenUser, room.data(), size, &size) ||
        !::ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(room.data())->User.Sid, &text))
        return {};
    const std::unique_ptr<wchar_t, LocalFreer> owned(text);
    return text;
}

// A mutex of the user's, in all sessions, by a name of the product. Others are kept out, while
// every process of the user is let in, also where a more powerful one of them made the mutex.
class UserMutexes {
public:
    explicit UserMutexes(const std::wstring& product) : user_(UserId()) {
        name_ = (user_.empty() ? L"Local\\" : L"Global\\") + product +
                (user_.empty() ? L"" : L"." + user_);
        void* rights = nullptr;
        if (!user_.empty() &&
            ::ConvertStringSecurityDescriptorToSecurityDescriptorW(
                (L"D:(A;;0x1F0001;;;" + user_ + L")").c_str(), SDDL_REVISION_1, &rights, nullptr))
            rights_.reset(rights);
    }

    // Sets the last error to ERROR_ALREADY_EXISTS where it was there.
    Handle Open(const wchar_t* which = L"") const {
        SECURITY_ATTRIBUTES attributes = {sizeof attributes, rights_.get(), FALSE};
        ::SetLastError(ERROR_SUCCESS);
        return Handle(::CreateMutexExW(rights_ ? &attributes : nullptr, (name_ + which).c_str(), 0,
                                       SYNCHRONIZE | MUTEX_MODIFY_STATE));
    }

private:
    std::wstring user_;
    std::wstring name_;
    std::unique_ptr<void, LocalFreer> rights_;
};

// A named mutex whose existence shows a living process: it is never owned, and goes with the
// last handle, also of a process that crashed. Looking whether it was there already means closing
// one's own and making it again, so a second mutex, the gate, is owned meanwhile, and as long as
// somebody is sole; who wants to live goes through it first. A gate belongs to a thread: on the
// thread of a sole instance others do not wait, which would be for ever.
class Holder {
public:
    explicit Holder(const std::wstring& name) : mutexes_(name), gate_(mutexes_.Open(L".gate")) {
        const bool entered = Enter(kLongestCleaning);
        alive_ = mutexes_.Open();
        if (entered) Leave();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool BecomeSole() {
        if (sole_ || !alive_ || !Enter(0)) return false;
        alive_.Close();
        alive_ = mutexes_.Open();
        sole_ = alive_ && ::GetLastError() != ERROR_ALREADY_EXISTS;
        if (!sole_) Leave();
        return sole_;
    }

    void EndSole() {
        sole_ = false;
        Leave();
    }

private:
    // A gate whose owner has crashed is as good as one that was left.
    bool Enter(DWORD patience) {
        if (!gate_) return false;
        const DWORD outcome = ::WaitForSingleObject(gate_.Get(), patience);
        return outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
    }
    void Leave() { ::ReleaseMutex(gate_.Get()); }

    UserMutexes mutexes_;
    Handle gate_;
    Handle alive_;
    bool sole_ = false;
};

class WindowsSole final : public InstanceLock::Sole {
public:
    explicit WindowsSole(std::shared_ptr<Holder> holder) : holder_(std::move(holder)) {}
    ~WindowsSole() override { holder_->EndSole(); }
    WindowsSole(const WindowsSole&) = delete;
    WindowsSole& operator=(const WindowsSole&) = delete;

private:
    std::shared_ptr<Holder> holder_;
};

class WindowsLock final : public InstanceLock {
public:
    explicit WindowsLock(const std::wstring& name) : holder_(std::make_shared<Holder>(name)) {}

    std::unique_ptr<Sole> TryBecomeSole() override {
        if (!holder_->BecomeSole()) return nullptr;
        return std::make_unique<WindowsSole>(holder_);
    }

private:
    std::shared_ptr<Holder> holder_;
};

}  // namespace

std::unique_ptr<InstanceLock> WindowsInstanceLock(const std::wstring& name) {
    return std::make_unique<WindowsLock>(name);
}

}  // namespace mavrin2::platform
