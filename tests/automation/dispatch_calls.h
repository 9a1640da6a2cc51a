#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "tests/automation/late_call.h"
#include "tests/automation/thing.h"
#include "tests/automation/ways_to_call.h"

namespace mavrin2::tests {

using Raw = LateCall::AsTheyAre;
using Values = std::vector<Value>;

inline constexpr WORD kCall = DISPATCH_METHOD;
inline constexpr WORD kGet = DISPATCH_PROPERTYGET;
inline constexpr WORD kPut = DISPATCH_PROPERTYPUT;
inline constexpr DISPID kNewValue = DISPID_PROPERTYPUT;

struct CallCase {
    const char* Why;
    const char* Member;
    Values Arguments;
    std::vector<DISPID> Named;
    HRESULT Status;
    Value Result;
    UINT BadArgument = LateCall::kNone;
};

// Calls of one thing that go one of the ways.
class Calls {
protected:
    explicit Calls(const WayToCall& way) : way_(way), object_(way.To(*thing_)) {}
    ~Calls() {
        object_.Reset();
        thing_.Reset();
        EXPECT_EQ(TestThing::Alive(), 0);
    }

    IDispatch& Object() { return *object_; }
    void Check(std::span<const CallCase> cases) {
        for (const CallCase& one : cases) {
            SCOPED_TRACE(std::string(one.Member) + ": " + one.Why);
            const LateCall call(Object(), one.Member, kCall, one.Arguments, one.Named);
            EXPECT_EQ(call.Status, one.Status);
            EXPECT_EQ(FromVariant(call.Result), one.Result);
            if (way_.TellsWhichArgumentIsWrong) {
                EXPECT_EQ(call.BadArgument, one.BadArgument);
            }
        }
    }

    WayToCall way_;
    automation::ComPtr<TestThing> thing_ = TestThing::Make();
    automation::ComPtr<IDispatch> object_;
};

}  // namespace mavrin2::tests
