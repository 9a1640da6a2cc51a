#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"
#include "hosts/binding/late_binding.h"
#include "hosts/binding/type_description.h"

namespace mavrin2::script {

// A call of one of the control's operations or of a choice it offers, as a command line gives it.
struct OperationCall {
    std::string Text;  // as it was given
    std::string Name;
    DISPID Member;
    std::vector<automation::Variant> Arguments;
};

// The operations of one of the control's objects, known by its description.
class Operations {
public:
    // How users name them.
    struct Naming {
        std::string Kind;      // of thing, as messages call one
        std::string Prefix;    // that the members have in common and users leave out
        std::string ListedBy;  // what shows all of them
    };
    Operations(binding::LateBound object, Naming naming);

    // Reads `Name` or `Name=VALUE,VALUE…`. A value is a number, the name of a constant or, for an
    // array, numbers with colons between them. Throws UsageError.
    OperationCall Parse(std::string_view text) const;

    // Runs an operation; how it went is in the control's LastErrorNum. Throws CallError.
    void Run(OperationCall& call) const;

    // `Name=parameter,parameter…` and the help of each operation, in their order.
    struct Line {
        std::string Usage;
        std::string Help;
    };
    std::vector<Line> List() const;

private:
    automation::Variant ValueOf(const binding::DescribedMember& member,
                                const binding::DescribedParameter& parameter,
                                std::string_view text) const;

    bool IsOffered(const binding::DescribedMember& member) const;
    std::string UsageOf(const binding::DescribedMember& member) const;

    binding::LateBound object_;
    Naming naming_;
    binding::TypeDescription description_;
    std::vector<binding::Constant> constants_;
};

}  // namespace mavrin2::script
