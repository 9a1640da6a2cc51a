#include "automation/type_library.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <variant>

#include "automation/counted.h"
#include "automation/dispatch.h"
#include "automation/guarded.h"
#include "automation/text.h"
#include "automation/type_records.h"

namespace mavrin2::automation {
namespace {

using Entry = std::variant<const EnumerationDescription*, const InterfaceDescription*,
                           const ClassDescription*>;

template <class... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

// The entries of a library in order, found by identifier.
class LibraryIndex final : public TypeReferences {
public:
    explicit LibraryIndex(const LibraryDescription& library) : library_(library) {
        for (auto enumeration : library.Enumerations)
            entries_.emplace_back(&enumeration());
        for (auto description : library.Interfaces)
            entries_.emplace_back(&description());
        for (const ClassDescription& one : library.Classes)
            entries_.emplace_back(&one);
    }

    const LibraryDescription& Library() const { return library_; }
    std::size_t Count() const { return entries_.size(); }
    const Entry& At(std::size_t index) const { return entries_[index]; }

    std::optional<std::size_t> Find(REFGUID id) const {
        for (std::size_t i = 0; i < entries_.size(); ++i)
            if (IsEqualGUID(id,
                            std::visit([](auto* e) -> const GUID& { return e->Id; }, entries_[i])))
                return i;
        return std::nullopt;
    }

    HREFTYPE OfEnumeration(const EnumerationDescription& enumeration) const override {
        return Reference(enumeration.Id);
    }
    HREFTYPE OfInterface(const InterfaceDescription& description) const override {
        return Reference(description.Id);
    }

private:
    HREFTYPE Reference(REFGUID id) const {
        const auto found = Find(id);
        if (!found) throw StatusError{TYPE_E_ELEMENTNOTFOUND};
        return static_cast<HREFTYPE>(*found);
    }

    const LibraryDescription& library_;
    std::vector<Entry> entries_;
};

HRESULT Document(const char* nameText, const char* helpText, BSTR* name, BSTR* help, DWORD* context,
                 BSTR* file) {
    return Guarded([&] {
        if (name) *name = NewBstr(std::string_view(nameText));
        if (help) *help = NewBstr(std::string_view(helpText));
        if (context) *context = 0;
        if (file) *file = nullptr;
    });
}

class TypeInformation final : public Counted<ITypeInfo> {
public:
    TypeInformation(std::shared_ptr<const LibraryIndex> index, std::size_t place)
        : index_(std::move(index)), place_(place), entry_(index_->At(place)) {}

    STDMETHODIMP GetTypeAttr(TYPEATTR** attributes) override;
    STDMETHODIMP GetFuncDesc(UINT number, FUNCDESC** function) override;
    STDMETHODIMP GetVarDesc(UINT number, VARDESC** variable) override;
    STDMETHODIMP GetNames(MEMBERID member, BSTR* names, UINT room, UINT* count) override;
    STDMETHODIMP GetRefTypeOfImplType(UINT number, HREFTYPE* type) override;
    STDMETHODIMP GetImplTypeFlags(UINT number, INT* flags) override;
    STDMETHODIMP GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* members) override;
    STDMETHODIMP Invoke(PVOID instance, MEMBERID member, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
    STDMETHODIMP GetDocumentation(MEMBERID member, BSTR* name, BSTR* help, DWORD* context,
                                  BSTR* file) override;
    STDMETHODIMP GetRefTypeInfo(HREFTYPE type, ITypeInfo** information) override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, PVOID* object) override;
    STDMETHODIMP GetContainingTypeLib(ITypeLib** library, UINT* place) override;
    STDMETHODIMP_(void) ReleaseTypeAttr(TYPEATTR* attributes) override {
        CoTaskMemFree(attributes);
    }
    STDMETHODIMP_(void) ReleaseFuncDesc(FUNCDESC* function) override { ReleaseRecord(function); }
    STDMETHODIMP_(void) ReleaseVarDesc(VARDESC* variable) override { ReleaseRecord(variable); }

