#pragma once

#include "platform/linux/automation/types.h"

// What a container and a control say about windows and drawing. The handles stand for objects of
// the window port, so that a host hands over what it has made there.

namespace mavrin2::platform {
class DrawingTarget;
class Window;
}  // namespace mavrin2::platform

using HWND = mavrin2::platform::Window*;
using HDC = mavrin2::platform::DrawingTarget*;

using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;

using OLE_COLOR = DWORD;

struct POINT {
    LONG x;
    LONG y;
};
using POINTL = POINT;

struct POINTF {
    FLOAT x;
    FLOAT y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};
using SIZEL = SIZE;
using LPSIZEL = SIZEL*;

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using RECTL = RECT;
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using LPRECTL = RECTL*;
using LPCRECTL = const RECTL*;

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using LPMSG = MSG*;

// Handles that nothing here looks into.
struct HACCEL__;
using HACCEL = HACCEL__*;
struct HMENU__;
using HMENU = HMENU__*;
struct HPALETTE__;
using HPALETTE = HPALETTE__*;
struct LOGPALETTE;
struct DVTARGETDEVICE;

enum DVASPECT {
    DVASPECT_CONTENT = 1,
    DVASPECT_THUMBNAIL = 2,
    DVASPECT_ICON = 4,
    DVASPECT_DOCPRINT = 8
};
