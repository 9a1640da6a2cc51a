#include "hosts/script/lua/lua_call.h"

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "automation/variant.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/lua/file_error.h"
#include "hosts/script/lua/lua_object.h"
#include "hosts/script/lua/lua_value.h"

namespace mavrin2::script {
namespace {

using automation::Variant;

bool IsLeftOut(const VARIANT& value) {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

// The arguments of one call in the order of declaration.
class Arguments {
public:
    Arguments(lua_State* lua, const binding::DescribedMember& member, int first)
        : lua_(lua), member_(member), values_(member.Parameters.size()) {
        int next = first;
        for (std::size_t i = 0; i < values_.size(); ++i) {
            const binding::DescribedParameter& parameter = member.Parameters[i];
            if (parameter.In) Take(next++, parameter, values_[i]);
            passed_.push_back(parameter.Out || parameter.ByAddress ? ByReference(i) : values_[i]);
        }
        if (const int given = lua_gettop(lua) - first + 1; given > next - first)
            throw binding::CallError(DISP_E_BADPARAMCOUNT, member.Name + ": too many arguments (" +
                                                               std::to_string(given) +
                                                               ", at most " +
                                                               std::to_string(next - first) + ").");
        while (!passed_.empty() && IsLeftOut(passed_.back()))
            passed_.pop_back();
    }

    std::span<VARIANT> Passed() { return passed_; }

    // The file that the call is about; empty without one.
    std::string File() const {
        for (std::size_t i = 0; i < values_.size(); ++i)
            if (values_[i].vt == VT_BSTR &&
                automation::AsciiLower(member_.Parameters[i].Name).starts_with("file"))
                return automation::ToUtf8(automation::Bstr::View(values_[i].bstrVal));
        return {};
    }

    int PushResults() {
        int count = 0;
        for (std::size_t i = 0; i < values_.size(); ++i) {
            if (!member_.Parameters[i].Out) continue;
            PushVariant(lua_, values_[i]);
            ++count;
        }
        return count;
    }

private:
    void Take(int index, const binding::DescribedParameter& parameter, Variant& value) {
        const bool given = index <= lua_gettop(lua_);
        const bool nothing = !given || lua_isnil(lua_, index);
        const bool meansNull =
            given && (parameter.Type.IsObject() || parameter.Type.Type == VT_VARIANT);
        if (nothing && (parameter.Optional || !meansNull)) {
            if (!parameter.Optional)
                throw binding::CallError(
                    DISP_E_PARAMNOTOPTIONAL,
                    member_.Name + ": missing argument " + parameter.Name + ".");
            value.vt = VT_ERROR;
            value.scode = DISP_E_PARAMNOTFOUND;
            return;
        }
        try {
            value = ToVariant(lua_, index, parameter.Type);
        } catch (const ConversionError& error) {
            throw binding::CallError(
                DISP_E_TYPEMISMATCH,
                member_.Name + ": argument " + parameter.Name + ": " + error.what() + ".");
        }
    }

    // The address of a value of the parameter's own type, which every component accepts.
    VARIANT ByReference(std::size_t i) {
        const binding::DescribedParameter& parameter = member_.Parameters[i];
        Variant& value = values_[i];
        const VARTYPE type = parameter.Type.Type;
        if (parameter.In && IsLeftOut(value)) return value;
        VARIANT reference;
        VariantInit(&reference);
        reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
        reference.byref = type == VT_VARIANT ? static_cast<void*>(&value) : &value.llVal;
        if (type == VT_VARIANT) return reference;
        if (!parameter.In) {
            value.llVal = 0;
            value.vt = type;
        } else if (value.vt != type && FAILED(VariantChangeType(&value, &value, 0, type))) {
            throw binding::CallError(DISP_E_TYPEMISMATCH, member_.Name + ": argument " +
                                                              parameter.Name + ": " +
                                                              parameter.Type.Name + " expected.");
        }
        return reference;
    }

    lua_State* lua_;
    const binding::DescribedMember& member_;
    std::vector<Variant> values_;
    std::vector<VARIANT> passed_;
};

// Tells the host what is being saved, while it is.
class RunningSave {
public:
    RunningSave(LuaHost& host, const std::string& file)
        : host_(host), before_(host.Save()), save_(file) {
        host_.SetSave(&save_);
    }
    RunningSave(const RunningSave&) = delete;
    RunningSave& operator=(const RunningSave&) = delete;
    ~RunningSave() { host_.SetSave(before_); }

private:
    LuaHost& host_;
    InterruptedSave* before_;
    InterruptedSave save_;
};

Variant Call(lua_State* lua, IDispatch& object, const binding::DescribedMember& member,
             Arguments& arguments) {
    const RunningSave save(LuaHost::Of(lua),
                           member.Name.starts_with("Save") ? arguments.File() : std::string());
    try {
        // Kinds of members and kinds of calls have the same values.
        return binding::Invoke(
            object, {member.Name, member.Id, static_cast<WORD>(member.Kind), arguments.Passed()});
    } catch (const binding::CallError& error) {
        std::string file = arguments.File();
        if (file.empty()) throw;
        std::string reason = SystemReason(file, member.Name.starts_with("Save"));
        throw FileError(error, std::move(file), std::move(reason));
    }
}

// The member that writes the property: by reference if an object is given and the property allows
// it.
const binding::DescribedMember& Settable(lua_State* lua, const binding::TypeDescription& type,
                                         std::string_view name) {
    const binding::DescribedMember* value = type.Find(name, INVOKE_PROPERTYPUT);
    const binding::DescribedMember* reference = type.Find(name, INVOKE_PROPERTYPUTREF);
    if (reference && (!value || ToObject(lua, -1))) return *reference;
    if (value) return *value;
    const binding::DescribedMember* other = type.Find(name, binding::kAnyKind);
    if (!other)
        throw binding::CallError(DISP_E_UNKNOWNNAME,
                                 type.Name() + " has no member '" + std::string(name) + "'.");
    throw binding::CallError(DISP_E_MEMBERNOTFOUND,
                             type.Name() + "." + other->Name +
                                 (other->Kind == INVOKE_FUNC ? " is a method." : " is read-only."));
}

}  // namespace

int CallMember(lua_State* lua, IDispatch& object, const binding::DescribedMember& member,
               int first) {
    Arguments arguments(lua, member, first);
    const Variant result = Call(lua, object, member, arguments);
    if (member.Result.IsVoid()) return arguments.PushResults();
    PushVariant(lua, result);
    return 1 + arguments.PushResults();
}

void PutMember(lua_State* lua, IDispatch& object, const binding::TypeDescription& type,
               std::string_view name, int first) {
    if (!type.IsKnown()) return PutByName(lua, object, name, first);
    const binding::DescribedMember& member = Settable(lua, type, name);
    Arguments arguments(lua, member, first);
    Call(lua, object, member, arguments);
}

}  // namespace mavrin2::script
