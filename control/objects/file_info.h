#pragma once

#include "automation/object.h"
#include "control/editor/document_format.h"
#include "control/editor/information_companion.h"
#include "control/interfaces/file_info.h"
#include "control/objects/attachment.h"

namespace mavrin2::objects {

// Shows hosts the document's format, and the tags that the information companion holds. It is the
// only holder of that companion, which the editor uses through Extra().
class CMavrin2FileInfo final
    : public automation::AutomationObject<CMavrin2FileInfo, interfaces::IMavrin2FileInfo> {
public:
    explicit CMavrin2FileInfo(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2FileInfo() = default;

    void Attach(editor::DocumentFormat& format, IUnknown* control) {
        format_.Attach(format, control);
    }
    void Detach() { format_.Detach(); }
    editor::ExtraInfo& Extra() { return extra_; }

    STDMETHODIMP get_Frequency(interfaces::FrequencyConstants* Value) override;
    STDMETHODIMP get_Channels(interfaces::ChannelsConstants* Value) override;
    STDMETHODIMP get_FormatString(BSTR* Value) override;
    STDMETHODIMP get_SaveExtraInfoEnabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_SaveExtraInfoEnabled(VARIANT_BOOL Value) override;

    // The companion's own: whatever it answers, the member succeeds.
    STDMETHODIMP GenreToString(SHORT nGenre, BSTR* Name) override {
        return Pass(&Tags::GenreToString, nGenre, Name);
    }
    STDMETHODIMP get_Title(BSTR* Value) override { return Pass(&Tags::get_Title, Value); }
    STDMETHODIMP put_Title(BSTR Value) override { return Pass(&Tags::put_Title, Value); }
    STDMETHODIMP get_Year(LONG* Value) override { return Pass(&Tags::get_Year, Value); }
    STDMETHODIMP put_Year(LONG Value) override { return Pass(&Tags::put_Year, Value); }
    STDMETHODIMP get_Artist(BSTR* Value) override { return Pass(&Tags::get_Artist, Value); }
    STDMETHODIMP put_Artist(BSTR Value) override { return Pass(&Tags::put_Artist, Value); }
    STDMETHODIMP get_Album(BSTR* Value) override { return Pass(&Tags::get_Album, Value); }
    STDMETHODIMP put_Album(BSTR Value) override { return Pass(&Tags::put_Album, Value); }
    STDMETHODIMP get_Composer(BSTR* Value) override { return Pass(&Tags::get_Composer, Value); }
    STDMETHODIMP put_Composer(BSTR Value) override { return Pass(&Tags::put_Composer, Value); }
    STDMETHODIMP get_URL(BSTR* Value) override { return Pass(&Tags::get_URL, Value); }
    STDMETHODIMP put_URL(BSTR Value) override { return Pass(&Tags::put_URL, Value); }
    STDMETHODIMP get_Track(SHORT* Value) override { return Pass(&Tags::get_Track, Value); }
    STDMETHODIMP put_Track(SHORT Value) override { return Pass(&Tags::put_Track, Value); }
    STDMETHODIMP get_EncodedBy(BSTR* Value) override { return Pass(&Tags::get_EncodedBy, Value); }
    STDMETHODIMP put_EncodedBy(BSTR Value) override { return Pass(&Tags::put_EncodedBy, Value); }
    STDMETHODIMP get_Comments(BSTR* Value) override { return Pass(&Tags::get_Comments, Value); }
    STDMETHODIMP put_Comments(BSTR Value) override { return Pass(&Tags::put_Comments, Value); }
    STDMETHODIMP get_Copyright(BSTR* Value) override { return Pass(&Tags::get_Copyright, Value); }
    STDMETHODIMP put_Copyright(BSTR Value) override { return Pass(&Tags::put_Copyright, Value); }
    STDMETHODIMP get_Genre(SHORT* Value) override { return Pass(&Tags::get_Genre, Value); }
    STDMETHODIMP put_Genre(SHORT Value) override { return Pass(&Tags::put_Genre, Value); }
    STDMETHODIMP get_GenreS(BSTR* Value) override { return Pass(&Tags::get_GenreS, Value); }
    STDMETHODIMP put_GenreS(BSTR Value) override { return Pass(&Tags::put_GenreS, Value); }
    STDMETHODIMP get_OriginalArtist(BSTR* Value) override {
        return Pass(&Tags::get_OriginalArtist, Value);
    }
    STDMETHODIMP put_OriginalArtist(BSTR Value) override {
        return Pass(&Tags::put_OriginalArtist, Value);
    }
    STDMETHODIMP get_Mp3TagInfoVersion(SHORT* Value) override {
        return Pass(&Tags::get_Mp3TagInfoVersion, Value);
    }
    STDMETHODIMP put_Mp3TagInfoVersion(SHORT Value) override {
        return Pass(&Tags::put_Mp3TagInfoVersion, Value);
    }

private:
    using Tags = contracts::IOntiva;

    template <class Method, class... Arguments>
    HRESULT Pass(Method method, Arguments... arguments) {
        extra_.Companion.Call(method, arguments...);
        return S_OK;
    }

    Attachment<editor::DocumentFormat> format_;
    editor::ExtraInfo extra_;
};

}  // namespace mavrin2::objects
