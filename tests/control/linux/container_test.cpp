// The control as containers meet it: in place in a window, drawn anywhere, with its notifications.

#include <algorithm>
#include <limits>

#include "control/server/container/container_front.h"
#include "platform/pixel_target.h"
#include "tests/control/control_test.h"
#include "tests/control/linux/recording_container.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;

constexpr std::uint32_t kBackground = 0xD4D0C8;  // of a window
constexpr std::uint32_t kPicture = 0x123456;

// An object that is nothing but the control's container interfaces, with a picture of one colour.
class Component final : public IUnknown {
public:
    Component() {
        Front.Attach([this](platform::DrawingTarget& target, const view::Rectangle& bounds,
                            const view::RowRange&) {
            Painted = bounds;
            std::vector<std::uint32_t> pixels(
                static_cast<std::size_t>(bounds.Width() * bounds.Height()), kPicture);
            target.Blit(bounds.Left, bounds.Top,
                        {pixels.data(), bounds.Width(), bounds.Height(), bounds.Width()});
        });
    }
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = IsEqualGUID(iid, IID_IUnknown) ? static_cast<IUnknown*>(this) : Front.Find(iid);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) {
            count_ = 1;
            Front.Detach();
            delete this;
        }
        return left;
    }

    server::ContainerFront Front{this};
    view::Rectangle Painted;

private:
    ~Component() = default;
    ULONG count_ = 1;
};

class Container : public testing::Test {
protected:
    ~Container() override {
        Object.Reset();
        Made.Reset();
        EXPECT_EQ(Host.References, 0u) << "something still counts on the container";
        EXPECT_EQ(Host.Activations, 0);
    }

    template <class Interface>
    ComPtr<Interface> As() {
        return Made.As<Interface>();
    }
    HRESULT DoVerb(LONG verb) {
        const RECT place{};
        return ComPtr<IOleObject>(Object)->DoVerb(verb, nullptr, Host.Site(), 0, nullptr, &place);
    }
    HRESULT Activate() {
        Object->SetClientSite(Host.Site());
        return DoVerb(OLEIVERB_INPLACEACTIVATE);
    }
    std::uint32_t Pixel(int x, int y) {
        const platform::Pixels pixels = Host.Window->Update();
        return pixels.Data[y * pixels.Stride + x];
    }

    RecordingContainer Host;
    ComPtr<Component> Made = ComPtr<Component>::Adopt(new Component);
    ComPtr<IOleObject> Object = Made.As<IOleObject>();
};

TEST_F(Container, IsAskedAndNotifiedAtEveryStepOfBeingActive) {
    const std::string enter =
        "CanInPlaceActivate OnInPlaceActivate GetWindowContext GetWindow ShowObject";
    struct {
        LONG Verb;
        HRESULT Status;
        std::string Calls;
    } const cases[] = {
        {OLEIVERB_INPLACEACTIVATE, S_OK, enter},
        {OLEIVERB_SHOW, S_OK, "ShowObject"},
        {OLEIVERB_UIACTIVATE, S_OK, "OnUIActivate SetActiveObject SetBorderSpace ShowObject"},
        {OLEIVERB_PRIMARY, S_OK, "ShowObject"},
        {OLEIVERB_HIDE, S_OK, "SetActiveObject(none) OnUIDeactivate"},
        {7, OLEOBJ_S_INVALIDVERB, "OnUIActivate SetActiveObject SetBorderSpace ShowObject"},
        {OLEIVERB_DISCARDUNDOSTATE, S_OK, ""},
        {OLEIVERB_OPEN, E_NOTIMPL, ""},
        {OLEIVERB_PROPERTIES, E_NOTIMPL, ""},
    };
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), OLEOBJ_S_CANNOT_DOVERB_NOW) << "without a site";
    Object->SetClientSite(Host.Site());
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Verb);
        EXPECT_EQ(DoVerb(one.Verb), one.Status);
        EXPECT_EQ(Host.Take(), one.Calls);
    }
    const auto inPlace = As<IOleInPlaceObject>();
    HWND window = nullptr;
    EXPECT_EQ(As<IOleInPlaceActiveObject>()->GetWindow(&window), S_OK);
    EXPECT_EQ(inPlace->GetWindow(&window), S_OK);
    EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
    EXPECT_EQ(Host.Take(), "SetActiveObject(none) OnUIDeactivate");
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(Host.Take(), "OnInPlaceDeactivate");
    EXPECT_EQ(inPlace->GetWindow(&window), E_FAIL);
    EXPECT_EQ(window, nullptr);
    DoVerb(OLEIVERB_PRIMARY);
    Host.Take();
    EXPECT_EQ(Object->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(Host.Take(), "SetActiveObject(none) OnUIDeactivate OnInPlaceDeactivate");
}