    // Not supported: binding for compilers, entry points, marshalling.
    STDMETHODIMP GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
    STDMETHODIMP GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override {
        return TYPE_E_BADMODULEKIND;
    }
    STDMETHODIMP AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override {
        return TYPE_E_BADMODULEKIND;
    }
    STDMETHODIMP GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }

private:
    const InterfaceDescription* Interface() const {
        const auto* found = std::get_if<const InterfaceDescription*>(&entry_);
        return found ? *found : nullptr;
    }
    const EnumerationDescription* Enumeration() const {
        const auto* found = std::get_if<const EnumerationDescription*>(&entry_);
        return found ? *found : nullptr;
    }
    const ClassDescription* Class() const {
        const auto* found = std::get_if<const ClassDescription*>(&entry_);
        return found ? *found : nullptr;
    }

    std::shared_ptr<const LibraryIndex> index_;
    std::size_t place_;
    const Entry& entry_;
};

class TypeLibrary final : public Counted<ITypeLib> {
public:
    explicit TypeLibrary(std::shared_ptr<const LibraryIndex> index) : index_(std::move(index)) {}

    STDMETHODIMP_(UINT) GetTypeInfoCount() override { return static_cast<UINT>(index_->Count()); }

    STDMETHODIMP GetTypeInfo(UINT place, ITypeInfo** information) override {
        return Guarded([&]() -> HRESULT {
            if (!information) return E_POINTER;
            *information = nullptr;
            if (place >= index_->Count()) return TYPE_E_ELEMENTNOTFOUND;
            *information = new TypeInformation(index_, place);
            return S_OK;
        });
    }

    STDMETHODIMP GetTypeInfoType(UINT place, TYPEKIND* kind) override {
        if (!kind) return E_POINTER;
        if (place >= index_->Count()) return TYPE_E_ELEMENTNOTFOUND;
        *kind = std::visit(Overloaded{[](const EnumerationDescription*) { return TKIND_ENUM; },
                                      [](const InterfaceDescription*) { return TKIND_DISPATCH; },
                                      [](const ClassDescription*) { return TKIND_COCLASS; }},
                           index_->At(place));
        return S_OK;
    }

    STDMETHODIMP GetTypeInfoOfGuid(REFGUID id, ITypeInfo** information) override {
        if (!information) return E_POINTER;
        *information = nullptr;
        const auto place = index_->Find(id);
        return place ? GetTypeInfo(static_cast<UINT>(*place), information) : TYPE_E_ELEMENTNOTFOUND;
    }

    STDMETHODIMP GetLibAttr(TLIBATTR** attributes) override {
        if (!attributes) return E_POINTER;
        auto* record = static_cast<TLIBATTR*>(CoTaskMemAlloc(sizeof(TLIBATTR)));
        *attributes = record;
        if (!record) return E_OUTOFMEMORY;
        *record = {};
        record->guid = index_->Library().Id;
        record->syskind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
        record->wMajorVerNum = index_->Library().Major;
        record->wMinorVerNum = index_->Library().Minor;
        record->wLibFlags = LIBFLAG_FCONTROL;
        return S_OK;
    }
    STDMETHODIMP_(void) ReleaseTLibAttr(TLIBATTR* attributes) override {
        CoTaskMemFree(attributes);
    }

    STDMETHODIMP GetDocumentation(INT place, BSTR* name, BSTR* help, DWORD* context,
                                  BSTR* file) override {
        if (place < 0)
            return Document(index_->Library().Name, index_->Library().Help, name, help, context,
                            file);
        if (static_cast<std::size_t>(place) >= index_->Count()) return TYPE_E_ELEMENTNOTFOUND;
        return std::visit(
            [&](auto* entry) {
                return Document(entry->Name, entry->Help, name, help, context, file);
            },
            index_->At(static_cast<std::size_t>(place)));
    }

    STDMETHODIMP IsName(LPOLESTR name, ULONG, BOOL* found) override {
        return Guarded([&]() -> HRESULT {
            if (!name || !found) return E_POINTER;
            const std::string wanted = ToUtf8(name);
            *found = FALSE;
            for (std::size_t i = 0; i < index_->Count(); ++i)
                std::visit(Overloaded{[&](const InterfaceDescription* entry) {
                                          if (EqualIgnoringCase(entry->Name, wanted) ||
                                              entry->Find(wanted))
                                              *found = TRUE;
                                      },
                                      [&](const auto* entry) {
                                          if (EqualIgnoringCase(entry->Name, wanted)) *found = TRUE;
                                      }},
                           index_->At(i));
            return S_OK;
        });
    }

