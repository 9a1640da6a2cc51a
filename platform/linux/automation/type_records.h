#pragma once

#include "platform/linux/automation/variant.h"

enum TYPEKIND {
    TKIND_ENUM,
    TKIND_RECORD,
    TKIND_MODULE,
    TKIND_INTERFACE,
    TKIND_DISPATCH,
    TKIND_COCLASS,
    TKIND_ALIAS,
    TKIND_UNION,
    TKIND_MAX
};

enum CALLCONV {
    CC_FASTCALL,
    CC_CDECL,
    CC_MSCPASCAL,
    CC_PASCAL = CC_MSCPASCAL,
    CC_MACPASCAL,
    CC_STDCALL,
    CC_FPFASTCALL,
    CC_SYSCALL,
    CC_MPWCDECL,
    CC_MPWPASCAL,
    CC_MAX
};

enum FUNCKIND { FUNC_VIRTUAL, FUNC_PUREVIRTUAL, FUNC_NONVIRTUAL, FUNC_STATIC, FUNC_DISPATCH };

enum INVOKEKIND {
    INVOKE_FUNC = 1,
    INVOKE_PROPERTYGET = 2,
    INVOKE_PROPERTYPUT = 4,
    INVOKE_PROPERTYPUTREF = 8
};

enum VARKIND { VAR_PERINSTANCE, VAR_STATIC, VAR_CONST, VAR_DISPATCH };

enum DESCKIND {
    DESCKIND_NONE,
    DESCKIND_FUNCDESC,
    DESCKIND_VARDESC,
    DESCKIND_TYPECOMP,
    DESCKIND_IMPLICITAPPOBJ,
    DESCKIND_MAX
};

enum SYSKIND { SYS_WIN16, SYS_WIN32, SYS_MAC, SYS_WIN64 };

enum TYPEFLAGS {
    TYPEFLAG_FAPPOBJECT = 0x0001,
    TYPEFLAG_FCANCREATE = 0x0002,
    TYPEFLAG_FLICENSED = 0x0004,
    TYPEFLAG_FPREDECLID = 0x0008,
    TYPEFLAG_FHIDDEN = 0x0010,
    TYPEFLAG_FCONTROL = 0x0020,
    TYPEFLAG_FDUAL = 0x0040,
    TYPEFLAG_FNONEXTENSIBLE = 0x0080,
    TYPEFLAG_FOLEAUTOMATION = 0x0100,
    TYPEFLAG_FRESTRICTED = 0x0200,
    TYPEFLAG_FAGGREGATABLE = 0x0400,
    TYPEFLAG_FREPLACEABLE = 0x0800,
    TYPEFLAG_FDISPATCHABLE = 0x1000,
    TYPEFLAG_FREVERSEBIND = 0x2000,
    TYPEFLAG_FPROXY = 0x4000
};

enum FUNCFLAGS {
    FUNCFLAG_FRESTRICTED = 0x0001,
    FUNCFLAG_FSOURCE = 0x0002,
    FUNCFLAG_FBINDABLE = 0x0004,
    FUNCFLAG_FREQUESTEDIT = 0x0008,
    FUNCFLAG_FDISPLAYBIND = 0x0010,
    FUNCFLAG_FDEFAULTBIND = 0x0020,
    FUNCFLAG_FHIDDEN = 0x0040,
    FUNCFLAG_FUSESGETLASTERROR = 0x0080,
    FUNCFLAG_FDEFAULTCOLLELEM = 0x0100,
    FUNCFLAG_FUIDEFAULT = 0x0200,
    FUNCFLAG_FNONBROWSABLE = 0x0400,
    FUNCFLAG_FREPLACEABLE = 0x0800,
    FUNCFLAG_FIMMEDIATEBIND = 0x1000
};

enum LIBFLAGS {
    LIBFLAG_FRESTRICTED = 0x1,
    LIBFLAG_FCONTROL = 0x2,
    LIBFLAG_FHIDDEN = 0x4,
    LIBFLAG_FHASDISKIMAGE = 0x8
};

inline constexpr USHORT PARAMFLAG_NONE = 0x00;
inline constexpr USHORT PARAMFLAG_FIN = 0x01;
inline constexpr USHORT PARAMFLAG_FOUT = 0x02;
inline constexpr USHORT PARAMFLAG_FLCID = 0x04;
inline constexpr USHORT PARAMFLAG_FRETVAL = 0x08;
inline constexpr USHORT PARAMFLAG_FOPT = 0x10;
inline constexpr USHORT PARAMFLAG_FHASDEFAULT = 0x20;
inline constexpr USHORT PARAMFLAG_FHASCUSTDATA = 0x40;