TEST_F(Container, MayRefuseAtEveryStep) {
    struct {
        const char* Call;
        HRESULT Answer;
        HRESULT Status;
        const char* Last;
    } const cases[] = {
        {"CanInPlaceActivate", S_FALSE, E_FAIL, "CanInPlaceActivate"},
        {"CanInPlaceActivate", E_ACCESSDENIED, E_ACCESSDENIED, "CanInPlaceActivate"},
        {"OnInPlaceActivate", E_ACCESSDENIED, E_ACCESSDENIED, "OnInPlaceActivate"},
        {"GetWindow", E_ACCESSDENIED, E_ACCESSDENIED, "GetWindow OnInPlaceDeactivate"},
        {"GetWindowContext", E_ACCESSDENIED, E_ACCESSDENIED, "OnInPlaceDeactivate"},
        {"OnUIActivate", E_ACCESSDENIED, E_ACCESSDENIED, "OnUIActivate"},
    };
    Object->SetClientSite(Host.Site());
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Call);
        Host.Failing = one.Call;
        Host.FailingStatus = one.Answer;
        EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), one.Status);
        EXPECT_TRUE(Host.Take().ends_with(one.Last));
    }
    Host.Failing.clear();
    As<IOleInPlaceObject>()->InPlaceDeactivate();
    Host.Window.reset();
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), E_FAIL) << "no window to be in";
    Host.HasInPlaceSite = false;
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), E_NOINTERFACE);
}

TEST_F(Container, MayDoAnythingInTheMiddleOfAStep) {
    const std::vector<std::pair<const char*, std::function<void()>>> acts = {
        {"close", [&] { As<IOleObject>()->Close(OLECLOSE_NOSAVE); }},
        {"deactivate", [&] { As<IOleInPlaceObject>()->InPlaceDeactivate(); }},
        {"hide", [&] { DoVerb(OLEIVERB_HIDE); }},
        {"activate", [&] { DoVerb(OLEIVERB_UIACTIVATE); }},
        {"take the site away", [&] { As<IOleObject>()->SetClientSite(nullptr); }},
        {"destroy the window", [&] { Host.Window.reset(); }},
        {"resize",
         [&] {
             SIZEL size{1000, 1000};
             As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
         }},
        {"let go", [&] {
             Object.Reset();
             Made.Reset();
         }}};
    for (const char* step :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
          "OnUIActivate", "SetActiveObject", "SetBorderSpace", "ShowObject",
          "SetActiveObject(none)", "OnUIDeactivate", "OnInPlaceDeactivate"}) {
        for (const auto& [name, act] : acts) {
            SCOPED_TRACE(std::string(name) + " in " + step);
            Made = ComPtr<Component>::Adopt(new Component);
            Object = Made.As<IOleObject>();
            Host.Window = std::make_unique<platform::OffscreenWindow>(200, 100);
            IOleObject* const object = Object.Get();
            object->SetClientSite(Host.Site());
            bool done = false;
            Host.InCall(step, [&] {
                act();
                done = true;
            });
            object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
            if (Made) object->Close(OLECLOSE_NOSAVE);
            EXPECT_TRUE(done);
            Object.Reset();
            Made.Reset();
            EXPECT_EQ(Host.Activations, 0);
            EXPECT_EQ(Host.References, 0u);
        }
    }
}

