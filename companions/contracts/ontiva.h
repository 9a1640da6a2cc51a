#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The information companion: tags and markers in sound files. It holds those of one file at a time,
// which ReadInfo replaces, a caller edits and WriteInfo writes to an existing file.
//
// Texts that are given out become the caller's. A text property that is read has all its values,
// joined by "; "; one that is put replaces them, and an empty one removes the field. What ReadInfo
// found besides (other fields, pictures) goes along with WriteInfo, except what describes one file
// only: loudness, length, encoder.
//
// Statuses are for callers who want them, with error information that says what is wrong.
struct IOntiva : public IDispatch {
    static constexpr IID Id = IID_IOntiva;

    // Everything held is dropped first, also when reading fails. A file that holds no tags, or that
    // no header describes, is read as one with none.
    virtual HRESULT STDMETHODCALLTYPE ReadInfo(BSTR fileName) = 0;
    // The file is changed wholly or not at all. Fails for files that cannot hold what is to be
    // written, such as those without a header.
    virtual HRESULT STDMETHODCALLTYPE WriteInfo(BSTR fileName) = 0;
    // The name of a genre of ID3v1; empty for a number without one.
    virtual HRESULT STDMETHODCALLTYPE GenreToString(SHORT genre, BSTR* name) = 0;
    // The second number of the ID3v2 tag that was read, 1 for ID3v1 alone, 0 for none. Put 4 for
    // tags of version 2.4; otherwise 2.3 is written.
    virtual HRESULT STDMETHODCALLTYPE get_Mp3TagInfoVersion(SHORT* version) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Mp3TagInfoVersion(SHORT version) = 0;
    // 0: ReadInfo only drops what is held, WriteInfo does nothing. Initially 1.
    virtual HRESULT STDMETHODCALLTYPE put_InfoSwitch(LONG on) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Album(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Album(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Artist(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Artist(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Comments(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Comments(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Copyright(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Copyright(BSTR text) = 0;
    // The number of the genre in the list of ID3v1, 255 for none and for any other text.
    virtual HRESULT STDMETHODCALLTYPE get_Genre(SHORT* genre) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Genre(SHORT genre) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Title(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Title(BSTR text) = 0;
    // 0 for none. A text such as "2001-05-03" stays while its number is put again; so with Track.
    virtual HRESULT STDMETHODCALLTYPE get_Year(LONG* year) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Year(LONG year) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_URL(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_URL(BSTR text) = 0;
    // 0 for none.
    virtual HRESULT STDMETHODCALLTYPE get_Track(SHORT* track) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Track(SHORT track) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_EncodedBy(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EncodedBy(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Composer(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Composer(BSTR text) = 0;
    // Any text.
    virtual HRESULT STDMETHODCALLTYPE get_GenreS(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_GenreS(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_OriginalArtist(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_OriginalArtist(BSTR text) = 0;
    // Appends a marker. Position and length are sample frames of the file; files hold none that are
    // negative, so those become 0. The numbers are country, language, dialect and code page of
    // `text`, of which files hold 16 bits.
    virtual HRESULT STDMETHODCALLTYPE InfoAddMarker(LONG position, LONG length, BSTR label,
                                                    BSTR note, BSTR text, LONG country,
                                                    LONG language, LONG dialect, LONG codePage) = 0;
    // Removes the last marker, if there is one.
    virtual HRESULT STDMETHODCALLTYPE InfoRemoveMarker() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerCount(LONG* count) = 0;
    // Which marker the following describe, from 1. Fails for a number without a marker; they then
    // give 0 and empty texts, and fail.
    virtual HRESULT STDMETHODCALLTYPE put_InfoMarkerNum(LONG number) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerPosition(LONG* frames) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerLength(LONG* frames) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerLabel(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerNote(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerText(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerCountry(LONG* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerLanguage(LONG* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerDialect(LONG* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InfoMarkerCodePage(LONG* number) = 0;
};

const automation::LibraryDescription& OntivaLibrary();

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::IOntiva>();
}  // namespace mavrin2::automation
