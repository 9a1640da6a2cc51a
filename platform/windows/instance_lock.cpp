#include "platform/windows/instance_lock.h"

#include "platform/windows/handle.h"

namespace mavrin2::platform {
namespace {

// A named mutex whose being there says that somebody lives: it is never owned, and goes with the
// last handle, also of a process that crashed. Looking whether it was there already means closing
// one's own and making it again, so a second mutex, the gate, is owned meanwhile, and as long as
// somebody is sole; who wants to live goes through it first. A gate belongs to a thread: on the
// thread of a sole instance others do not wait, which would be for ever.
class Holder {
public:
    explicit Holder(const std::wstring& name) : name_(name), gate_(Mutex(name + L".gate")) {
        const bool entered = Enter(INFINITE);
        alive_ = Handle(Mutex(name_));
        if (entered) Leave();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool BecomeSole() {
        if (sole_ || !alive_ || !Enter(0)) return false;
        alive_.Close();
        alive_ = Handle(Mutex(name_));
        sole_ = alive_ && ::GetLastError() != ERROR_ALREADY_EXISTS;
        if (!sole_) Leave();
        return sole_;
    }

    void EndSole() {
        sole_ = false;
        Leave();
    }

private:
    // The least rights, so that a process may hold what a more powerful one of its user has made.
    static Handle Mutex(const std::wstring& name) {
        ::SetLastError(ERROR_SUCCESS);
        return Handle(::CreateMutexExW(nullptr, name.c_str(), 0, SYNCHRONIZE | MUTEX_MODIFY_STATE));
    }

    // A gate whose owner has crashed is as good as one that was left.
    bool Enter(DWORD patience) {
        if (!gate_) return false;
        const DWORD outcome = ::WaitForSingleObject(gate_.Get(), patience);
        return outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
    }
    void Leave() { ::ReleaseMutex(gate_.Get()); }

    std::wstring name_;
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