TEST_F(Container, ShowsItInAWindowOfItsOwn) {
    ASSERT_EQ(Activate(), S_OK);
    EXPECT_EQ(Pixel(10, 20), kPicture);
    EXPECT_EQ(Pixel(109, 69), kPicture);
    EXPECT_EQ(Made->Painted, (view::Rectangle{0, 0, 100, 50}));
    for (const auto& [x, y] : {std::pair{9, 20}, {10, 19}, {110, 69}, {109, 70}})
        EXPECT_EQ(Pixel(x, y), kBackground) << x << ' ' << y;

    const auto inPlace = As<IOleInPlaceObject>();
    const RECT place{-30, 40, 120, 140};
    const RECT clip{5, 50, 100, 1000};
    EXPECT_EQ(inPlace->SetObjectRects(&place, &clip), S_OK);
    EXPECT_EQ(Pixel(5, 50), kPicture);
    EXPECT_EQ(Pixel(99, 99), kPicture);
    for (const auto& [x, y] : {std::pair{4, 50}, {5, 49}, {100, 99}, {10, 20}})
        EXPECT_EQ(Pixel(x, y), kBackground) << x << ' ' << y;
    EXPECT_EQ(Made->Painted, (view::Rectangle{0, 0, 150, 100}));
    EXPECT_EQ(inPlace->SetObjectRects(nullptr, &clip), E_POINTER);
    EXPECT_EQ(inPlace->SetObjectRects(&place, nullptr), E_POINTER);

    // Drawing at once needs no painting.
    EXPECT_TRUE(Made->Front.DrawOnWindow(
        [](platform::DrawingTarget& target) { target.DrawVertical(40, -5, 500, 0xFF0000); }));
    EXPECT_EQ(Pixel(10, 50), 0xFF0000u);
    EXPECT_EQ(Pixel(10, 49), kBackground);
    EXPECT_EQ(Pixel(11, 50), kPicture);

    // Unseen sizes: nothing, and more than there can be.
    constexpr LONG kMost = std::numeric_limits<LONG>::max();
    constexpr LONG kLeast = std::numeric_limits<LONG>::min();
    for (const RECT& odd : {RECT{0, 0, 0, 0}, RECT{50, 50, 10, 10}, RECT{0, 0, kMost, kMost},
                            RECT{kLeast, kLeast, kMost, kMost}, RECT{kMost, kMost, kLeast, kLeast},
                            RECT{0, 0, 40000, 1}}) {
        EXPECT_EQ(inPlace->SetObjectRects(&odd, &odd), S_OK);
        EXPECT_EQ(Pixel(199, 99), kBackground);
    }
    Made->Painted = {};
    DoVerb(OLEIVERB_HIDE);
    inPlace->SetObjectRects(&place, &clip);
    EXPECT_EQ(Pixel(5, 50), kBackground);
    DoVerb(OLEIVERB_SHOW);
    EXPECT_EQ(Pixel(5, 50), kPicture);

    Host.Window.reset();
    EXPECT_FALSE(Made->Front.DrawOnWindow([](platform::DrawingTarget&) { FAIL(); }));
    EXPECT_EQ(inPlace->SetObjectRects(&place, &clip), S_OK);
    EXPECT_EQ(Object->Close(OLECLOSE_NOSAVE), S_OK);
}