    // Not supported: binding for compilers.
    STDMETHODIMP GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
    STDMETHODIMP FindName(LPOLESTR, ULONG, ITypeInfo**, MEMBERID*, USHORT*) override {
        return E_NOTIMPL;
    }

private:
    std::shared_ptr<const LibraryIndex> index_;
};

HRESULT TypeInformation::GetTypeAttr(TYPEATTR** attributes) {
    if (!attributes) return E_POINTER;
    auto* record = static_cast<TYPEATTR*>(CoTaskMemAlloc(sizeof(TYPEATTR)));
    *attributes = record;
    if (!record) return E_OUTOFMEMORY;
    *record = {};
    record->memidConstructor = record->memidDestructor = MEMBERID_NIL;
    record->wMajorVerNum = index_->Library().Major;
    record->wMinorVerNum = index_->Library().Minor;
    record->cbAlignment = sizeof(void*);
    std::visit(Overloaded{[&](const EnumerationDescription* entry) {
                              record->guid = entry->Id;
                              record->typekind = TKIND_ENUM;
                              record->cVars = static_cast<WORD>(entry->Members.size());
                              record->cbSizeInstance = sizeof(LONG);
                          },
                          [&](const InterfaceDescription* entry) {
                              record->guid = entry->Id;
                              record->typekind = TKIND_DISPATCH;
                              record->cFuncs = static_cast<WORD>(entry->Members.size());
                              record->cbSizeInstance = sizeof(void*);
                              record->wTypeFlags = TYPEFLAG_FDISPATCHABLE;
                              if (!entry->Events) {
                                  // Not also "OLE automation": the system sets that flag on the
                                  // half with the virtual table only.
                                  record->wTypeFlags |= TYPEFLAG_FDUAL;
                                  record->cbSizeVft =
                                      static_cast<WORD>(entry->SlotCount() * sizeof(void*));
                              }
                          },
                          [&](const ClassDescription* entry) {
                              record->guid = entry->Id;
                              record->typekind = TKIND_COCLASS;
                              record->cImplTypes = entry->Source ? 2 : 1;
                              record->wTypeFlags = static_cast<WORD>(
                                  TYPEFLAG_FCANCREATE | (entry->Control ? TYPEFLAG_FCONTROL : 0));
                          }},
               entry_);
    return S_OK;
}

HRESULT TypeInformation::GetFuncDesc(UINT number, FUNCDESC** function) {
    return Guarded([&]() -> HRESULT {
        if (!function) return E_POINTER;
        *function = nullptr;
        const InterfaceDescription* entry = Interface();
        if (!entry || number >= entry->Members.size()) return TYPE_E_ELEMENTNOTFOUND;
        *function = MakeFunctionRecord(entry->Members[number], entry->Events, *index_);
        return S_OK;
    });
}

HRESULT TypeInformation::GetVarDesc(UINT number, VARDESC** variable) {
    return Guarded([&]() -> HRESULT {
        if (!variable) return E_POINTER;
        *variable = nullptr;
        const EnumerationDescription* entry = Enumeration();
        if (!entry || number >= entry->Members.size()) return TYPE_E_ELEMENTNOTFOUND;
        *variable = MakeConstantRecord(entry->Members[number], static_cast<MEMBERID>(number));
        return S_OK;
    });
}

HRESULT TypeInformation::GetNames(MEMBERID id, BSTR* names, UINT room, UINT* count) {
    return Guarded([&]() -> HRESULT {
        if (!names || !count) return E_POINTER;
        *count = 0;
        std::vector<std::string_view> all;
        if (const EnumerationDescription* entry = Enumeration()) {
            if (id < 0 || static_cast<std::size_t>(id) >= entry->Members.size())
                return TYPE_E_ELEMENTNOTFOUND;
            all.push_back(entry->Members[static_cast<std::size_t>(id)].Name);
        } else if (const InterfaceDescription* described = Interface()) {
            const int any =
                INVOKE_FUNC | INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF;
            const MemberDescription* member = described->Find(id, any);
            if (!member) return TYPE_E_ELEMENTNOTFOUND;
            all.push_back(member->Name);
            for (const ParameterDescription& parameter : member->Parameters)
                // A result and the value of a put have no name for the caller.
                if (parameter.Way != Direction::Result && member->Kind != INVOKE_PROPERTYPUT &&
                    member->Kind != INVOKE_PROPERTYPUTREF)
                    all.push_back(parameter.Name);
        } else {
            return TYPE_E_ELEMENTNOTFOUND;
        }
        for (; *count < room && *count < all.size(); ++*count)
            names[*count] = NewBstr(all[*count]);
        return S_OK;
    });
}

