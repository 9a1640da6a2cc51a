#include "platform/memory/memory_instance_locks.h"

#include <condition_variable>
#include <mutex>

namespace mavrin2::platform {

struct MemoryInstanceLocks::World {
    std::mutex Guard;
    std::condition_variable SoleEnded;
    int Locks = 0;
    bool HasSole = false;
};

class MemoryInstanceLocks::MemorySole final : public InstanceLock::Sole {
public:
    explicit MemorySole(std::shared_ptr<World> world) : world_(std::move(world)) {}
    ~MemorySole() override {
        const std::lock_guard guard(world_->Guard);
        world_->HasSole = false;
        world_->SoleEnded.notify_all();
    }
    MemorySole(const MemorySole&) = delete;
    MemorySole& operator=(const MemorySole&) = delete;

private:
    std::shared_ptr<World> world_;
};

class MemoryInstanceLocks::Lock final : public InstanceLock {
public:
    explicit Lock(std::shared_ptr<World> world) : world_(std::move(world)) {
        std::unique_lock guard(world_->Guard);
        world_->SoleEnded.wait(guard, [this] { return !world_->HasSole; });
        ++world_->Locks;
    }
    ~Lock() override {
        const std::lock_guard guard(world_->Guard);
        --world_->Locks;
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    std::unique_ptr<Sole> TryBecomeSole() override {
        const std::lock_guard guard(world_->Guard);
        if (world_->Locks != 1 || world_->HasSole) return nullptr;
        world_->HasSole = true;
        return std::make_unique<MemorySole>(world_);
    }

private:
    std::shared_ptr<World> world_;
};

MemoryInstanceLocks::MemoryInstanceLocks() : world_(std::make_shared<World>()) {}

std::unique_ptr<InstanceLock> MemoryInstanceLocks::New() {
    return std::make_unique<Lock>(world_);
}

int MemoryInstanceLocks::Alive() const {
    const std::lock_guard guard(world_->Guard);
    return world_->Locks;
}

}  // namespace mavrin2::platform
