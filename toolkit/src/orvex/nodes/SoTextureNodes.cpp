// The texture nodes: the image, its transformation and the binding of
// texture coordinates.

#include <Orvex/actions/SoAction.h>
#include <Orvex/elements/SoTextureCoordinateBindingElement.h>
#include <Orvex/elements/SoTextureImageElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/nodes/SoTexture2.h>
#include <Orvex/nodes/SoTexture2Transform.h>
#include <Orvex/nodes/SoTextureCoordinateBinding.h>

#include <cmath>

#include "TextureFile.h"

// ---- SoTexture2 ------------------------------------------------------------------------

// The node's enumerations pass into the element as they are.
static_assert(int(SoTexture2::REPEAT) == int(SoTextureImageElement::REPEAT) &&
                  int(SoTexture2::CLAMP) == int(SoTextureImageElement::CLAMP),
              "wrap values differ");
static_assert(int(SoTexture2::MODULATE) == int(SoTextureImageElement::MODULATE) &&
                  int(SoTexture2::DECAL) == int(SoTextureImageElement::DECAL) &&
                  int(SoTexture2::BLEND) == int(SoTextureImageElement::BLEND) &&
                  int(SoTexture2::REPLACE) == int(SoTextureImageElement::REPLACE),
              "model values differ");
static_assert(int(SoTexture2::AUTO) == int(SoTextureImageElement::AUTO) &&
                  int(SoTexture2::NEAREST) == int(SoTextureImageElement::NEAREST) &&
                  int(SoTexture2::LINEAR) == int(SoTextureImageElement::LINEAR),
              "filter values differ");
static_assert(int(SoTextureCoordinateBinding::PER_VERTEX) == int(SoTextureCoordinateBindingElement::PER_VERTEX) &&
                  int(SoTextureCoordinateBinding::PER_VERTEX_INDEXED) ==
                      int(SoTextureCoordinateBindingElement::PER_VERTEX_INDEXED),
              "binding values differ");

SO_NODE_SOURCE(SoTexture2)

SoTexture2::SoTexture2() : m_fileImage(std::make_unique<orvex::TextureFileImage>()) {
  SO_NODE_CONSTRUCTOR(SoTexture2);
  SO_NODE_DEFINE_ENUM_VALUE(Wrap, REPEAT);
  SO_NODE_DEFINE_ENUM_VALUE(Wrap, CLAMP);
  SO_NODE_DEFINE_ENUM_VALUE(Model, MODULATE);
  SO_NODE_DEFINE_ENUM_VALUE(Model, DECAL);
  SO_NODE_DEFINE_ENUM_VALUE(Model, BLEND);
  SO_NODE_DEFINE_ENUM_VALUE(Model, REPLACE);
  SO_NODE_DEFINE_ENUM_VALUE(Filter, AUTO);
  SO_NODE_DEFINE_ENUM_VALUE(Filter, NEAREST);
  SO_NODE_DEFINE_ENUM_VALUE(Filter, LINEAR);
  SO_NODE_ADD_FIELD(filename, (""));
  SO_NODE_ADD_FIELD(image, (SbVec2i32(0, 0), 0, static_cast<const unsigned char*>(nullptr)));
  SO_NODE_ADD_FIELD(wrapS, (REPEAT));
  SO_NODE_ADD_FIELD(wrapT, (REPEAT));
  SO_NODE_ADD_FIELD(model, (MODULATE));
  SO_NODE_ADD_FIELD(blendColor, (0.0f, 0.0f, 0.0f));
  SO_NODE_ADD_FIELD(minFilter, (AUTO));
  SO_NODE_ADD_FIELD(magFilter, (AUTO));
  SO_NODE_SET_SF_ENUM_TYPE(wrapS, Wrap);
  SO_NODE_SET_SF_ENUM_TYPE(wrapT, Wrap);
  SO_NODE_SET_SF_ENUM_TYPE(model, Model);
  SO_NODE_SET_SF_ENUM_TYPE(minFilter, Filter);
  SO_NODE_SET_SF_ENUM_TYPE(magFilter, Filter);
}

