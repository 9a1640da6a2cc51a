#pragma once

#include <atomic>
#include <filesystem>
#include <span>

#include "automation/interface_description.h"
#include "platform/automation.h"

namespace mavrin2::automation {

// One class that a module offers: how it is made and how it is registered.
struct ClassEntry {
    CLSID Id;
    // A new object, alone or aggregated by `outer`, as a standard class factory makes it.
    HRESULT (*Create)(IUnknown* outer, REFIID iid, void** object);
    const char* Description;
    const char* VersionedProgId;
    const char* ProgId;
    const char* ThreadingModel;  // "Apartment" or "both"
    bool Programmable = false;   // has the keys CurVer, Programmable and TypeLib
    bool Control = false;        // has the keys of a visual control
};

// What a module holds. Each component defines it, once.
struct ModuleContents {
    std::span<const ClassEntry> Classes;
    const LibraryDescription& (*Library)();
};
const ModuleContents& ThisModule();

// Counts what keeps a module loaded: its objects, its class objects in use, server locks.
class ModuleLocks {
public:
    static ModuleLocks& OfThisModule();

    void Add() { ++count_; }
    void Remove() { --count_; }
    bool None() const { return count_ == 0; }

private:
    std::atomic<LONG> count_ = 0;
};

class ModuleLock {
public:
    ModuleLock() { ModuleLocks::OfThisModule().Add(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
    ~ModuleLock() { ModuleLocks::OfThisModule().Remove(); }
};

// The four entry points that the system calls.
HRESULT GetClassObject(const ModuleContents& module, REFCLSID id, REFIID iid, void** object);
HRESULT CanUnloadNow();
HRESULT RegisterModule(const ModuleContents& module);
HRESULT UnregisterModule(const ModuleContents& module);

}  // namespace mavrin2::automation
