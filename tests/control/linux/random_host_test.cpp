// Hosts that call whatever they like, also from inside events, from inside painting and from inside
// their own settings' objects, while the window comes, changes and goes.
//
// MAVRIN2_RANDOM_HOSTS is how many (200), MAVRIN2_RANDOM_SEED the first one's number (1).

#include <random>

#include "automation/safe_array.h"
#include "tests/control/control_test.h"
#include "tests/control/linux/window_world.h"
#include "tests/support/com_fakes.h"
#include "tests/support/wanted_count.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2Channel;
using interfaces::IMavrin2Markers;
using interfaces::IMavrin2Scale;
using interfaces::IMavrin2Transform;

constexpr int kLongHosts = 25;  // one of so many has long documents
constexpr int kDeepest = 3;     // calls inside calls

// A scale of the host's that calls back whenever it is asked for anything.
class CallingScale final : public Fake<IMavrin2Scale> {
public:
    explicit CallingScale(std::function<void()> call) : call_(std::move(call)) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP get_Font(IDispatch** Value) override {
        *Value = nullptr;
        return S_OK;
    }
    STDMETHODIMP put_Font(IDispatch*) override { return S_OK; }
    STDMETHODIMP putref_Font(IDispatch*) override { return S_OK; }
    STDMETHODIMP get_Type(SHORT* Value) override { return Answer(Value, 2); }
    STDMETHODIMP put_Type(SHORT) override { return S_OK; }
    STDMETHODIMP get_Visible(SHORT* Value) override { return Answer(Value, 1); }
    STDMETHODIMP put_Visible(SHORT) override { return S_OK; }
    STDMETHODIMP get_Grid(SHORT* Value) override { return Answer(Value, 1); }
    STDMETHODIMP put_Grid(SHORT) override { return S_OK; }
    STDMETHODIMP get_Orientation(SHORT* Value) override { return Answer(Value, 1); }
    STDMETHODIMP put_Orientation(SHORT) override { return S_OK; }

private:
    HRESULT Answer(SHORT* target, SHORT value) {
        call_();
        *target = value;
        return S_OK;
    }
    std::function<void()> call_;
};

class RandomHost : private WindowWorld {
public:
    explicit RandomHost(unsigned seed) : random_(seed), long_(seed % kLongHosts == 0) {
        Kestrin->Process = [this](std::vector<std::int16_t>& samples) {
            if (Upto(3) == 0) samples.resize(samples.size() / 2);
            Kestrin->FireProgress(Upto(100));
            return S_OK;
        };
        Start();
        Control->get_Transform(transform_.Put());
        Control->get_Channels(channels_.Put());
        Control->get_Markers(markers_.Put());
        Control->get_ScaleX(ownScale_.Put());
        Listen();
        if (long_) Control->put_FileBufferSize(60000);
        if (Upto(4) > 0) OpenAnyWindow();
        if (Control) OpenAny();
        for (int step = 0; step < (long_ ? 12 : 30) && Control; ++step) {
            Act();
            if (Control) ExpectIdle();
        }
        Events->InEvent(0, {});
        armed_ = false;
        if (Control) Control->Stop();
        if (Control) ExpectPictureOfTheDocument();
        transform_.Reset();
        markers_.Reset();
        channels_.Reset();
        ownScale_.Reset();
        End();
        EXPECT_TRUE(TempFiles().empty());
        EXPECT_EQ(System.Files->OpenFiles(), 0);
        EXPECT_EQ(scale_.References, 0u);
        EXPECT_EQ(Container.References, 0u);
    }
    RandomHost(const RandomHost&) = delete;
    RandomHost& operator=(const RandomHost&) = delete;

private:
    int Upto(int count) { return std::uniform_int_distribution(0, count - 1)(random_); }

    // Acts in one of the next events, as long as calls are not nested too deeply.
    void Listen() {
        Events->InEvent(1 + Upto(8), [this] {
            Listen();
            ActInside();
        });
    }
    void ActInside() {
        if (!armed_ || depth_ >= kDeepest) return;
        ++depth_;
        Act();
        --depth_;
    }

    void ExpectIdle() {
        EXPECT_TRUE(std::ranges::count(std::initializer_list<LONG>{0, 1, 2, 5}, Status()))
            << "it plays or records at most";
        EXPECT_EQ(System.Files->OpenFiles(), 0);
        if (!History().Current() || long_) return;
        EXPECT_EQ(static_cast<std::int64_t>(DocumentSamples().size()) * 2,
                  History().Current()->TotalBytes.Count());
    }

    // Whatever happened, what is shown at the end is what a new layout shows. (Rates have four
    // digits throughout: only a new layout gives the frequencies of a spectrum the room for more.)
    void ExpectPictureOfTheDocument() {
        Control->put_ScaleX(ownScale_.Get());
        Control->EndOperations();
        ResizeWindow(300, 120);
        Paint();
        Control->EndOperations();
        if (!History().Current()) return;
        const auto shown = Paint();
        for (const int width : {301, 300}) {
            ResizeWindow(width, 120);
            Paint();
            Control->EndOperations();
        }
        EXPECT_EQ(Paint(), shown);
    }

