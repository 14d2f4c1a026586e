#pragma once
// Filled glyph outlines as triangles. Contours may nest (holes, and
// islands in holes): a contour inside an odd number of others is a hole.

#include <Orvex/SbVec2f.h>

#include <vector>

namespace orvex {
namespace text {

using Contour = std::vector<SbVec2f>;

struct TessellatedGlyph {
  std::vector<SbVec2f> vertices;
  // Three vertex indices per triangle, counterclockwise.
  std::vector<int> triangles;
  // The contours, outer ones counterclockwise and holes clockwise, so that
  // the filled area is on the left of every edge.
  std::vector<Contour> contours;
};

TessellatedGlyph tessellate(std::vector<Contour> contours);

}  // namespace text
}  // namespace orvex
