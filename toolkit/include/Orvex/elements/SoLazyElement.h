#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/elements/SoSubElement.h>

#include <cstdint>

// The material and lighting properties of the shapes that follow: diffuse
// colours and transparencies (one or more, bound by the material binding),
// the ambient, emissive and specular colours, shininess, the light model,
// colour-material and blending. Render elements derived from it send only
// what changed; this element keeps the values and which node set the
// arrays.
class SoLazyElement : public SoElement {
  SO_ELEMENT_HEADER(SoLazyElement);

 public:
  enum cases {
    LIGHT_MODEL_CASE,
    COLOR_MATERIAL_CASE,
    DIFFUSE_CASE,
    AMBIENT_CASE,
    EMISSIVE_CASE,
    SPECULAR_CASE,
    SHININESS_CASE,
    TRANSPARENCY_CASE,
    BLENDING_CASE,
    LAZYCASES_LAST
  };
  enum masks {
    LIGHT_MODEL_MASK = 1 << LIGHT_MODEL_CASE,
    COLOR_MATERIAL_MASK = 1 << COLOR_MATERIAL_CASE,
    DIFFUSE_MASK = 1 << DIFFUSE_CASE,
    AMBIENT_MASK = 1 << AMBIENT_CASE,
    EMISSIVE_MASK = 1 << EMISSIVE_CASE,
    SPECULAR_MASK = 1 << SPECULAR_CASE,
    SHININESS_MASK = 1 << SHININESS_CASE,
    TRANSPARENCY_MASK = 1 << TRANSPARENCY_CASE,
    BLENDING_MASK = 1 << BLENDING_CASE,
    ALL_MASK = (1 << LAZYCASES_LAST) - 1
  };
  enum LightModel { BASE_COLOR, PHONG };

  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

  // The arrays stay the setting node's: they must not change while current.
  static void setDiffuse(SoState* state, SoNode* node, int32_t numColors, const SbColor* colors);
  static void setTransparency(SoState* state, SoNode* node, int32_t numValues, const float* transparencies);
  static void setAmbient(SoState* state, const SbColor& color);
  static void setEmissive(SoState* state, const SbColor& color);
  static void setSpecular(SoState* state, const SbColor& color);
  static void setShininess(SoState* state, float value);
  static void setLightModel(SoState* state, int32_t model);
  static void setColorMaterial(SoState* state, bool value);
  static void setBlending(SoState* state, bool value);

  static const SoLazyElement* getInstance(SoState* state);
  // Diffuse colour / transparency i (out of range: the last one).
  static const SbColor& getDiffuse(SoState* state, int index);
  static float getTransparency(SoState* state, int index);
  static const SbColor& getAmbient(SoState* state);
  static const SbColor& getEmissive(SoState* state);
  static const SbColor& getSpecular(SoState* state);
  static float getShininess(SoState* state);
  static int32_t getLightModel(SoState* state);
  static bool getColorMaterial(SoState* state);
  static bool getBlending(SoState* state);

  static SbColor getDefaultDiffuse() { return SbColor(0.8f, 0.8f, 0.8f); }
  static SbColor getDefaultAmbient() { return SbColor(0.2f, 0.2f, 0.2f); }
  static SbColor getDefaultSpecular() { return SbColor(0.0f, 0.0f, 0.0f); }
  static SbColor getDefaultEmissive() { return SbColor(0.0f, 0.0f, 0.0f); }
  static float getDefaultShininess() { return 0.2f; }
  static float getDefaultTransparency() { return 0.0f; }
  static int32_t getDefaultLightModel() { return PHONG; }

  int32_t getNumDiffuse() const { return numDiffuse; }
  int32_t getNumTransparencies() const { return numTransparencies; }
  const SbColor& getDiffuse(int index) const;
  float getTransparency(int index) const;
  const SbColor* getDiffusePointer() const { return diffuse; }
  const float* getTransparencyPointer() const { return transparencies; }

  // Records that a node set a property to the value it already had (a mask
  // of `masks`), for render elements that skip such sets.
  virtual void registerRedundantSet(SoState* state, uint32_t mask);
  uint32_t getRedundantSetMask() const { return redundantSets; }

 protected:
  ~SoLazyElement() override;

  const SbColor* diffuse = nullptr;
  int32_t numDiffuse = 1;
  uint64_t diffuseNodeId = 0;
  const float* transparencies = nullptr;
  int32_t numTransparencies = 1;
  uint64_t transparencyNodeId = 0;
  SbColor ambient;
  SbColor emissive;
  SbColor specular;
  float shininess = 0.2f;
  int32_t lightModel = PHONG;
  bool colorMaterial = false;
  bool blending = false;
  uint32_t redundantSets = 0;

 private:
  // Where a fresh element points until a node sets arrays.
  SbColor m_defaultDiffuse;
  float m_defaultTransparency = 0.0f;
};
