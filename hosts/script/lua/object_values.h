#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>

#include "automation/com_ptr.h"
#include "hosts/binding/event_connection.h"
#include "hosts/binding/type_description.h"

namespace mavrin2::script {

// A type of objects that a script holds.
struct KnownType {
    GUID Id;
    automation::ComPtr<ITypeInfo> Information;
    binding::TypeDescription Description;
};

// The C++ side of an object that a script holds.
struct ObjectValue {
    automation::ComPtr<IDispatch> Object;
    const void* Identity;  // unique as long as the object lives
    const KnownType* Type;
    std::map<std::int64_t, std::shared_ptr<binding::EventConnection>>
        Connections;  // by their numbers

    void Disconnect() {
        for (const auto& [number, connection] : Connections)
            connection->Close();
    }
};

// Owns them all. Lua releases values as it collects them, but not always those that are created
// while the state closes; the destructor releases the rest.
class ObjectValues {
public:
    ObjectValues() = default;
    ObjectValues(const ObjectValues&) = delete;
    ObjectValues& operator=(const ObjectValues&) = delete;
    ~ObjectValues() { DisconnectAll(); }

    ObjectValue* Add(std::unique_ptr<ObjectValue> value) {
        ObjectValue* key = value.get();
        values_.emplace(key, std::move(value));
        return key;
    }

    // Disconnects the object first: no event may arrive during its release.
    void Release(ObjectValue* value) {
        const auto node = values_.extract(value);
        if (node) node.mapped()->Disconnect();
    }

    void DisconnectAll() {
        for (const auto& [key, value] : values_)
            value->Disconnect();
    }

private:
    std::unordered_map<ObjectValue*, std::unique_ptr<ObjectValue>> values_;
};

}  // namespace mavrin2::script
