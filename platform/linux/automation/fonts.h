#pragma once

#include "platform/linux/automation/interfaces.h"
#include "platform/linux/automation/window_types.h"

// A font as an object: what a host sets by members, and a control reads when it draws. It has no
// font of the system behind it, so whoever asks for that one is told so.

struct HFONT__;
using HFONT = HFONT__*;
struct TEXTMETRICOLE;

struct FONTDESC {
    UINT cbSizeofstruct;
    LPOLESTR lpstrName;
    CY cySize;  // in points
    SHORT sWeight;
    SHORT sCharset;
    BOOL fItalic;
    BOOL fUnderline;
    BOOL fStrikethrough;
};
using LPFONTDESC = FONTDESC*;

inline constexpr DISPID DISPID_FONT_NAME = 0;
inline constexpr DISPID DISPID_FONT_SIZE = 2;
inline constexpr DISPID DISPID_FONT_BOLD = 3;
inline constexpr DISPID DISPID_FONT_ITALIC = 4;
inline constexpr DISPID DISPID_FONT_UNDER = 5;
inline constexpr DISPID DISPID_FONT_STRIKE = 6;
inline constexpr DISPID DISPID_FONT_WEIGHT = 7;
inline constexpr DISPID DISPID_FONT_CHARSET = 8;

struct IFont : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Name(BSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Size(CY* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Size(CY size) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Bold(BOOL* bold) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Bold(BOOL bold) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Italic(BOOL* italic) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Italic(BOOL italic) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Underline(BOOL* underline) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Underline(BOOL underline) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Strikethrough(BOOL* strikethrough) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Strikethrough(BOOL strikethrough) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Weight(SHORT* weight) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Weight(SHORT weight) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Charset(SHORT* charset) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Charset(SHORT charset) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_hFont(HFONT* font) = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IFont** copy) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsEqual(IFont* other) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetRatio(LONG logical, LONG himetric) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryTextMetrics(TEXTMETRICOLE* metrics) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddRefHfont(HFONT font) = 0;
    virtual HRESULT STDMETHODCALLTYPE ReleaseHfont(HFONT font) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHdc(HDC context) = 0;
};
using LPFONT = IFont*;

// Has the members of IFont that a script may use, by the identifiers above.
struct IFontDisp : public IDispatch {};
using LPFONTDISP = IFontDisp*;

#pragma GCC visibility push(default)
extern "C" {
extern const IID IID_IFont;
extern const IID IID_IFontDisp;

// Without a description: Arial of 8 points.
HRESULT OleCreateFontIndirect(LPFONTDESC description, REFIID iid, LPVOID* font);
}
#pragma GCC visibility pop
