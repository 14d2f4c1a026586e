#include "GLDelayedShapes.h"

#include <algorithm>

namespace orvex {

void GLDelayedShapes::addTransparent(SoPath* path, float eyeDepth) {
  Transparent entry{SoPathList(), eyeDepth, m_transparent.size()};
  entry.path.append(path);
  m_transparent.push_back(std::move(entry));
}

SoPathList GLDelayedShapes::drawingOrder(bool sorted) const {
  SoPathList out(m_delayed);
  std::vector<const Transparent*> order;
  order.reserve(m_transparent.size());
  for (const Transparent& t : m_transparent) order.push_back(&t);
  if (sorted) {
    // Farthest first; equal depths keep traversal order.
    std::stable_sort(order.begin(), order.end(),
                     [](const Transparent* a, const Transparent* b) { return a->eyeDepth < b->eyeDepth; });
  }
  for (const Transparent* t : order) out.append(t->path[0]);
  return out;
}

void GLDelayedShapes::clear() {
  m_delayed.truncate(0);
  m_transparent.clear();
  phase = MAIN;
}

}  // namespace orvex