SoTexture2::~SoTexture2() = default;

void SoTexture2::initClass() { SO_NODE_INIT_CLASS(SoTexture2, SoNode, "Node"); }

void SoTexture2::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || !state->isElementEnabled(SoTextureImageElement::getClassStackIndex())) return;
  SoTextureImageElement::Texture texture;
  texture.node = this;
  const SbString& name = filename.getValue();
  if (name.getLength() > 0) {
    const orvex::Image8& file = m_fileImage->get(name);
    texture.pixels = file.pixels.empty() ? nullptr : file.pixels.data();
    texture.size = file.size;
    texture.numComponents = file.numComponents;
  } else if (image.getDataType() == SoSFImage::UNSIGNED_BYTE) {
    texture.pixels = image.getValue(texture.size, texture.numComponents);
  }
  texture.wrapS = static_cast<SoTextureImageElement::Wrap>(wrapS.getValue());
  texture.wrapT = static_cast<SoTextureImageElement::Wrap>(wrapT.getValue());
  texture.model = static_cast<SoTextureImageElement::Model>(model.getValue());
  texture.blendColor = blendColor.getValue();
  texture.minFilter = static_cast<SoTextureImageElement::Filter>(minFilter.getValue());
  texture.magFilter = static_cast<SoTextureImageElement::Filter>(magFilter.getValue());
  SoTextureImageElement::set(state, this, texture);
}

// ---- SoTexture2Transform ---------------------------------------------------------------

SO_NODE_SOURCE(SoTexture2Transform)

SoTexture2Transform::SoTexture2Transform() {
  SO_NODE_CONSTRUCTOR(SoTexture2Transform);
  SO_NODE_ADD_FIELD(translation, (0.0f, 0.0f));
  SO_NODE_ADD_FIELD(rotation, (0.0f));
  SO_NODE_ADD_FIELD(scaleFactor, (1.0f, 1.0f));
  SO_NODE_ADD_FIELD(center, (0.0f, 0.0f));
}

SoTexture2Transform::~SoTexture2Transform() = default;

void SoTexture2Transform::initClass() { SO_NODE_INIT_CLASS(SoTexture2Transform, SoNode, "Node"); }

void SoTexture2Transform::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || !state->isElementEnabled(SoTextureMatrixElement::getClassStackIndex())) return;
  const SbVec2f& c = center.getValue();
  const SbVec2f& t = translation.getValue();
  const SbVec2f& s = scaleFactor.getValue();
  // Points are row vectors: the leftmost factor applies first.
  SbMatrix toCenter, scale, rotate, back, translate;
  toCenter.setTranslate(SbVec3f(-c[0], -c[1], 0.0f));
  scale.setScale(SbVec3f(s[0], s[1], 1.0f));
  rotate.setRotate(SbRotation(SbVec3f(0.0f, 0.0f, 1.0f), rotation.getValue()));
  back.setTranslate(SbVec3f(c[0], c[1], 0.0f));
  translate.setTranslate(SbVec3f(t[0], t[1], 0.0f));
  SoTextureMatrixElement::mult(state, this, toCenter * scale * rotate * back * translate);
}

// ---- SoTextureCoordinateBinding --------------------------------------------------------

SO_NODE_SOURCE(SoTextureCoordinateBinding)

SoTextureCoordinateBinding::SoTextureCoordinateBinding() {
  SO_NODE_CONSTRUCTOR(SoTextureCoordinateBinding);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_VERTEX);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_VERTEX_INDEXED);
  SO_NODE_ADD_FIELD(value, (PER_VERTEX_INDEXED));
  SO_NODE_SET_SF_ENUM_TYPE(value, Binding);
}

SoTextureCoordinateBinding::~SoTextureCoordinateBinding() = default;

void SoTextureCoordinateBinding::initClass() { SO_NODE_INIT_CLASS(SoTextureCoordinateBinding, SoNode, "Node"); }

void SoTextureCoordinateBinding::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || value.isIgnored()) return;
  SoTextureCoordinateBindingElement::set(state, static_cast<SoTextureCoordinateBindingElement::Binding>(value.getValue()));
}
