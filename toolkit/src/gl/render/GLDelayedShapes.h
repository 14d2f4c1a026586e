#pragma once
// The parts of a scene a render pass draws after the rest: what the abort
// callback asked to delay, then the transparent shapes of the delayed and
// sorted transparency types. Each is kept as a path from the root of the
// traversal, so that drawing it later finds the same state.

#include <Orvex/SoPathList.h>

#include <cstddef>
#include <vector>

class SoPath;

namespace orvex {

struct GLDelayedShapes {
  enum Phase { MAIN, DELAYED };
  Phase phase = MAIN;

  // A path delayed by the abort callback (drawn first, in order).
  void addDelayed(SoPath* path) { m_delayed.append(path); }
  // A transparent shape, with the depth of its bounding-box centre in eye
  // coordinates (the camera looks towards -z: smaller is farther).
  void addTransparent(SoPath* path, float eyeDepth);
  bool empty() const { return m_delayed.getLength() == 0 && m_transparent.empty(); }
  // Everything delayed, in drawing order: the abort callback's paths,
  // then the transparent shapes, farthest first when `sorted`.
  SoPathList drawingOrder(bool sorted) const;
  void clear();

 private:
  struct Transparent {
    SoPathList path;  // one path, referenced
    float eyeDepth;
    size_t order;
  };
  SoPathList m_delayed;
  std::vector<Transparent> m_transparent;
};

}  // namespace orvex
