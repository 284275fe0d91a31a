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
//
// Language: C11 and C++17, also with every warning on. The conveniences are there for C++ alone. KrUtility.h,
// KrListControl.h and FixedText.h, whose subject is C++, are C++17 only.
#pragma once

#include <stddef.h>
#include <stdint.h>

#if defined(__cplusplus)
#include <cstddef>
#include <cstdint>
#define KIRO_HOST_C extern "C"
#else
#include <stdbool.h>
#define KIRO_HOST_C extern
#endif

#if defined(_WIN32)
#define KIRO_HOST_EXPORT KIRO_HOST_C __declspec(dllexport)
#define KIRO_HOST_IMPORT KIRO_HOST_C __declspec(dllimport)
#else
#define KIRO_HOST_EXPORT KIRO_HOST_C
#define KIRO_HOST_IMPORT KIRO_HOST_C
#endif

// KIRO_CONSTANT: an int that is known when the program is compiled. KIRO_PIN: the place and the width of a field.
#if defined(__cplusplus)
#define KIRO_CONSTANT(name, value) constexpr int name = value
#define KIRO_STATIC_ASSERT(condition, text) static_assert(condition, text)
#define KIRO_FIELD_SIZE(type, field) sizeof(type::field)
#else
#define KIRO_CONSTANT(name, value) enum { name = value }
#define KIRO_STATIC_ASSERT(condition, text) _Static_assert(condition, text)
#define KIRO_FIELD_SIZE(type, field) sizeof(((type*)0)->field)
#endif
#define KIRO_PIN(type, field, offset, width)                                                         \
    KIRO_STATIC_ASSERT(offsetof(type, field) == (offset) && KIRO_FIELD_SIZE(type, field) == (width), \
                       #type "." #field " must stay where the host has it")

// A window handle, without windows.h. It is the same type as HWND.
typedef struct HWND__* KrWindow;
