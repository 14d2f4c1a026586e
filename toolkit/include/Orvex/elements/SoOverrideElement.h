#pragma once
#include <Orvex/elements/SoSubElement.h>

#include <cstdint>

// Which properties an override node has fixed: later nodes setting the
// same property are ignored while the flag is set (a separator's pop
// clears it again).
class SoOverrideElement : public SoElement {
  SO_ELEMENT_HEADER(SoOverrideElement);

 public:
  enum FlagBits : uint32_t {
    AMBIENT_COLOR = 1u << 0,
    COLOR_INDEX = 1u << 1,
    COMPLEXITY = 1u << 2,
    COMPLEXITY_TYPE = 1u << 3,
    CREASE_ANGLE = 1u << 4,
    DIFFUSE_COLOR = 1u << 5,
    DRAW_STYLE = 1u << 6,
    EMISSIVE_COLOR = 1u << 7,
    FONT_NAME = 1u << 8,
    FONT_SIZE = 1u << 9,
    LIGHT_MODEL = 1u << 10,
    LINE_PATTERN = 1u << 11,
    LINE_WIDTH = 1u << 12,
    MATERIAL_BINDING = 1u << 13,
    POINT_SIZE = 1u << 14,
    PICK_STYLE = 1u << 15,
    SHAPE_HINTS = 1u << 16,
    SHININESS = 1u << 17,
    SPECULAR_COLOR = 1u << 18,
    POLYGON_OFFSET = 1u << 19,
    TRANSPARENCY = 1u << 20,
    TRANSPARENCY_TYPE = 1u << 21,
    NORMAL_VECTOR = 1u << 22,
    NORMAL_BINDING = 1u << 23,
    DEPTH_BUFFER = 1u << 24
  };

  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

  // Whether a property is overridden (the flags as a mask of FlagBits).
  static bool isOverridden(SoState* state, uint32_t flag);
  static uint32_t getFlags(SoState* state);
  // Sets or clears the flag of a property; `node` is the override node.
  static void setOverride(SoState* state, SoNode* node, uint32_t flag, bool override);

  static bool getAmbientColorOverride(SoState* state) { return isOverridden(state, AMBIENT_COLOR); }
  static bool getComplexityOverride(SoState* state) { return isOverridden(state, COMPLEXITY); }
  static bool getComplexityTypeOverride(SoState* state) { return isOverridden(state, COMPLEXITY_TYPE); }
  static bool getCreaseAngleOverride(SoState* state) { return isOverridden(state, CREASE_ANGLE); }
  static bool getDiffuseColorOverride(SoState* state) { return isOverridden(state, DIFFUSE_COLOR); }
  static bool getDrawStyleOverride(SoState* state) { return isOverridden(state, DRAW_STYLE); }
  static bool getEmissiveColorOverride(SoState* state) { return isOverridden(state, EMISSIVE_COLOR); }
  static bool getFontNameOverride(SoState* state) { return isOverridden(state, FONT_NAME); }
  static bool getFontSizeOverride(SoState* state) { return isOverridden(state, FONT_SIZE); }
  static bool getLightModelOverride(SoState* state) { return isOverridden(state, LIGHT_MODEL); }
  static bool getLinePatternOverride(SoState* state) { return isOverridden(state, LINE_PATTERN); }
  static bool getLineWidthOverride(SoState* state) { return isOverridden(state, LINE_WIDTH); }
  static bool getMaterialBindingOverride(SoState* state) { return isOverridden(state, MATERIAL_BINDING); }
  static bool getPointSizeOverride(SoState* state) { return isOverridden(state, POINT_SIZE); }
  static bool getPickStyleOverride(SoState* state) { return isOverridden(state, PICK_STYLE); }
  static bool getShapeHintsOverride(SoState* state) { return isOverridden(state, SHAPE_HINTS); }
  static bool getShininessOverride(SoState* state) { return isOverridden(state, SHININESS); }
  static bool getSpecularColorOverride(SoState* state) { return isOverridden(state, SPECULAR_COLOR); }
  static bool getTransparencyOverride(SoState* state) { return isOverridden(state, TRANSPARENCY); }
  static bool getNormalVectorOverride(SoState* state) { return isOverridden(state, NORMAL_VECTOR); }
  static bool getNormalBindingOverride(SoState* state) { return isOverridden(state, NORMAL_BINDING); }
  static bool getDepthBufferOverride(SoState* state) { return isOverridden(state, DEPTH_BUFFER); }

 protected:
  ~SoOverrideElement() override;

  uint32_t flags = 0;
};