inline constexpr USHORT IDLFLAG_NONE = PARAMFLAG_NONE;
inline constexpr USHORT IDLFLAG_FIN = PARAMFLAG_FIN;
inline constexpr USHORT IDLFLAG_FOUT = PARAMFLAG_FOUT;
inline constexpr USHORT IDLFLAG_FLCID = PARAMFLAG_FLCID;
inline constexpr USHORT IDLFLAG_FRETVAL = PARAMFLAG_FRETVAL;

inline constexpr INT IMPLTYPEFLAG_FDEFAULT = 0x1;
inline constexpr INT IMPLTYPEFLAG_FSOURCE = 0x2;
inline constexpr INT IMPLTYPEFLAG_FRESTRICTED = 0x4;
inline constexpr INT IMPLTYPEFLAG_FDEFAULTVTABLE = 0x8;

struct ARRAYDESC;

struct TYPEDESC {
    __extension__ union {
        TYPEDESC* lptdesc;
        ARRAYDESC* lpadesc;
        HREFTYPE hreftype;
    };
    VARTYPE vt;
};

struct ARRAYDESC {
    TYPEDESC tdescElem;
    USHORT cDims;
    SAFEARRAYBOUND rgbounds[1];
};

struct PARAMDESCEX {
    ULONG cBytes;
    VARIANTARG varDefaultValue;
};
using LPPARAMDESCEX = PARAMDESCEX*;

struct PARAMDESC {
    LPPARAMDESCEX pparamdescex;
    USHORT wParamFlags;
};

struct IDLDESC {
    ULONG_PTR dwReserved;
    USHORT wIDLFlags;
};

struct ELEMDESC {
    TYPEDESC tdesc;
    __extension__ union {
        IDLDESC idldesc;
        PARAMDESC paramdesc;
    };
};
using LPELEMDESC = ELEMDESC*;

struct TYPEATTR {
    GUID guid;
    LCID lcid;
    DWORD dwReserved;
    MEMBERID memidConstructor;
    MEMBERID memidDestructor;
    LPOLESTR lpstrSchema;
    ULONG cbSizeInstance;
    TYPEKIND typekind;
    WORD cFuncs;
    WORD cVars;
    WORD cImplTypes;
    WORD cbSizeVft;
    WORD cbAlignment;
    WORD wTypeFlags;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    TYPEDESC tdescAlias;
    IDLDESC idldescType;
};
using LPTYPEATTR = TYPEATTR*;

struct FUNCDESC {
    MEMBERID memid;
    SCODE* lprgscode;
    ELEMDESC* lprgelemdescParam;
    FUNCKIND funckind;
    INVOKEKIND invkind;
    CALLCONV callconv;
    SHORT cParams;
    SHORT cParamsOpt;
    SHORT oVft;
    SHORT cScodes;
    ELEMDESC elemdescFunc;
    WORD wFuncFlags;
};
using LPFUNCDESC = FUNCDESC*;

struct VARDESC {
    MEMBERID memid;
    LPOLESTR lpstrSchema;
    __extension__ union {
        ULONG oInst;
        VARIANT* lpvarValue;
    };
    ELEMDESC elemdescVar;
    WORD wVarFlags;
    VARKIND varkind;
};
using LPVARDESC = VARDESC*;

struct TLIBATTR {
    GUID guid;
    LCID lcid;
    SYSKIND syskind;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    WORD wLibFlags;
};
using LPTLIBATTR = TLIBATTR*;

inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr DISPID DISPID_NEWENUM = -4;
inline constexpr DISPID DISPID_EVALUATE = -5;
inline constexpr DISPID DISPID_CONSTRUCTOR = -6;
inline constexpr DISPID DISPID_DESTRUCTOR = -7;
inline constexpr MEMBERID MEMBERID_NIL = DISPID_UNKNOWN;

inline constexpr WORD DISPATCH_METHOD = 0x1;
inline constexpr WORD DISPATCH_PROPERTYGET = 0x2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 0x4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 0x8;

// Arguments are in reverse order; the named ones come before the others.
struct DISPPARAMS {
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

struct EXCEPINFO {
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    PVOID pvReserved;
    HRESULT(STDMETHODCALLTYPE* pfnDeferredFillIn)(EXCEPINFO*);
    SCODE scode;
};
using LPEXCEPINFO = EXCEPINFO*;
