// The component types of the operating system: its own on Windows, their equals in name, size and value elsewhere.
// Everything else in this project includes this header and never a system header for them.
#pragma once

#include <cstddef>
#include <cstdint>

#ifdef _WIN32
#include <windows.h>

#include <oaidl.h>
#include <objbase.h>
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>
#define TV_CALL STDMETHODCALLTYPE

// The system's headers make macros of these names, which are operations of interfaces here. The system's own functions
// are called by their full names, such as MoveFileW.
#undef CopyFile
#undef CreateDirectory
#undef CreateMutex
#undef DeleteFile
#undef GetObject
#undef MoveFile
#else
#include "com/portable_base.h"
#define TV_CALL
#endif

namespace tv {

/// Outcome of an interface operation: negative for failure, 0 for success, 1 for an absent thing or a plain "no".
using Result = int32_t;

/// Text that crosses an interface: zero-terminated UTF-16 with the byte length in front, owned as the operation says.
/// The same pointer as a BSTR of the system.
using BStr = char16_t*;

/// A truth value that crosses an interface: -1 true, 0 false.
using VariantBool = int16_t;
inline constexpr VariantBool kVariantTrue = -1;
inline constexpr VariantBool kVariantFalse = 0;

/// Handle of a window of the system, wide enough for every build; 0 for none.
using WindowHandle = intptr_t;

} // namespace tv