TEST_F(Container, HasItDrawnWhereverItWants) {
    const auto view = As<IViewObject2>();
    constexpr LONG kMost = std::numeric_limits<LONG>::max();
    constexpr LONG kLeast = std::numeric_limits<LONG>::min();
    const struct {
        RECTL Bounds;
        HRESULT Status;
        view::Rectangle Painted;
    } cases[] = {
        {{5, 7, 25, 17}, S_OK, {5, 7, 25, 17}},
        {{25, 17, 5, 7}, S_OK, {5, 7, 25, 17}},
        {{-10, -10, 1, 1}, S_OK, {-10, -10, 1, 1}},
        {{3, 3, 3, 3}, S_OK, {3, 3, 3, 3}},
        {{kMost - 1, kLeast, kMost, kLeast + 1}, S_OK, {kMost - 1, kLeast, kMost, kLeast + 1}},
        {{0, 0, 32768, 1}, E_OUTOFMEMORY, {}},
        {{0, 0, 32767, 32767}, E_OUTOFMEMORY, {}},
        {{kLeast, kLeast, kMost, kMost}, E_OUTOFMEMORY, {}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Bounds.left));
        std::vector<std::uint32_t> pixels(30 * 20);
        platform::PixelTarget target({pixels.data(), 30, 20, 30});
        Made->Painted = {};
        EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &target, &one.Bounds,
                             nullptr, nullptr, 0),
                  one.Status);
        EXPECT_EQ(Made->Painted, one.Painted);
        for (LONG y = 0; y < 20; ++y)
            for (LONG x = 0; x < 30; ++x)
                ASSERT_EQ(pixels[static_cast<std::size_t>(y * 30 + x)] == kPicture,
                          x >= one.Painted.Left && x < one.Painted.Right && y >= one.Painted.Top &&
                              y < one.Painted.Bottom)
                    << x << ' ' << y;
    }
    std::uint32_t pixel = 0;
    platform::PixelTarget target({&pixel, 1, 1, 1});
    const auto draw = [&](DWORD aspect, HDC where, LPCRECTL bounds) {
        return view->Draw(aspect, -1, nullptr, nullptr, nullptr, where, bounds, nullptr, nullptr,
                          0);
    };
    const RECTL bounds{0, 0, 1, 1};
    EXPECT_EQ(draw(DVASPECT_ICON, &target, &bounds), DV_E_DVASPECT);
    EXPECT_EQ(draw(DVASPECT_CONTENT, nullptr, &bounds), E_INVALIDARG);
    EXPECT_EQ(draw(DVASPECT_CONTENT, &target, nullptr), E_INVALIDARG);

    // The window shows its own picture again.
    Activate();
    Host.Window->Update();
    draw(DVASPECT_CONTENT, &target, &bounds);
    Host.Window->Update();
    EXPECT_EQ(Made->Painted, (view::Rectangle{0, 0, 100, 50}));
}

TEST_F(Container, HearsOfAnotherPictureWhileThereIsNoWindow) {
    auto view = As<IViewObject>();
    const auto take = [&] {
        Made->Front.RequestRepaint();
        return Host.Take();
    };
    EXPECT_EQ(take(), "");
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, Host.Sink()), S_OK);
    EXPECT_EQ(Host.Take(), "OnViewChange(1, -1)");
    EXPECT_EQ(take(), "OnViewChange(1, -1)");
    DWORD aspects = 0;
    DWORD flags = 0;
    ComPtr<IAdviseSink> sink;
    EXPECT_EQ(view->GetAdvise(&aspects, &flags, sink.Put()), S_OK);
    EXPECT_EQ(aspects, DWORD{DVASPECT_CONTENT});
    EXPECT_EQ(flags, DWORD{ADVF_PRIMEFIRST});
    EXPECT_EQ(sink.Get(), Host.Sink());
    EXPECT_EQ(view->GetAdvise(nullptr, nullptr, nullptr), S_OK);
    sink.Reset();
    view->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, Host.Sink());
    EXPECT_EQ(take(), "OnViewChange(1, -1)");
    EXPECT_EQ(take(), "");
    view->SetAdvise(DVASPECT_ICON, 0, Host.Sink());
    EXPECT_EQ(take(), "");
    view->SetAdvise(DVASPECT_CONTENT, 0, Host.Sink());
    SIZEL size{2540, 2540};
    EXPECT_EQ(Object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(Host.Take(), "OnViewChange(1, -1)");
    view.Reset();
    Host.InCall("OnViewChange(1, -1)", [&] {
        Object.Reset();
        Made.Reset();
    });
    size.cx = 1;
    IOleObject* const object = Object.Get();
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(Host.References, 0u) << "the last reference went in the notification";
}

