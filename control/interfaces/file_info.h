#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The sound's format. Every member succeeds, with or without a document.
struct IMavrin2FileInfo : public IDispatch {
    static constexpr IID Id = IID_IMavrin2FileInfo;

    MAVRIN2_RESERVED(GenreToString, 1)
    virtual HRESULT STDMETHODCALLTYPE get_Frequency(FrequencyConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(ChannelsConstants* Value) = 0;
    MAVRIN2_RESERVED_PROPERTY(Title, 7)
    MAVRIN2_RESERVED_PROPERTY(Year, 8)
    MAVRIN2_RESERVED_PROPERTY(Artist, 9)
    MAVRIN2_RESERVED_PROPERTY(Album, 10)
    // Of the file last opened or saved.
    virtual HRESULT STDMETHODCALLTYPE get_FormatString(BSTR* Value) = 0;
    MAVRIN2_RESERVED_PROPERTY(Composer, 12)
    MAVRIN2_RESERVED_PROPERTY(URL, 13)
    MAVRIN2_RESERVED_PROPERTY(Track, 14)
    MAVRIN2_RESERVED_PROPERTY(EncodedBy, 15)
    MAVRIN2_RESERVED_PROPERTY(Comments, 16)
    MAVRIN2_RESERVED_PROPERTY(Copyright, 17)
    MAVRIN2_RESERVED_PROPERTY(Genre, 18)
    MAVRIN2_RESERVED_PROPERTY(GenreS, 19)
    MAVRIN2_RESERVED_PROPERTY(OriginalArtist, 20)
    // Whether Save writes markers and tags; kept as given, 1 at first.
    virtual HRESULT STDMETHODCALLTYPE get_SaveExtraInfoEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SaveExtraInfoEnabled(VARIANT_BOOL Value) = 0;
    MAVRIN2_RESERVED_PROPERTY(Mp3TagInfoVersion, 40)
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileInfo>();
}  // namespace mavrin2::automation
