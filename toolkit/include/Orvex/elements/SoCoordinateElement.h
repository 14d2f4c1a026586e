#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/elements/SoReplacedElement.h>

// The current coordinates of the vertex shapes: 3D points, or homogeneous
// 4D points (divided by w when read as 3D). The element points at the
// setting node's values, which must stay unchanged while it is current.
class SoCoordinateElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoCoordinateElement);

 public:
  void init(SoState* state) override;
  void print(FILE* fp) const override;

  static void set3(SoState* state, SoNode* node, int32_t numCoords, const SbVec3f* coords);
  static void set4(SoState* state, SoNode* node, int32_t numCoords, const SbVec4f* coords);
  static const SoCoordinateElement* getInstance(SoState* state);
  // The single point (0, 0, 0) used until a node sets coordinates.
  static const SbVec3f& getDefault3();
  static const SbVec4f& getDefault4();

  int32_t getNum() const { return numCoords; }
  bool is3D() const { return coordsAre3D; }
  // Coordinate i as a 3D point (out of range: the last one).
  const SbVec3f& get3(int index) const;
  const SbVec4f& get4(int index) const;
  // The whole array when the coordinates are 3D, else nullptr.
  const SbVec3f* getArrayPtr3() const { return coordsAre3D ? coords3 : nullptr; }
  const SbVec4f* getArrayPtr4() const { return coordsAre3D ? nullptr : coords4; }

 protected:
  ~SoCoordinateElement() override;

  int32_t numCoords = 1;
  const SbVec3f* coords3 = nullptr;
  const SbVec4f* coords4 = nullptr;
  bool coordsAre3D = true;

 private:
  mutable SbVec3f m_converted;  // get3() of a 4D coordinate
  mutable SbVec4f m_convertedW; // get4() of a 3D coordinate
};
