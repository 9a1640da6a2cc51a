#pragma once

#include "automation/interface_description.h"

namespace mavrin2::automation {

// The records in which type information is handed out. Each is one allocation with all it points
// to, texts apart, that its reader gives back through ReleaseRecord. They throw std::bad_alloc.

// Finds the place of a type in its library, as the reader will ask for it (HREFTYPE).
class TypeReferences {
public:
    virtual ~TypeReferences() = default;
    virtual HREFTYPE OfEnumeration(const EnumerationDescription& enumeration) const = 0;
    virtual HREFTYPE OfInterface(const InterfaceDescription& description) const = 0;
};

FUNCDESC* MakeFunctionRecord(const MemberDescription& member, bool events,
                             const TypeReferences& references);
VARDESC* MakeConstantRecord(const EnumerationDescription::Member& member, MEMBERID id);
void ReleaseRecord(FUNCDESC* function);
void ReleaseRecord(VARDESC* constant);

}  // namespace mavrin2::automation
