// What a container's document keeps of the control.

#include "tests/control/control_test.h"
#include "tests/control/memory_storage.h"

// Where comparisons look for it: beside the type.
bool operator==(const SIZEL& one, const SIZEL& other) {
    return one.cx == other.cx && one.cy == other.cy;
}

namespace mavrin2::tests {
namespace {

using automation::ComPtr;
using Bytes = std::vector<std::uint8_t>;

constexpr SIZEL kDefault{12700, 5080};

class Persistence : public ControlTest {
protected:
    SIZEL Extent() {
        SIZEL extent{};
        EXPECT_EQ(Control.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
        return extent;
    }
    void SetExtent(LONG width, LONG height) {
        SIZEL extent{width, height};
        EXPECT_EQ(Control.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    }
    HRESULT Load(const Bytes& bytes) {
        const auto stream = automation::MakeCounted<MemoryStream>();
        stream->Bytes = bytes;
        return Control.As<IPersistStreamInit>()->Load(stream.Get());
    }
};

TEST_F(Persistence, KeepsTheSizeInTwelveBytes) {
    const auto persist = Control.As<IPersistStreamInit>();
    EXPECT_EQ(Extent(), kDefault);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    SetExtent(0x01020304, 600);
    EXPECT_EQ(persist->IsDirty(), S_OK);

    const auto stream = automation::MakeCounted<MemoryStream>();
    EXPECT_EQ(persist->Save(stream.Get(), FALSE), S_OK);
    EXPECT_EQ(stream->Bytes, (Bytes{0, 9, 0, 0, 4, 3, 2, 1, 0x58, 2, 0, 0}));
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Save(stream.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    ULARGE_INTEGER size{};
    EXPECT_EQ(persist->GetSizeMax(&size), S_OK);
    EXPECT_EQ(size.QuadPart, 12u);

    EXPECT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(Extent(), kDefault);
    Control->put_FileBufferSize(200);
    SetExtent(1, 1);
    EXPECT_EQ(persist->Load(stream.Get()), S_OK);
    EXPECT_EQ(Extent(), (SIZEL{0x01020304, 600}));
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    EXPECT_EQ(Got(*Control, &interfaces::IMavrin2::get_FileBufferSize), 200) << "not kept at all";
}

TEST_F(Persistence, LoadsWhatItUnderstandsOnly) {
    struct {
        Bytes Stream;
        HRESULT Status;
    } const cases[] = {
        {{0, 9, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0}, S_OK},
        {{0xFF, 8, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 99}, S_OK},
        {{1, 9, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0}, E_FAIL},
        {{0, 0xA, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0}, E_FAIL},
        {{0, 0, 0, 0x80, 1, 0, 0, 0, 2, 0, 0, 0}, E_FAIL},
        {{0, 9, 0, 0, 1, 0, 0, 0x80, 2, 0, 0, 0}, E_FAIL},
        {{0, 9, 0, 0, 1, 0, 0, 0, 2, 0, 0}, E_FAIL},
        {{0, 9, 0, 0}, E_FAIL},
        {{}, E_FAIL},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Stream));
        SetExtent(7, 8);
        EXPECT_EQ(Load(one.Stream), one.Status);
        EXPECT_EQ(Extent(), (one.Status == S_OK ? SIZEL{1, 2} : SIZEL{7, 8}));
    }
    const auto persist = Control.As<IPersistStreamInit>();
    EXPECT_EQ(persist->Load(nullptr), E_POINTER);
    EXPECT_EQ(persist->Save(nullptr, TRUE), E_POINTER);
    EXPECT_EQ(persist->GetSizeMax(nullptr), E_POINTER);
    const auto full = automation::MakeCounted<MemoryStream>();
    full->Room = 11;
    SetExtent(9, 9);
    EXPECT_EQ(persist->Save(full.Get(), TRUE), STG_E_MEDIUMFULL);
    EXPECT_EQ(persist->IsDirty(), S_OK) << "it is not saved";
}

TEST_F(Persistence, KeepsTheSameInAStorage) {
    const auto persist = Control.As<IPersistStorage>();
    MemoryStorage storage;
    EXPECT_EQ(persist->InitNew(&storage), S_OK);
    EXPECT_EQ(persist->Load(&storage), STG_E_FILENOTFOUND);
    SetExtent(100, 50);
    EXPECT_EQ(persist->Save(&storage, FALSE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK) << "a copy elsewhere";
    EXPECT_EQ(persist->Save(&storage, TRUE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    EXPECT_EQ(storage.Name, OLESTR("Contents"));
    EXPECT_EQ(storage.Stream->Bytes, (Bytes{0, 9, 0, 0, 100, 0, 0, 0, 50, 0, 0, 0}));
    SetExtent(1, 1);
    EXPECT_EQ(persist->Load(&storage), S_OK);
    EXPECT_EQ(Extent(), (SIZEL{100, 50}));
    CLSID clsid{};
    EXPECT_EQ(persist->GetClassID(&clsid), S_OK);
    EXPECT_TRUE(IsEqualGUID(clsid, interfaces::CLSID_Mavrin2));
    EXPECT_EQ(persist->Load(nullptr), E_POINTER);
    EXPECT_EQ(persist->Save(nullptr, TRUE), E_POINTER);
}

}  // namespace
}  // namespace mavrin2::tests
