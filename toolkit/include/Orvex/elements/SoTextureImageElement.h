#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/SbVec2i32.h>
#include <Orvex/elements/SoReplacedElement.h>

#include <cstdint>

// The texture the shapes that follow are drawn with: the image (8-bit
// components, rows from the bottom), how coordinates outside [0, 1] wrap,
// how the texture combines with the shape's colour, and how it is
// filtered. The pixels belong to the node that set the element and stay
// valid while that node is unchanged (its node id is recorded). No image
// (the default) means no texturing.
class SoTextureImageElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoTextureImageElement);

 public:
  enum Wrap { REPEAT, CLAMP };
  // MODULATE multiplies the shape's colour by the texture; DECAL lays the
  // texture over the colour by its alpha; BLEND mixes the colour with the
  // blend colour by the texture's intensity; REPLACE shows the texture alone.
  enum Model { MODULATE, DECAL, BLEND, REPLACE };
  // AUTO chooses by the texture quality: below 0.1 nearest texel, below 0.5
  // linear, else linear between mipmap levels.
  enum Filter { AUTO, NEAREST, LINEAR };

  struct Texture {
    const SoNode* node = nullptr;
    // The node's id when it set the texture: changes with every edit.
    uint64_t nodeId = 0;
    const unsigned char* pixels = nullptr;
    SbVec2i32 size{0, 0};
    int numComponents = 0;
    Wrap wrapS = REPEAT;
    Wrap wrapT = REPEAT;
    Model model = MODULATE;
    SbColor blendColor{0.0f, 0.0f, 0.0f};
    Filter minFilter = AUTO;
    Filter magFilter = AUTO;
  };

  void init(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  // Sets the texture of `node`; a texture without pixels turns texturing off.
  static void set(SoState* state, SoNode* node, const Texture& texture);
  static const Texture& get(SoState* state);
  // Whether shapes are textured: an image of at least one texel.
  static bool isEnabled(SoState* state);

 protected:
  ~SoTextureImageElement() override;

  Texture texture;
};
