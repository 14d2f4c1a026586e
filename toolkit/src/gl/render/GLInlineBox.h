#pragma once

class SoAction;
class SoNode;

namespace orvex {
// The render action's function for inline nodes: draws the fetched data,
// and the declared box as a wire frame in the inline box colour when the
// box visibility asks for it (always, or until the data is here).
void renderWWWInline(SoAction* action, SoNode* node);
}  // namespace orvex
