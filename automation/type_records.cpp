#include "automation/type_records.h"

#include <cstddef>
#include <new>
#include <vector>

#include "automation/guarded.h"
#include "automation/variant.h"

namespace mavrin2::automation {
namespace {

// Places records one after the other in one block of memory.
class Block {
public:
    explicit Block(std::size_t bytes) : start_(static_cast<std::byte*>(CoTaskMemAlloc(bytes))) {
        if (!start_) throw std::bad_alloc();
        next_ = start_;
    }

    template <class Record>
    Record* Take(std::size_t count = 1) {
        auto* records = reinterpret_cast<Record*>(next_);
        for (std::size_t i = 0; i < count; ++i)
            new (&records[i]) Record{};
        next_ += Room<Record>(count);
        return records;
    }

    template <class Record>
    static constexpr std::size_t Room(std::size_t count = 1) {
        constexpr std::size_t step = alignof(std::max_align_t);
        return (sizeof(Record) * count + step - 1) / step * step;
    }

private:
    std::byte* start_;
    std::byte* next_;
};

// A parameter's type needs at most this many further records: pointer, object or array element.
constexpr std::size_t kNestedTypes = 2;

void Describe(const ValueType& value, TYPEDESC& type, Block& block,
              const TypeReferences& references) {
    if (value.Type & VT_ARRAY) {
        type.vt = VT_SAFEARRAY;
        type.lptdesc = block.Take<TYPEDESC>();
        type.lptdesc->vt = static_cast<VARTYPE>(value.Type & ~VT_ARRAY);
    } else if (value.Enumeration) {
        type.vt = VT_USERDEFINED;
        type.hreftype = references.OfEnumeration(value.Enumeration());
    } else if (value.Interface) {
        type.vt = VT_PTR;
        type.lptdesc = block.Take<TYPEDESC>();
        type.lptdesc->vt = VT_USERDEFINED;
        type.lptdesc->hreftype = references.OfInterface(value.Interface());
    } else {
        type.vt = value.Type;
    }
}

USHORT FlagsOf(const ParameterDescription& parameter) {
    switch (parameter.Way) {
        case Direction::Result:
            return PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
        case Direction::Out:
            return PARAMFLAG_FOUT;
        case Direction::InOut:
            return PARAMFLAG_FIN | PARAMFLAG_FOUT;
        case Direction::In:
            break;
    }
    return static_cast<USHORT>(
        PARAMFLAG_FIN | (parameter.IsOptional() ? PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT : 0));
}

void DescribeDefault(const ParameterDescription& parameter, ELEMDESC& element, Block& block) {
    auto* extra = block.Take<PARAMDESCEX>();
    extra->cBytes = sizeof *extra;
    Variant value = parameter.MakeDefault();
    extra->varDefaultValue = value;
    VariantInit(&value);  // the record owns it now
    element.paramdesc.pparamdescex = extra;
}

}  // namespace

FUNCDESC* MakeFunctionRecord(const MemberDescription& member, bool events,
                             const TypeReferences& references) {
    // The result is the function's type, as callers of a dispatch interface see it.
    std::size_t count = member.Parameters.size();
    const bool hasResult = count > 0 && member.Parameters.back().Way == Direction::Result;
    if (hasResult) --count;

    Block block(Block::Room<FUNCDESC>() + Block::Room<ELEMDESC>(count) +
                (count + 1) *
                    (kNestedTypes * Block::Room<TYPEDESC>() + Block::Room<PARAMDESCEX>()));
    auto* record = block.Take<FUNCDESC>();
    record->memid = member.Id;
    record->funckind = FUNC_DISPATCH;
    record->invkind = member.Kind;
    record->callconv = CC_STDCALL;
    record->cParams = static_cast<SHORT>(count);
    record->oVft = static_cast<SHORT>(events ? 0 : member.Slot * static_cast<int>(sizeof(void*)));
    record->lprgelemdescParam = block.Take<ELEMDESC>(count);
    record->elemdescFunc.tdesc.vt = VT_VOID;
    if (hasResult)
        Describe(member.Parameters.back().Type, record->elemdescFunc.tdesc, block, references);
    for (std::size_t i = 0; i < count; ++i) {
        const ParameterDescription& parameter = member.Parameters[i];
        ELEMDESC& element = record->lprgelemdescParam[i];
        TYPEDESC* type = &element.tdesc;
        if (parameter.Way != Direction::In || parameter.ByAddress) {
            type->vt = VT_PTR;
            type->lptdesc = block.Take<TYPEDESC>();
            type = type->lptdesc;
        }
        Describe(parameter.Type, *type, block, references);
        element.paramdesc.wParamFlags = FlagsOf(parameter);
        if (parameter.IsOptional()) DescribeDefault(parameter, element, block);
    }
    return record;
}

VARDESC* MakeConstantRecord(const EnumerationDescription::Member& member, MEMBERID id) {
    Block block(Block::Room<VARDESC>() + Block::Room<VARIANT>());
    auto* record = block.Take<VARDESC>();
    record->memid = id;
    record->varkind = VAR_CONST;
    record->elemdescVar.tdesc.vt = VT_I4;
    record->lpvarValue = block.Take<VARIANT>();
    record->lpvarValue->vt = VT_I4;
    record->lpvarValue->lVal = member.Value;
    return record;
}

void ReleaseRecord(FUNCDESC* function) {
    for (SHORT i = 0; function && i < function->cParams; ++i)
        if (PARAMDESCEX* extra = function->lprgelemdescParam[i].paramdesc.pparamdescex)
            VariantClear(&extra->varDefaultValue);
    CoTaskMemFree(function);
}

void ReleaseRecord(VARDESC* constant) {
    CoTaskMemFree(constant);
}

}  // namespace mavrin2::automation
