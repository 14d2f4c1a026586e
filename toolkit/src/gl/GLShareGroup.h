#pragma once
// The identity of a set of contexts sharing lists and objects: contexts
// sharing with each other hold the same group.

namespace orvex {

struct GLShareGroup {};

}  // namespace orvex
