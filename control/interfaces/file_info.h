#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The sound's format, and the tags that go with it into files: opening a file replaces them, and
// until then they are what a host has put. Texts that are read become the caller's. Every member
// succeeds, with or without a document.
struct IMavrin2FileInfo : public IDispatch {
    static constexpr IID Id = IID_IMavrin2FileInfo;

    // The name of a genre of ID3v1; empty for a number without one.
    virtual HRESULT STDMETHODCALLTYPE GenreToString(SHORT nGenre, BSTR* Name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Frequency(FrequencyConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(ChannelsConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Title(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Title(BSTR Value) = 0;
    // 0 for none.
    virtual HRESULT STDMETHODCALLTYPE get_Year(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Year(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Artist(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Artist(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Album(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Album(BSTR Value) = 0;
    // Of the file last opened or saved.
    virtual HRESULT STDMETHODCALLTYPE get_FormatString(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Composer(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Composer(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_URL(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_URL(BSTR Value) = 0;
    // 0 for none.
    virtual HRESULT STDMETHODCALLTYPE get_Track(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Track(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_EncodedBy(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EncodedBy(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Comments(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Comments(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Copyright(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Copyright(BSTR Value) = 0;
    // In the list of ID3v1; 255 for none and for any other text.
    virtual HRESULT STDMETHODCALLTYPE get_Genre(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Genre(SHORT Value) = 0;
    // Any text.
    virtual HRESULT STDMETHODCALLTYPE get_GenreS(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_GenreS(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_OriginalArtist(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_OriginalArtist(BSTR Value) = 0;
    // Whether Save writes markers and tags; kept as given, 1 at first.
    virtual HRESULT STDMETHODCALLTYPE get_SaveExtraInfoEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SaveExtraInfoEnabled(VARIANT_BOOL Value) = 0;
    // Of the tag that was read: 2 to 4 for ID3v2, 1 for ID3v1, 0 for none. With 4 put, tags are
    // written as ID3v2.4, otherwise as ID3v2.3.
    virtual HRESULT STDMETHODCALLTYPE get_Mp3TagInfoVersion(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Mp3TagInfoVersion(SHORT Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileInfo>();
}  // namespace mavrin2::automation
