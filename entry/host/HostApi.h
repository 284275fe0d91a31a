// What every declaration under entry/host/ rests on.
//
// The host is seven libraries. What crosses from one module to another is a plain C function, a struct of fixed layout
// or an interface of pure virtual functions that a C function makes: so a host built with another compiler can supply
// them. Classes with inline members below are conveniences on this side of the boundary; they are never passed across.
//
// Unless a declaration says otherwise:
//  - text is NUL-terminated 8-bit text; "Shift-JIS" is code page 932, "EUC" is EUC-JP with the extensions of eucJP-ms;
//  - a size is that of the whole buffer in bytes, the NUL included; a text that does not fit is cut at a character's
//    end and the NUL is always written;
//  - a returned pointer stays the host's property;
//  - no function throws.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(_WIN32)
#define KIRO_HOST_EXPORT extern "C" __declspec(dllexport)
#define KIRO_HOST_IMPORT extern "C" __declspec(dllimport)
#else
#define KIRO_HOST_EXPORT extern "C"
#define KIRO_HOST_IMPORT extern "C"
#endif

// A window handle, without windows.h. It is the same type as HWND.
struct HWND__;
using KrWindow = HWND__*;
