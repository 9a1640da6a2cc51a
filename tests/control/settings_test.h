#pragma once

#include <algorithm>
#include <cstdlib>

#include "control/objects/private_interfaces.h"
#include "control/server/control_parts.h"
#include "platform/pixel_target.h"
#include "tests/control/control_test.h"
#include "tests/support/com_fakes.h"

namespace mavrin2::tests {

// Counts the notifications to a container that the picture has changed.
class PictureSink final : public Fake<IAdviseSink> {
public:
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { ++Changes; }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override {}
    void STDMETHODCALLTYPE OnClose() override {}

    int Changes = 0;
};

// Fonts whose cells have the height that GDI gives Arial in the usual sizes.
class SizedFonts final : public platform::FontLoader {
public:
    std::shared_ptr<const platform::Font> Load(
        const platform::FontDescription& description) override {
        Loaded.push_back(description);
        return platform::FixedFonts(6, platform::EmPixels(description) + 3).Load(description);
    }

    std::vector<platform::FontDescription> Loaded;
};

// An object that looks like another maker's: it has what is published and no
// more.
template <class Object>
class Foreign final : public FakeOuter {
public:
    template <class... Arguments>
    explicit Foreign(Arguments... arguments) {
        Hides = [](REFIID iid) {
            return IsEqualGUID(iid, objects::IColorSettings::Id) ||
                   IsEqualGUID(iid, objects::IScaleSettings::Id);
        };
        EXPECT_EQ(Object::Create(this, IID_IUnknown, Inner.PutVoid(), arguments...), S_OK);
    }

    template <class Interface>
    automation::ComPtr<Interface> As() {
        return Inner.As<Interface>();
    }
};

// The parts of a control without the control around them, and the picture that they make.
class SettingsTest : public testing::Test, protected ControlWorld {
protected:
    using Image = std::vector<std::uint32_t>;

    SettingsTest() {
        server::ControlEnvironment environment = Environment();
        environment.Ports.Fonts = Fonts;
        Parts =
            std::make_unique<server::ControlParts>(std::move(environment), &host_, points_.At(0));
        EXPECT_EQ(Parts->Construct(), S_OK);
        static_cast<IViewObject*>(Parts->Container.Find(IID_IViewObject))
            ->SetAdvise(DVASPECT_CONTENT, 0, &sink_);
        Shown();
    }
    ~SettingsTest() override { Parts->Teardown(); }

    // Sixty frames with the middle third selected: wide enough to see the samples and the curve
    // between them.
    void OpenSamples(std::int32_t channels = 1) {
        Dusoro->Source.Channels = channels;
        Dusoro->Source.Samples.clear();
        for (std::int32_t i = 0; i < 60 * channels; ++i)
            Dusoro->Source.Samples.push_back(static_cast<std::int16_t>(i * 7919 % 40000 - 20000));
        Parts->Editor->Opening.Open("/sound.wav", interfaces::FormatTypeConstants::DEFAULT);
        Parts->Editor->Positions.SetStartSelect(20);
        Parts->Editor->Positions.SetSelected(1);
        Parts->Editor->Positions.SetEndSelect(40);
        Redraws();
    }

    // Since the last time it was asked.
    int Redraws() { return std::exchange(sink_.Changes, 0); }

    // What there is to be seen, copied.
    Image Shown() { return Paint(kWidth); }
    // The same with everything taken, laid out and drawn from the beginning.
    Image MadeAnew() {
        Parts->Editor->View.TakeSettings();
        Paint(kWidth + 1);
        return Paint(kWidth);
    }

    bool IsAsMadeAnew() {
        const Image shown = Shown();
        return shown == MadeAnew();
    }

    // `color` is 0x00BBGGRR.
    static bool Has(const Image& image, std::uint32_t color) {
        const std::uint32_t pixel = (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
        return std::ranges::find(image, pixel) != image.end();
    }

    std::shared_ptr<SizedFonts> Fonts = std::make_shared<SizedFonts>();
    std::unique_ptr<server::ControlParts> Parts;

private:
    static constexpr int kWidth = 600;
    static constexpr int kHeight = 300;

    Image Paint(int width) {
        Image image(static_cast<std::size_t>(width) * kHeight);
        platform::PixelTarget target({image.data(), width, kHeight, width});
        Parts->Editor->View.Paint(target, {0, 0, width, kHeight});
        return image;
    }

    Fake<IUnknown> host_;
    PictureSink sink_;
    automation::ConnectionPoints points_{&host_, {&interfaces::DIID_IMavrin2Events}};
};

}  // namespace mavrin2::tests
