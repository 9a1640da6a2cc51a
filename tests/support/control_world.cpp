#include "tests/support/control_world.h"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "automation/safe_array.h"
#include "automation/text.h"

namespace mavrin2::tests {

using automation::Bstr;
using interfaces::IMavrin2Position;

Samples Ramp(std::size_t count, std::int16_t first) {
    Samples samples(count);
    std::iota(samples.begin(), samples.end(), first);
    return samples;
}

Samples Without(Samples samples, std::size_t first, std::size_t last) {
    samples.erase(samples.begin() + static_cast<std::ptrdiff_t>(first),
                  samples.begin() + static_cast<std::ptrdiff_t>(last));
    return samples;
}

std::vector<std::byte> WorkFileOf(std::uint32_t frequency, std::uint16_t channels,
                                  const Samples& samples) {
    std::string bytes;
    const auto text = [&](const char* name) { bytes.append(name, 4); };
    const auto number = [&](std::size_t width, std::uint32_t value) {
        for (std::size_t i = 0; i < width; ++i)
            bytes += static_cast<char>(value >> (8 * i) & 0xff);
    };
    const auto dataLength = static_cast<std::uint32_t>(samples.size() * 2);
    text("RIFF"), number(4, 50 + dataLength), text("WAVE");
    text("fmt "), number(4, 18), number(2, 1), number(2, channels), number(4, frequency);
    number(4, channels * 2 * frequency), number(2, channels * 2u), number(2, 16), number(2, 0);
    text("fact"), number(4, 4), number(4, 0);
    text("data"), number(4, dataLength);
    for (const std::int16_t sample : samples)
        number(2, static_cast<std::uint16_t>(sample));
    std::vector<std::byte> result(bytes.size());
    std::memcpy(result.data(), bytes.data(), bytes.size());
    return result;
}

server::ControlEnvironment ControlWorld::Environment() const {
    return {System.AsPorts(),
            [this, made = 0](REFCLSID id, REFIID iid, void** object) mutable -> HRESULT {
                *object = nullptr;
                if (IsEqualGUID(id, MissingCompanion)) return REGDB_E_CLASSNOTREG;
                if (IsEqualGUID(id, contracts::CLSID_KovKestrin))
                    return Kestrin->QueryInterface(iid, object);
                if (IsEqualGUID(id, contracts::CLSID_KovOntiva))
                    return Ontiva->QueryInterface(iid, object);
                if (IsEqualGUID(id, contracts::CLSID_KovPindle))
                    return Pindle->QueryInterface(iid, object);
                if (IsEqualGUID(id, contracts::CLSID_KovVelto))
                    return Velto->QueryInterface(iid, object);
                if (IsEqualGUID(id, contracts::CLSID_KovRimbal2))
                    return Rimbal->QueryInterface(iid, object);
                if (IsEqualGUID(id, contracts::CLSID_KovDusoroLame))
                    return Lame->QueryInterface(iid, object);
                if (!IsEqualGUID(id, contracts::CLSID_KovDusoro2)) return REGDB_E_CLASSNOTREG;
                if (FAILED(CompanionStatus)) return CompanionStatus;
                return (made++ == 0 ? Dusoro : Private)->QueryInterface(iid, object);
            }};
}

void ControlWorld::Start() {
    server::CMavrin2::Create(nullptr, interfaces::IID_IMavrin2, Control.PutVoid(), Environment());
    Control->get_Position(Position.Put());
    Control->get_FileInfo(FileInfo.Put());
    Events->Connect(Control.Get());
    Dusoro->Calls.clear();
}

void ControlWorld::End() {
    Position.Reset();
    FileInfo.Reset();
    Control.Reset();
}

void ControlWorld::OpenSound(const Samples& samples, std::int32_t channels) {
    Control->put_FileBufferSize(100);
    Dusoro->Source.Samples = samples;
    Dusoro->Source.Channels = channels;
    Open();
    Dusoro->Calls.clear();
    Events->Take();
}

HRESULT ControlWorld::Open(const std::string& name, interfaces::FormatTypeConstants type) {
    return Control->Open(Bstr(std::string_view(name)).Get(), type);
}

HRESULT ControlWorld::OpenTrack(const Samples& samples) {
    System.Files->SetCdDrive("/cd");
    Pindle->Tracks = {samples};
    return Open("/cd/Track01.cda");
}

HRESULT ControlWorld::Save(const std::string& name, std::int16_t selected,
                           interfaces::FormatTypeConstants type) {
    return Control->Save(Bstr(std::string_view(name)).Get(), selected, type);
}

HRESULT ControlWorld::PasteFromFile(const std::string& name) {
    return Control->PasteFromFile(Bstr(std::string_view(name)).Get());
}

HRESULT ControlWorld::MixFromFile(float document, float material, const std::string& name) {
    return Control->MixFromFile(document, Bstr(std::string_view(name)).Get(), material);
}

HRESULT ControlWorld::PutAudioArray(const Samples& samples) {
    const automation::SafeArray<std::int16_t> array(samples.size());
    {
        const automation::ArrayView<std::int16_t> view(array.Get());
        std::ranges::copy(samples, view.Elements().begin());
    }
    SAFEARRAY* pointer = array.Get();
    return Control->PutAudioArray(&pointer);
}

void ControlWorld::Select(std::int32_t first, std::int32_t end) {
    Position->put_Selected(0);
    Position->put_StartSelect(first);
    Position->put_Selected(1);
    Position->put_EndSelect(end);
    Events->Take();
}

editor::UndoHistory& ControlWorld::History() {
    return static_cast<objects::CMavrin2Position*>(Position.Get())->History();
}

std::filesystem::path ControlWorld::WorkFile() {
    Bstr path;
    Control->get_TempDirectory(path.Put());
    return path.Utf8();
}

Samples ControlWorld::DocumentSamples() {
    const auto bytes = System.Files->Bytes(WorkFile()).value_or(std::vector<std::byte>(58));
    Samples samples((bytes.size() - 58) / 2);
    if (!samples.empty()) std::memcpy(samples.data(), bytes.data() + 58, samples.size() * 2);
    return samples;
}

std::string ControlWorld::FormatString() {
    Bstr text;
    FileInfo->get_FormatString(text.Put());
    return text.Utf8();
}

std::string ControlWorld::Positions() {
    const auto number = [&](auto getter) { return std::to_string(Got(*Position, getter)); };
    return (Got(*Position, &IMavrin2Position::get_Selected) ? "selected " : "select ") +
           number(&IMavrin2Position::get_StartSelect) + ".." +
           number(&IMavrin2Position::get_EndSelect) + " view " +
           number(&IMavrin2Position::get_StartView) + ".." +
           number(&IMavrin2Position::get_EndView) + " of " +
           number(&IMavrin2Position::get_TotalSamples);
}

std::vector<std::filesystem::path> ControlWorld::TempFiles() const {
    return System.Files->List("/tmp/private/", "nct", ".tmp");
}

}  // namespace mavrin2::tests
