#pragma once
// Default limits of reading, shared by SoInput and SoInputParameters.

#include <cstddef>

namespace orvex {

// 1 GiB each: a scene file that large is rare, and a reader that holds one
// (plus its compressed form while inflating) still fits a small machine.
constexpr size_t kDefaultMaxInputBytes = size_t(1) << 30;
constexpr size_t kDefaultMaxInflatedBytes = size_t(1) << 30;

}  // namespace orvex