    Samples Sound() {
        if (long_ && Upto(2) == 0) return Ramp(3000050 + static_cast<std::size_t>(Upto(5)));
        return Ramp(static_cast<std::size_t>(Upto(3) * Upto(1000)) * 2,
                    static_cast<std::int16_t>(Upto(1000) - 500));
    }
    void OpenAny() {
        Dusoro->Source.Frequency = long_ ? 9600 : 1000 + 4000 * Upto(3);
        Dusoro->Source.Channels = 1 + Upto(2);
        Dusoro->Source.Bits = Upto(2) == 0 ? 8 : 16;
        Dusoro->Source.Samples = Sound();
        Dusoro->Source.FramesPerRead = long_ ? 1000000 : 200;
        Open();
    }
    void NewAny() {
        Control->New(interfaces::FrequencyConstants{1000 + Upto(9000)},
                     interfaces::ChannelsConstants{1 + Upto(2)});
    }
    void ConvertAny() {
        Control->ConvertSampleType(interfaces::FrequencyConstants{1000 + 1000 * Upto(9)},
                                   interfaces::ChannelsConstants{1 + Upto(2)});
    }
    SHORT Flag() { return static_cast<SHORT>(Upto(2)); }
    int Frame() { return Upto(1200) - 100; }
    void ResizeAny() {
        static constexpr int kSizes[] = {0, 1, 2, 30, 180, 300, 640};
        ResizeWindow(kSizes[Upto(7)], kSizes[Upto(7)]);
    }
    void MouseAny() {
        if (!Container.Window) return;
        platform::MouseEvent event;
        event.Action = static_cast<platform::MouseAction>(Upto(5));
        event.Button = Upto(3) == 0 ? platform::MouseButton::Right : platform::MouseButton::Left;
        event.Held = Upto(5) == 0 ? 0 : 1;
        event.X = Upto(4) == 0 ? Upto(700) - 200 : Upto(300);
        event.Y = Upto(3) == 0 ? Upto(20) : Upto(140) - 10;
        event.Turn = Upto(3) - 1;
        Container.Window->Send(event);
    }
    void PlayAny() { Control->Play(interfaces::PlayTypeConstants{Upto(5)}); }
    void RecordAny() { Control->Record(interfaces::RecordTypeConstants{1 + Upto(2)}); }
    // What the devices report, also where nothing runs.
    void DeviceAny() {
        switch (Upto(8)) {
            case 0:
                return Velto->RunOut();
            case 1:
                return Velto->FinishBlock();
            case 2:
            case 3:
                return Velto->PlayTo(Upto(1200));
            case 4:
                Rimbal->Recent = Ramp(static_cast<std::size_t>(Upto(3000)) * 2);
                return Rimbal->RecordTo(Upto(1200));
            case 5:
                return Rimbal->ChangeGain(Upto(100));
            default:
                return Rimbal->Hear(Ramp(static_cast<std::size_t>(Upto(200)) * 2));
        }
    }
    void InsertMarkers() {
        for (int i = Upto(30); i >= 0; --i)
            markers_->Insert(Frame(), Upto(3) == 0 ? Frame() : 0, nullptr, nullptr);
    }
    void OpenAnyWindow() {
        if (Painting()) return;
        CloseWindow();
        OpenWindow(300, 120);
    }

    // One call of the control, or one thing that happens to its window.
    void Act() {
        if (Control) kActs[Upto(static_cast<int>(std::size(kActs)))](*this);
    }
    static void (*const kActs[64])(RandomHost& host);

    std::mt19937 random_;
    bool long_;
    bool armed_ = true;
    int depth_ = 0;
    automation::ComPtr<IMavrin2Transform> transform_;
    automation::ComPtr<IMavrin2Channel> channels_;
    automation::ComPtr<IMavrin2Markers> markers_;
    automation::ComPtr<IMavrin2Scale> ownScale_;
    CallingScale scale_{[this] {
        if (Upto(6) == 0) ActInside();
    }};
};

