#pragma once

#include "automation/object.h"
#include "companions/contracts/ontiva.h"
#include "companions/ontiva/info_files.h"

namespace mavrin2::ontiva {

// The class KovOntiva: the tags and markers of one file.
class InformationCompanion final
    : public automation::AutomationObject<InformationCompanion, contracts::IOntiva> {
public:
    InformationCompanion(IUnknown* outer, InfoFiles files)
        : AutomationObject(outer), files_(std::move(files)) {}

    STDMETHODIMP ReadInfo(BSTR fileName) override;
    STDMETHODIMP WriteInfo(BSTR fileName) override;
    STDMETHODIMP GenreToString(SHORT genre, BSTR* name) override;
    STDMETHODIMP get_Mp3TagInfoVersion(SHORT* version) override;
    STDMETHODIMP put_Mp3TagInfoVersion(SHORT version) override;
    STDMETHODIMP put_InfoSwitch(LONG on) override;
    STDMETHODIMP get_Album(BSTR* text) override { return Get("ALBUM", text); }
    STDMETHODIMP put_Album(BSTR text) override { return Put("ALBUM", text); }
    STDMETHODIMP get_Artist(BSTR* text) override { return Get("ARTIST", text); }
    STDMETHODIMP put_Artist(BSTR text) override { return Put("ARTIST", text); }
    STDMETHODIMP get_Comments(BSTR* text) override { return Get("COMMENT", text); }
    STDMETHODIMP put_Comments(BSTR text) override { return Put("COMMENT", text); }
    STDMETHODIMP get_Copyright(BSTR* text) override { return Get("COPYRIGHT", text); }
    STDMETHODIMP put_Copyright(BSTR text) override { return Put("COPYRIGHT", text); }
    STDMETHODIMP get_Genre(SHORT* genre) override;
    STDMETHODIMP put_Genre(SHORT genre) override;
    STDMETHODIMP get_Title(BSTR* text) override { return Get("TITLE", text); }
    STDMETHODIMP put_Title(BSTR text) override { return Put("TITLE", text); }
    STDMETHODIMP get_Year(LONG* year) override;
    STDMETHODIMP put_Year(LONG year) override;
    STDMETHODIMP get_URL(BSTR* text) override { return Get("URL", text); }
    STDMETHODIMP put_URL(BSTR text) override { return Put("URL", text); }
    STDMETHODIMP get_Track(SHORT* track) override;
    STDMETHODIMP put_Track(SHORT track) override;
    STDMETHODIMP get_EncodedBy(BSTR* text) override { return Get("ENCODEDBY", text); }
    STDMETHODIMP put_EncodedBy(BSTR text) override { return Put("ENCODEDBY", text); }
    STDMETHODIMP get_Composer(BSTR* text) override { return Get("COMPOSER", text); }
    STDMETHODIMP put_Composer(BSTR text) override { return Put("COMPOSER", text); }
    STDMETHODIMP get_GenreS(BSTR* text) override { return Get("GENRE", text); }
    STDMETHODIMP put_GenreS(BSTR text) override { return Put("GENRE", text); }
    STDMETHODIMP get_OriginalArtist(BSTR* text) override { return Get("ORIGINALARTIST", text); }
    STDMETHODIMP put_OriginalArtist(BSTR text) override { return Put("ORIGINALARTIST", text); }
    STDMETHODIMP InfoAddMarker(LONG position, LONG length, BSTR label, BSTR note, BSTR text,
                               LONG country, LONG language, LONG dialect, LONG codePage) override;
    STDMETHODIMP InfoRemoveMarker() override;
    STDMETHODIMP get_InfoMarkerCount(LONG* count) override;
    STDMETHODIMP put_InfoMarkerNum(LONG number) override;
    STDMETHODIMP get_InfoMarkerPosition(LONG* frames) override;
    STDMETHODIMP get_InfoMarkerLength(LONG* frames) override;
    STDMETHODIMP get_InfoMarkerLabel(BSTR* text) override { return Get(&Marker::Label, text); }
    STDMETHODIMP get_InfoMarkerNote(BSTR* text) override { return Get(&Marker::Note, text); }
    STDMETHODIMP get_InfoMarkerText(BSTR* text) override { return Get(&Marker::Text, text); }
    STDMETHODIMP get_InfoMarkerCountry(LONG* number) override { return GetNumber(0, number); }
    STDMETHODIMP get_InfoMarkerLanguage(LONG* number) override { return GetNumber(1, number); }
    STDMETHODIMP get_InfoMarkerDialect(LONG* number) override { return GetNumber(2, number); }
    STDMETHODIMP get_InfoMarkerCodePage(LONG* number) override { return GetNumber(3, number); }

private:
    // Runs `use`, and reports in the usual way what it throws.
    template <class Use>
    HRESULT WithFile(Use use);
    HRESULT Get(std::string_view name, BSTR* text);
    HRESULT Put(std::string_view name, BSTR text);
    HRESULT Get(std::string Marker::*part, BSTR* text);
    HRESULT GetNumber(std::size_t index, LONG* number);
    void PutNumber(std::string_view name, std::int32_t number);
    // The selected marker, or null.
    const Marker* Selected() const;

    InfoFiles files_;
    SoundInfo info_;
    std::size_t selected_ = 0;  // from 1, 0 for none
    bool on_ = true;
};

}  // namespace mavrin2::ontiva
