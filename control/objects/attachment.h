#pragma once

#include "automation/com_ptr.h"
#include "automation/guarded.h"

namespace mavrin2::objects {

// A sub-object's tie to the part of the control that it shows. A host may keep a sub-object when
// the control is gone, or make one that never had any: detached, it does nothing.
template <class Part>
class Attachment {
public:
    // `control` is not counted: the control detaches before it goes.
    void Attach(Part& part, IUnknown* control) {
        part_ = &part;
        control_ = control;
    }
    void Detach() {
        part_ = nullptr;
        control_ = nullptr;
    }

    // Runs `act` on the part. The control lives at least as long, whatever a host does in an event.
    template <class Act>
    HRESULT Do(Act&& act) const {
        return automation::Guarded([&] {
            const automation::ComPtr<IUnknown> held(control_);
            if (part_) act(*part_);
        });
    }

    // Stores what `read` finds, or `otherwise` when detached.
    template <class Value, class Reader>
    HRESULT Read(Value* target, Reader&& read, Value otherwise) const {
        if (!target) return E_POINTER;
        *target = otherwise;
        return Do([&](Part& part) { *target = static_cast<Value>(read(part)); });
    }

private:
    Part* part_ = nullptr;
    IUnknown* control_ = nullptr;
};

}  // namespace mavrin2::objects