// Those that are there more than once are tried more often.
void (*const RandomHost::kActs[64])(RandomHost&) = {
    [](RandomHost& h) { h.OpenAny(); },
    [](RandomHost& h) { h.OpenAny(); },
    [](RandomHost& h) { h.NewAny(); },
    [](RandomHost& h) { (h.Upto(4) == 0) ? h.Control->Close() : h.Control->Refresh(); },
    [](RandomHost& h) { h.Upto(8) == 0 ? h.End() : h.NewSound(); },
    [](RandomHost& h) { h.Control->Undo(); },
    [](RandomHost& h) { h.Control->Undo(); },
    [](RandomHost& h) { h.Control->Redo(); },
    [](RandomHost& h) { h.Control->BeginOperations(); },
    [](RandomHost& h) { h.Control->EndOperations(); },
    [](RandomHost& h) { h.Control->EndOperations(); },
    [](RandomHost& h) { h.Control->Stop(); },
    [](RandomHost& h) { h.Control->DeleteSelect(); },
    [](RandomHost& h) { h.Control->DeleteSelect(); },
    [](RandomHost& h) { h.Control->Copy(); },
    [](RandomHost& h) { h.Control->Cut(); },
    [](RandomHost& h) { h.Control->Paste(); },
    [](RandomHost& h) { h.Control->Mix(50, 50); },
    [](RandomHost& h) { h.transform_->Invert(); },
    [](RandomHost& h) { h.transform_->TimeStretch(100); },
    [](RandomHost& h) { h.PutAudioArray(Ramp(1 + static_cast<std::size_t>(h.Upto(50)))); },
    [](RandomHost& h) { h.ConvertAny(); },
    [](RandomHost& h) { h.Save("/out.wav", h.Flag()); },
    [](RandomHost& h) { h.Position->put_Selected(h.Flag()); },
    [](RandomHost& h) { h.Position->put_Selected(1); },
    [](RandomHost& h) { h.Position->put_StartSelect(h.Frame()); },
    [](RandomHost& h) { h.Position->put_EndSelect(h.Frame()); },
    [](RandomHost& h) { h.Position->put_StartView(h.Frame()); },
    [](RandomHost& h) { h.Position->put_EndView(h.Frame()); },
    [](RandomHost& h) { h.Control->ZoomIn(); },
    [](RandomHost& h) { h.Control->ZoomOut(); },
    [](RandomHost& h) { h.Control->ZoomFull(); },
    [](RandomHost& h) { h.Control->Zoom(h.Frame(), h.Frame()); },
    [](RandomHost& h) { h.Control->ZoomVertical(h.Upto(1200)); },
    [](RandomHost& h) { h.Control->put_TypeView(interfaces::TypeViewConstants{h.Upto(3)}); },
    [](RandomHost& h) { h.channels_->put_Num(static_cast<SHORT>(h.Upto(3))); },
    [](RandomHost& h) { h.channels_->put_Visible(h.Flag()); },
    [](RandomHost& h) { h.channels_->put_Operation(h.Flag()); },
    [](RandomHost& h) { h.Control->put_ScaleX(h.Flag() ? &h.scale_ : h.ownScale_.Get()); },
    [](RandomHost& h) { h.InsertMarkers(); },
    [](RandomHost& h) { h.InsertMarkers(); },
    [](RandomHost& h) { h.Flag() ? h.markers_->put_Position(h.Frame()) : h.markers_->Delete(); },
    [](RandomHost& h) { h.Control->put_MarkerBitmapType(h.Flag()); },
    [](RandomHost& h) { h.Control->put_MarkerBackgroundEnabled(h.Flag()); },
    [](RandomHost& h) { h.OpenAnyWindow(); },
    [](RandomHost& h) { h.ResizeAny(); },
    [](RandomHost& h) { h.Upto(4) == 0 ? h.CloseWindow() : h.ResizeAny(); },
    [](RandomHost& h) { h.Upto(4) == 0 ? h.DestroyWindow() : h.ResizeAny(); },
    [](RandomHost& h) { h.Paint(); },
    [](RandomHost& h) { h.Paint(); },
    [](RandomHost& h) { h.MouseAny(); },
    [](RandomHost& h) { h.MouseAny(); },
    [](RandomHost& h) { h.MouseAny(); },
    [](RandomHost& h) { h.MouseAny(); },
    [](RandomHost& h) { h.Control->put_MouseEventsEnabled(h.Upto(4) > 0 ? 1 : 0); },
    [](RandomHost& h) { h.Control->put_MousePointer({}); },
    [](RandomHost& h) { h.PlayAny(); },
    [](RandomHost& h) { h.RecordAny(); },
    [](RandomHost& h) { h.Flag() ? h.Control->Pause() : h.Control->Continue(); },
    [](RandomHost& h) { h.DeviceAny(); },
    [](RandomHost& h) { h.DeviceAny(); },
    [](RandomHost& h) { h.DeviceAny(); },
    [](RandomHost& h) { h.Control->put_PlaySpeedEnabled(h.Flag()); },
    [](RandomHost& h) { h.Control->put_RecordVisualizationType(static_cast<SHORT>(h.Upto(4))); },
};

TEST(RandomHosts, FindNothingThatBreaks) {
    const int first = WantedCount("MAVRIN2_RANDOM_SEED", 1);
    const int hosts = WantedCount("MAVRIN2_RANDOM_HOSTS", 200);
    for (int seed = first; seed < first + hosts; ++seed) {
        SCOPED_TRACE("MAVRIN2_RANDOM_SEED=" + std::to_string(seed));
        const RandomHost host(static_cast<unsigned>(seed));
        if (HasFailure()) break;
    }
}

}  // namespace
}  // namespace mavrin2::tests
