#include "companions/ontiva/information_companion.h"

#include <algorithm>
#include <charconv>

#include "automation/error_information.h"
#include "automation/text.h"
#include "companions/ontiva/info/genres.h"

namespace mavrin2::ontiva {
namespace {

// Texts in files end at a zero.
std::string TextOf(BSTR text) {
    std::string utf8 = automation::ToWellFormedUtf8(automation::Bstr::View(text));
    std::replace(utf8.begin(), utf8.end(), '\0', ' ');
    return utf8;
}

// The path a host means; empty, which no file has, for a name that no file can have.
std::filesystem::path PathOf(BSTR name) {
    const automation::OleStringView text = automation::Bstr::View(name);
    return text.find(OLECHAR{0}) == automation::OleStringView::npos ? automation::ToPath(text)
                                                                    : std::filesystem::path();
}

// The number that a text such as "5/12" begins with; otherwise 0.
std::int32_t NumberIn(std::string_view text) {
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

template <class Value>
HRESULT Give(Value* target, Value value) {
    if (!target) return E_POINTER;
    *target = value;
    return S_OK;
}

}  // namespace

template <class Use>
HRESULT InformationCompanion::WithFile(Use use) {
    return automation::Guarded([&]() -> HRESULT {
        try {
            use();
            return S_OK;
        } catch (const std::runtime_error& error) {
            automation::LeaveErrorInformation(contracts::IID_IOntiva, "KovOntiva.Ontiva",
                                              error.what());
            return E_FAIL;
        }
    });
}

STDMETHODIMP InformationCompanion::ReadInfo(BSTR fileName) {
    info_ = {};
    selected_ = 0;
    if (!on_) return S_OK;
    return WithFile([&] { info_ = files_.Read(PathOf(fileName)); });
}

STDMETHODIMP InformationCompanion::WriteInfo(BSTR fileName) {
    if (!on_) return S_OK;
    return WithFile([&] { files_.Write(PathOf(fileName), info_); });
}

STDMETHODIMP InformationCompanion::GenreToString(SHORT genre, BSTR* name) {
    return automation::Guarded([&]() -> HRESULT {
        return Give(name, name ? automation::NewBstr(GenreName(genre)) : nullptr);
    });
}

STDMETHODIMP InformationCompanion::get_Mp3TagInfoVersion(SHORT* version) {
    return Give(version, info_.TagVersion);
}

STDMETHODIMP InformationCompanion::put_Mp3TagInfoVersion(SHORT version) {
    info_.TagVersion = version;
    info_.WantedVersion = version == 4 ? 4 : 3;
    return S_OK;
}

STDMETHODIMP InformationCompanion::put_InfoSwitch(LONG on) {
    on_ = on != 0;
    return S_OK;
}

HRESULT InformationCompanion::Get(std::string_view name, BSTR* text) {
    return automation::Guarded([&]() -> HRESULT {
        return Give(text, text ? automation::NewBstr(info_.Texts.Joined(name)) : nullptr);
    });
}

HRESULT InformationCompanion::Put(std::string_view name, BSTR text) {
    return automation::Guarded([&] {
        std::string value = TextOf(text);
        if (value != info_.Texts.Joined(name)) info_.Texts.Set(name, std::move(value));
    });
}

void InformationCompanion::PutNumber(std::string_view name, std::int32_t number) {
    if (number == NumberIn(info_.Texts.First(name))) return;
    info_.Texts.Set(name, number == 0 ? std::string() : std::to_string(number));
}

STDMETHODIMP InformationCompanion::get_Genre(SHORT* genre) {
    return Give(genre, GenreNumber(info_.Texts.First("GENRE")));
}

STDMETHODIMP InformationCompanion::put_Genre(SHORT genre) {
    return automation::Guarded([&] {
        if (genre != GenreNumber(info_.Texts.First("GENRE")))
            info_.Texts.Set("GENRE", std::string(GenreName(genre)));
    });
}

STDMETHODIMP InformationCompanion::get_Year(LONG* year) {
    return Give(year, LONG{NumberIn(info_.Texts.First("DATE"))});
}

STDMETHODIMP InformationCompanion::put_Year(LONG year) {
    return automation::Guarded([&] { PutNumber("DATE", year); });
}

STDMETHODIMP InformationCompanion::get_Track(SHORT* track) {
    const std::int32_t number = NumberIn(info_.Texts.First("TRACKNUMBER"));
    return Give(track, static_cast<SHORT>(std::clamp<std::int32_t>(number, INT16_MIN, INT16_MAX)));
}

STDMETHODIMP InformationCompanion::put_Track(SHORT track) {
    return automation::Guarded([&] { PutNumber("TRACKNUMBER", track); });
}

STDMETHODIMP InformationCompanion::InfoAddMarker(LONG position, LONG length, BSTR label, BSTR note,
                                                 BSTR text, LONG country, LONG language,
                                                 LONG dialect, LONG codePage) {
    return automation::Guarded([&] {
        const auto half = [](LONG number) {
            return std::int32_t{static_cast<std::uint16_t>(number)};
        };
        info_.Markers.push_back({std::max<std::int32_t>(position, 0),
                                 std::max<std::int32_t>(length, 0),
                                 TextOf(label),
                                 TextOf(note),
                                 TextOf(text),
                                 {half(country), half(language), half(dialect), half(codePage)}});
    });
}

STDMETHODIMP InformationCompanion::InfoRemoveMarker() {
    if (info_.Markers.empty()) return S_FALSE;
    info_.Markers.pop_back();
    return S_OK;
}

STDMETHODIMP InformationCompanion::get_InfoMarkerCount(LONG* count) {
    return Give(count, static_cast<LONG>(info_.Markers.size()));
}

STDMETHODIMP InformationCompanion::put_InfoMarkerNum(LONG number) {
    selected_ = static_cast<std::size_t>(std::max<LONG>(number, 0));
    return Selected() ? S_OK : E_INVALIDARG;
}

const Marker* InformationCompanion::Selected() const {
    return selected_ >= 1 && selected_ <= info_.Markers.size() ? &info_.Markers[selected_ - 1]
                                                               : nullptr;
}

STDMETHODIMP InformationCompanion::get_InfoMarkerPosition(LONG* frames) {
    const Marker* marker = Selected();
    const HRESULT given = Give(frames, LONG{marker ? marker->Position : 0});
    return marker ? given : E_FAIL;
}

STDMETHODIMP InformationCompanion::get_InfoMarkerLength(LONG* frames) {
    const Marker* marker = Selected();
    const HRESULT given = Give(frames, LONG{marker ? marker->Length : 0});
    return marker ? given : E_FAIL;
}

HRESULT InformationCompanion::Get(std::string Marker::*part, BSTR* text) {
    return automation::Guarded([&]() -> HRESULT {
        if (!text) return E_POINTER;
        const Marker* marker = Selected();
        *text = marker ? automation::NewBstr(marker->*part) : nullptr;
        return marker ? S_OK : E_FAIL;
    });
}

HRESULT InformationCompanion::GetNumber(std::size_t index, LONG* number) {
    const Marker* marker = Selected();
    const HRESULT given = Give(number, LONG{marker ? marker->Numbers[index] : 0});
    return marker ? given : E_FAIL;
}

}  // namespace mavrin2::ontiva
