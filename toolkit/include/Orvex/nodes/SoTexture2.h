#pragma once
#include <Orvex/fields/SoSFColor.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFilePathString.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/nodes/SoSubNode.h>

#include <memory>

namespace orvex {
class TextureFileImage;
}

// The texture image of the shapes that follow, mapped onto them by their
// texture coordinates. The image is the PNG file named by `filename` when
// that is not empty (looked up as given, then in the input directories),
// else the `image` field; 8-bit images of 1 to 4 components are used.
class SoTexture2 : public SoNode {
  SO_NODE_HEADER(SoTexture2);

 public:
  enum Wrap { REPEAT, CLAMP };
  // How the texture combines with the shape's colour: MODULATE multiplies
  // them, DECAL lays the texture over it by the texture's alpha, BLEND
  // mixes the colour with blendColor by the texture's intensity, REPLACE
  // shows the texture alone.
  enum Model { MODULATE, DECAL, BLEND, REPLACE };
  // AUTO follows the texture quality of SoComplexity.
  enum Filter { AUTO, NEAREST, LINEAR };

  SoSFFilePathString filename;
  SoSFImage image;
  SoSFEnum wrapS;
  SoSFEnum wrapT;
  SoSFEnum model;
  SoSFColor blendColor;
  SoSFEnum minFilter;
  SoSFEnum magFilter;

  SoTexture2();
  void doAction(SoAction* action) override;

 protected:
  ~SoTexture2() override;

 private:
  // The pixels read from the file named by `filename`.
  std::unique_ptr<orvex::TextureFileImage> m_fileImage;
};
