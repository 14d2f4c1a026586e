#pragma once
// Screen-aligned text (SoText2): the glyph bitmaps of its lines composed
// into one coverage texture, drawn pixel for pixel at the window position
// of the text's origin, at the origin's depth, in the current diffuse
// colour.

class SoAction;
class SoNode;

namespace orvex {

// The render action's traversal function for SoText2.
void renderText2(SoAction* action, SoNode* node);

}  // namespace orvex