TEST_F(Container, HearsOfSavingAndOfTheEnd) {
    DWORD first = 0;
    DWORD second = 0;
    EXPECT_EQ(Object->Advise(Host.Sink(), &first), S_OK);
    EXPECT_EQ(Object->Advise(Host.Sink(), &second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(Object->Advise(nullptr, &second), E_POINTER);
    ComPtr<IEnumSTATDATA> connections;
    ASSERT_EQ(Object->EnumAdvise(connections.Put()), S_OK);
    STATDATA found[3] = {};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(3, found, &count), S_FALSE);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(found[1].dwConnection, second);
    for (ULONG i = 0; i < count; ++i)
        ComPtr<IAdviseSink>::Adopt(found[i].pAdvSink);
    connections.Reset();

    As<IPersistStorage>()->SaveCompleted(nullptr);
    EXPECT_EQ(Host.Take(), "OnSave OnSave");
    EXPECT_EQ(Object->Unadvise(first), S_OK);
    EXPECT_EQ(Object->Unadvise(first), OLE_E_NOCONNECTION);

    Object->SetClientSite(Host.Site());
    EXPECT_EQ(Object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(Host.Take(), "OnClose");
    SIZEL size{2540, 2540};
    Object->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(Object->Close(OLECLOSE_PROMPTSAVE), S_OK);
    EXPECT_EQ(Host.Take(), "SaveObject OnSave OnClose");
    EXPECT_EQ(Object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(Host.Take(), "OnClose");
    Host.InCall("OnClose", [&] { As<IOleObject>()->Unadvise(second); });
    Object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(Object->Unadvise(second), OLE_E_NOCONNECTION);
}

TEST_F(Container, GivesItASizeAndAsksForAPlaceOfThatSize) {
    SIZEL size{};
    EXPECT_EQ(As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size), S_OK);
    EXPECT_EQ(size.cx, 12700);
    Activate();
    size = {2540 * 3, 1270};
    EXPECT_EQ(Object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(Host.Wanted.left, 10);
    EXPECT_EQ(Host.Wanted.top, 20);
    EXPECT_EQ(Host.Wanted.right, 10 + 288);
    EXPECT_EQ(Host.Wanted.bottom, 20 + 48);
    Host.Take();
    EXPECT_EQ(Object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(Host.Take(), "") << "nothing has changed";
    EXPECT_EQ(Object->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
    EXPECT_EQ(Object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    SIZEL negative{-1, 5};
    EXPECT_EQ(Object->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
    EXPECT_EQ(Object->GetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
    EXPECT_EQ(Object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    DWORD status = 0;
    EXPECT_EQ(Object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473u);
}

TEST_F(Container, GetsThePictureAsABitmap) {
    const auto data = As<IDataObject>();
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.Put()), S_OK);
    FORMATETC format{};
    ASSERT_EQ(formats->Next(1, &format, nullptr), S_OK);
    EXPECT_EQ(data->QueryGetData(&format), S_OK);
    SIZEL size{2540 * 2 / 96, 2540 * 3 / 96};
    Object->SetExtent(DVASPECT_CONTENT, &size);
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    ASSERT_EQ(GlobalSize(medium.hGlobal), 40u + 2 * 3 * 4);
    std::uint32_t words[16] = {};
    std::memcpy(words, GlobalLock(medium.hGlobal), sizeof words);
    GlobalUnlock(medium.hGlobal);
    ReleaseStgMedium(&medium);
    EXPECT_THAT(words, testing::ElementsAre(40, 2, 3, 32 << 16 | 1, 0, 24, 0, 0, 0, 0, kPicture,
                                            kPicture, kPicture, kPicture, kPicture, kPicture));
    const auto refused = [&](auto change) {
        FORMATETC other = format;
        change(other);
        EXPECT_EQ(data->QueryGetData(&other), data->GetData(&other, &medium));
        return data->QueryGetData(&other);
    };
    EXPECT_EQ(refused([](FORMATETC& f) { f.cfFormat = 1; }), DV_E_FORMATETC);
    EXPECT_EQ(refused([](FORMATETC& f) { f.dwAspect = DVASPECT_ICON; }), DV_E_DVASPECT);
    EXPECT_EQ(refused([](FORMATETC& f) { f.lindex = 0; }), DV_E_LINDEX);
    EXPECT_EQ(refused([](FORMATETC& f) { f.tymed = TYMED_ISTREAM; }), DV_E_TYMED);
    size = {10000000, 10000000};
    Object->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(data->GetData(&format, &medium), E_OUTOFMEMORY);
}

class ControlInContainer : public ControlTest {};

TEST_F(ControlInContainer, IsOneObjectThroughAllItsInterfaces) {
    const IID* const all[] = {&interfaces::IID_IMavrin2,
                              &IID_IDispatch,
                              &IID_IViewObjectEx,
                              &IID_IViewObject2,
                              &IID_IViewObject,
                              &IID_IOleInPlaceObjectWindowless,
                              &IID_IOleInPlaceObject,
                              &IID_IOleWindow,
                              &IID_IOleInPlaceActiveObject,
                              &IID_IOleControl,
                              &IID_IOleObject,
                              &IID_IPersistStreamInit,
                              &IID_IPersist,
                              &IID_ISupportErrorInfo,
                              &IID_IConnectionPointContainer,
                              &IID_ISpecifyPropertyPages,
                              &IID_IQuickActivate,
                              &IID_IPersistStorage,
                              &IID_IDataObject,
                              &IID_IProvideClassInfo,
                              &IID_IProvideClassInfo2};
    const ComPtr<IUnknown> identity = Control.As<IUnknown>();
    for (std::size_t i = 0; i < std::size(all); ++i) {
        SCOPED_TRACE(i);
        ComPtr<IUnknown> part;
        ASSERT_EQ(Control->QueryInterface(*all[i], part.PutVoid()), S_OK);
        EXPECT_EQ(part.As<IUnknown>().Get(), identity.Get());
        for (const IID* other : all) {
            ComPtr<IUnknown> again;
            EXPECT_EQ(part->QueryInterface(*other, again.PutVoid()), S_OK);
        }
        EXPECT_EQ(part->QueryInterface(*all[i], nullptr), E_POINTER);
        void* nothing = this;
        EXPECT_EQ(part->QueryInterface(IID_IClassFactory, &nothing), E_NOINTERFACE);
        EXPECT_EQ(nothing, nullptr);
    }
}

TEST_F(ControlInContainer, IsConnectedInOneCall) {
    RecordingContainer host;
    QACONTAINER container{};
    container.cbSize = sizeof container;
    container.pClientSite = host.Site();
    container.pAdviseSink = host.Sink();
    container.pUnkEventSink = Events.Get();
    QACONTROL control{};
    control.cbSize = sizeof control;
    auto quick = Control.As<IQuickActivate>();
    EXPECT_EQ(quick->QuickActivate(nullptr, &control), E_POINTER);
    EXPECT_EQ(quick->QuickActivate(&container, nullptr), E_POINTER);
    ASSERT_EQ(quick->QuickActivate(&container, &control), S_OK);
    EXPECT_EQ(control.dwMiscStatus, 131473u);
    EXPECT_EQ(control.dwViewStatus, DWORD{VIEWSTATUS_OPAQUE});
    EXPECT_NE(control.dwEventCookie, 0u);
    EXPECT_EQ(control.dwPropNotifyCookie, 0u);
    NewSound();
    EXPECT_EQ(Events->Take(), "end end") << "the sink was connected before";
    EXPECT_NE(host.Take(), "");
    SIZEL size{5000, 4000};
    EXPECT_EQ(quick->SetContentExtent(&size), S_OK);
    size = {};
    EXPECT_EQ(quick->GetContentExtent(&size), S_OK);
    EXPECT_EQ(size.cx, 5000);
    control.cbSize = 4;
    EXPECT_EQ(quick->QuickActivate(&container, &control), E_INVALIDARG);

    CAUUID pages{7, nullptr};
    EXPECT_EQ(Control.As<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
    EXPECT_EQ(pages.cElems, 0u);
    LPOLESTR type = nullptr;
    EXPECT_EQ(Control.As<IOleObject>()->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
    EXPECT_EQ(std::u16string(type), u"KovMavrin2 Class");
    CoTaskMemFree(type);
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(Control.As<IOleObject>()->EnumVerbs(verbs.Put()), S_OK);
    OLEVERB verb{};
    ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
    EXPECT_EQ(verb.lVerb, OLEIVERB_PRIMARY);
    CoTaskMemFree(verb.lpszVerbName);
    EXPECT_EQ(verbs->Next(1, &verb, nullptr), S_FALSE);

    // The host lets go while the control is active, without a word.
    EXPECT_EQ(Control.As<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr,
                                               nullptr),
              S_OK);
    EXPECT_EQ(host.Activations, 1);
    quick.Reset();
    End();
    EXPECT_EQ(host.Activations, 0);
    EXPECT_EQ(host.References, 0u);
}

}  // namespace
}  // namespace mavrin2::tests
