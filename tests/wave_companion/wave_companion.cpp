// The module in the place of the companions. Its file companion reads and writes WAVE files of
// 16-bit PCM whose header has the usual 44 bytes, at the rate and channels that they have.

#include <bit>
#include <cstring>
#include <fstream>

#include "automation/module.h"
#include "tests/support/fake_dusoro.h"
#include "tests/support/fake_kestrin.h"
#include "tests/support/fake_ontiva.h"
#include "tests/support/fake_pindle.h"

namespace mavrin2 {
namespace {

using contracts::ErrorConstants;
using tests::FakeDusoro;

static_assert(std::endian::native == std::endian::little);

struct WaveHeader {
    char Riff[4] = {'R', 'I', 'F', 'F'};
    std::uint32_t Size = 0;
    char Wave[8] = {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '};
    std::uint32_t FormatSize = 16;
    std::uint16_t Tag = 1;
    std::uint16_t Channels = 0;
    std::uint32_t Frequency = 0;
    std::uint32_t BytesPerSecond = 0;
    std::uint16_t Alignment = 0;
    std::uint16_t Bits = 16;
    char Data[4] = {'d', 'a', 't', 'a'};
    std::uint32_t DataSize = 0;
};
static_assert(sizeof(WaveHeader) == 44);

ErrorConstants Load(FakeDusoro& companion, const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    WaveHeader header;
    if (!file.read(reinterpret_cast<char*>(&header), sizeof header))
        return ErrorConstants::FILEACCESS;
    const WaveHeader wanted;
    if (std::memcmp(header.Wave, wanted.Wave, sizeof wanted.Wave) != 0 || header.Tag != 1 ||
        header.Bits != 16 || header.Channels < 1 || header.Channels > 2)
        return ErrorConstants::FORMATNOTSUPPORT;
    companion.Source.Frequency = static_cast<LONG>(header.Frequency);
    companion.Source.Channels = header.Channels;
    companion.Source.Samples.resize(header.DataSize / 2);
    file.read(reinterpret_cast<char*>(companion.Source.Samples.data()), header.DataSize);
    return ErrorConstants::NOERRORS;
}

ErrorConstants Store(FakeDusoro& companion, const std::filesystem::path& path) {
    WaveHeader header;
    header.DataSize = static_cast<std::uint32_t>(companion.Written.size() * 2);
    header.Size = header.DataSize + 36;
    header.Channels = static_cast<std::uint16_t>(companion.Source.Channels);
    header.Frequency = static_cast<std::uint32_t>(companion.Source.Frequency);
    header.Alignment = static_cast<std::uint16_t>(2 * header.Channels);
    header.BytesPerSecond = header.Frequency * header.Alignment;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(companion.Written.data()), header.DataSize);
    return file.flush() ? ErrorConstants::NOERRORS : ErrorConstants::FILEACCESS;
}

HRESULT CreateWaveCompanion(IUnknown* outer, REFIID iid, void** object) {
    return FakeDusoro::Create(outer, iid, object, FakeDusoro::RealFiles{&Load, &Store});
}

template <class Companion>
HRESULT CreateCompanion(IUnknown* outer, REFIID iid, void** object) {
    return Companion::Create(outer, iid, object);
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovDusoro2, CreateWaveCompanion, "Wave companion of the tests",
     "MavrinTest.WaveCompanion.1", "MavrinTest.WaveCompanion", "Apartment"},
    {contracts::CLSID_KovKestrin, CreateCompanion<tests::FakeKestrin>,
     "Transform companion of the tests", "MavrinTest.FakeKestrin.1", "MavrinTest.FakeKestrin",
     "Apartment"},
    {contracts::CLSID_KovOntiva, CreateCompanion<tests::FakeOntiva>,
     "Information companion of the tests", "MavrinTest.FakeOntiva.1", "MavrinTest.FakeOntiva",
     "Apartment"},
    {contracts::CLSID_KovPindle, CreateCompanion<tests::FakePindle>, "CD grabber of the tests",
     "MavrinTest.FakePindle.1", "MavrinTest.FakePindle", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::DusoroLibrary};
    return contents;
}

}  // namespace mavrin2
