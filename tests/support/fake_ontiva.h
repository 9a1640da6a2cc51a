#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "automation/object.h"
#include "automation/text.h"
#include "companions/contracts/ontiva.h"

namespace mavrin2::tests {

// An information companion whose files are in memory.
class FakeOntiva final : public automation::AutomationObject<FakeOntiva, contracts::IOntiva> {
public:
    struct Marker {
        LONG Position = 0;
        LONG Length = 0;
        std::string Label;
        std::string Note;
        std::string Text;
        bool operator==(const Marker&) const = default;
    };
    struct Info {
        std::map<std::string, std::string> Texts;  // by property
        std::map<std::string, LONG> Numbers;
        std::vector<Marker> Markers;
    };

    explicit FakeOntiva(IUnknown* outer) : AutomationObject(outer) {}
    ~FakeOntiva() = default;

    std::map<std::string, Info> Files;  // by path
    Info Held;
    std::string Calls;                 // of those about files and the switch
    std::function<void()> OnCall;      // may throw, before anything is done
    bool GivesTexts = true;            // otherwise null instead
    std::optional<LONG> ClaimedCount;  // of the markers, where it is not the true one

    STDMETHODIMP ReadInfo(BSTR fileName) override {
        return Do("ReadInfo", fileName, [&] { Held = Files[TextOf(fileName)]; });
    }
    STDMETHODIMP WriteInfo(BSTR fileName) override {
        return Do("WriteInfo", fileName, [&] { Files[TextOf(fileName)] = Held; });
    }
    STDMETHODIMP GenreToString(SHORT genre, BSTR* name) override {
        return GiveText("Genre " + std::to_string(genre), name);
    }
    STDMETHODIMP put_InfoSwitch(LONG on) override {
        Calls += "InfoSwitch(" + std::to_string(on) + ")";
        return S_OK;
    }

#define TEXT_PROPERTY(name)                        \
    STDMETHODIMP get_##name(BSTR* text) override { \
        return GiveText(Held.Texts[#name], text);  \
    }                                              \
    STDMETHODIMP put_##name(BSTR text) override {  \
        Held.Texts[#name] = TextOf(text);          \
        return S_OK;                               \
    }
// NOLINTBEGIN(bugprone-macro-parentheses): a type takes none.
#define NUMBER_PROPERTY(name, type)                      \
    STDMETHODIMP get_##name(type* value) override {      \
        *value = static_cast<type>(Held.Numbers[#name]); \
        return S_OK;                                     \
    }                                                    \
    STDMETHODIMP put_##name(type value) override {       \
        Held.Numbers[#name] = value;                     \
        return S_OK;                                     \
    }
    // NOLINTEND(bugprone-macro-parentheses)
    TEXT_PROPERTY(Album)
    TEXT_PROPERTY(Artist)
    TEXT_PROPERTY(Comments)
    TEXT_PROPERTY(Copyright)
    TEXT_PROPERTY(Title)
    TEXT_PROPERTY(URL)
    TEXT_PROPERTY(EncodedBy)
    TEXT_PROPERTY(Composer)
    TEXT_PROPERTY(GenreS)
    TEXT_PROPERTY(OriginalArtist)
    NUMBER_PROPERTY(Mp3TagInfoVersion, SHORT)
    NUMBER_PROPERTY(Genre, SHORT)
    NUMBER_PROPERTY(Year, LONG)
    NUMBER_PROPERTY(Track, SHORT)
#undef TEXT_PROPERTY
#undef NUMBER_PROPERTY

    STDMETHODIMP InfoAddMarker(LONG position, LONG length, BSTR label, BSTR note, BSTR text, LONG,
                               LONG, LONG, LONG) override {
        Held.Markers.push_back({position, length, TextOf(label), TextOf(note), TextOf(text)});
        return S_OK;
    }
    STDMETHODIMP InfoRemoveMarker() override {
        if (!Held.Markers.empty()) Held.Markers.pop_back();
        return S_OK;
    }
    STDMETHODIMP get_InfoMarkerCount(LONG* count) override {
        *count = ClaimedCount.value_or(static_cast<LONG>(Held.Markers.size()));
        return S_OK;
    }
    STDMETHODIMP put_InfoMarkerNum(LONG number) override {
        selected_ = static_cast<std::size_t>(number - 1);
        return S_OK;
    }
    STDMETHODIMP get_InfoMarkerPosition(LONG* frames) override {
        *frames = Held.Markers.at(selected_).Position;
        return S_OK;
    }
    STDMETHODIMP get_InfoMarkerLength(LONG* frames) override {
        *frames = Held.Markers.at(selected_).Length;
        return S_OK;
    }
    STDMETHODIMP get_InfoMarkerLabel(BSTR* text) override {
        return GiveText(Held.Markers.at(selected_).Label, text);
    }
    STDMETHODIMP get_InfoMarkerNote(BSTR* text) override {
        return GiveText(Held.Markers.at(selected_).Note, text);
    }
    STDMETHODIMP get_InfoMarkerText(BSTR* text) override {
        return GiveText(Held.Markers.at(selected_).Text, text);
    }
    STDMETHODIMP get_InfoMarkerCountry(LONG*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP get_InfoMarkerLanguage(LONG*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP get_InfoMarkerDialect(LONG*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP get_InfoMarkerCodePage(LONG*) override {
        return E_NOTIMPL;
    }

private:
    static std::string TextOf(BSTR text) {
        return automation::ToUtf8(automation::Bstr::View(text));
    }
    HRESULT GiveText(const std::string& value, BSTR* text) const {
        *text = GivesTexts ? automation::NewBstr(std::string_view(value)) : nullptr;
        return S_OK;
    }
    template <class Act>
    HRESULT Do(const char* name, BSTR fileName, Act act) {
        Calls += std::string(name) + "(" + TextOf(fileName) + ")";
        if (OnCall) OnCall();
        act();
        return S_OK;
    }

    std::size_t selected_ = 0;
};

}  // namespace mavrin2::tests
