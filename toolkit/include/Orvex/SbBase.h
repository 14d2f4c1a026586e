#pragma once
// Basic definitions shared by every toolkit header.

#include <cstddef>
#include <cstdint>

#if defined(_WIN32)
#  define ORVEX_DLL_EXPORT __declspec(dllexport)
#  define ORVEX_DLL_IMPORT __declspec(dllimport)
#else
#  define ORVEX_DLL_EXPORT __attribute__((visibility("default")))
#  define ORVEX_DLL_IMPORT __attribute__((visibility("default")))
#endif

// 16-bit character of the toolkit's wide-string API (one UTF-16 code unit).
// Windows' wchar_t is already 16 bits; elsewhere wchar_t is 32 bits, so
// char16_t stands in for it. Every wide-string signature uses this alias.
#if defined(_WIN32)
using SbWChar = wchar_t;
#else
using SbWChar = char16_t;
#endif
static_assert(sizeof(SbWChar) == 2, "SbWChar must be one UTF-16 code unit");

using SbBool = bool;
