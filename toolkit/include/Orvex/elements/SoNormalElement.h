#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/elements/SoReplacedElement.h>

// The current normals of the vertex shapes (pointing at the setting node's
// values). With none set, shapes compute their own.
class SoNormalElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoNormalElement);

 public:
  void init(SoState* state) override;

  static void set(SoState* state, SoNode* node, int32_t numNormals, const SbVec3f* normals,
                  bool normalsAreUnitLength = false);
  static const SoNormalElement* getInstance(SoState* state);

  int32_t getNum() const { return numNormals; }
  // Normal i (out of range: the last one; none set: (0, 0, 1)).
  const SbVec3f& get(int index) const;
  const SbVec3f* getArrayPtr() const { return normals; }
  bool areNormalsUnitLength() const { return unitLength; }

 protected:
  ~SoNormalElement() override;

  int32_t numNormals = 0;
  const SbVec3f* normals = nullptr;
  bool unitLength = false;
};
