#pragma once
// Visibility of the symbols that sibling binding libraries link against.

#if defined(_WIN32)
#  if defined(ORVEXJAVA_BUILDING)
#    define ORVEXJAVA_API __declspec(dllexport)
#  else
#    define ORVEXJAVA_API __declspec(dllimport)
#  endif
#else
#  define ORVEXJAVA_API __attribute__((visibility("default")))
#endif