HRESULT TypeInformation::GetRefTypeOfImplType(UINT number, HREFTYPE* type) {
    return Guarded([&]() -> HRESULT {
        if (!type) return E_POINTER;
        const ClassDescription* entry = Class();
        if (!entry || number > 1 || (number == 1 && !entry->Source)) return TYPE_E_ELEMENTNOTFOUND;
        *type = index_->OfInterface(number == 0 ? entry->Default() : entry->Source());
        return S_OK;
    });
}

HRESULT TypeInformation::GetImplTypeFlags(UINT number, INT* flags) {
    if (!flags) return E_POINTER;
    const ClassDescription* entry = Class();
    if (!entry || number > 1 || (number == 1 && !entry->Source)) return TYPE_E_ELEMENTNOTFOUND;
    *flags = IMPLTYPEFLAG_FDEFAULT | (number == 1 ? IMPLTYPEFLAG_FSOURCE : 0);
    return S_OK;
}

HRESULT TypeInformation::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* members) {
    return Interface() ? FindNames(*Interface(), IID_NULL, names, count, members)
                       : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInformation::Invoke(PVOID instance, MEMBERID member, WORD flags, DISPPARAMS* arguments,
                                VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    if (!instance) return E_POINTER;
    if (!Interface() || Interface()->Events) return TYPE_E_ELEMENTNOTFOUND;
    return InvokeMember(*Interface(), instance, IID_NULL,
                        {member, flags, arguments, result, exception, badArgument});
}

HRESULT TypeInformation::GetDocumentation(MEMBERID id, BSTR* name, BSTR* help, DWORD* context,
                                          BSTR* file) {
    if (id == MEMBERID_NIL)
        return std::visit(
            [&](auto* entry) {
                return Document(entry->Name, entry->Help, name, help, context, file);
            },
            entry_);
    if (const EnumerationDescription* entry = Enumeration()) {
        if (id < 0 || static_cast<std::size_t>(id) >= entry->Members.size())
            return TYPE_E_ELEMENTNOTFOUND;
        return Document(entry->Members[static_cast<std::size_t>(id)].Name, "", name, help, context,
                        file);
    }
    const int any = INVOKE_FUNC | INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF;
    const MemberDescription* member = Interface() ? Interface()->Find(id, any) : nullptr;
    if (!member) return TYPE_E_ELEMENTNOTFOUND;
    return Document(member->Name, member->Help, name, help, context, file);
}

HRESULT TypeInformation::GetRefTypeInfo(HREFTYPE type, ITypeInfo** information) {
    return Guarded([&]() -> HRESULT {
        if (!information) return E_POINTER;
        *information = nullptr;
        if (type >= index_->Count()) return TYPE_E_ELEMENTNOTFOUND;
        *information = new TypeInformation(index_, type);
        return S_OK;
    });
}

HRESULT TypeInformation::CreateInstance(IUnknown* outer, REFIID iid, PVOID* object) {
    if (!Class()) return TYPE_E_BADMODULEKIND;
    return CoCreateInstance(Class()->Id, outer, CLSCTX_INPROC_SERVER, iid, object);
}

HRESULT TypeInformation::GetContainingTypeLib(ITypeLib** library, UINT* place) {
    return Guarded([&]() -> HRESULT {
        if (!library) return E_POINTER;
        *library = new TypeLibrary(index_);
        if (place) *place = static_cast<UINT>(place_);
        return S_OK;
    });
}

}  // namespace

ComPtr<ITypeLib> MakeTypeLibrary(const LibraryDescription& library) {
    return MakeCounted<TypeLibrary>(std::make_shared<const LibraryIndex>(library)).As<ITypeLib>();
}

}  // namespace mavrin2::automation
