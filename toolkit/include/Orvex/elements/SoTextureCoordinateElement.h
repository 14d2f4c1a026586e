#pragma once
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/elements/SoReplacedElement.h>

// Where texture coordinates come from: the shape's own default mapping,
// explicit coordinates (2D, 3D or 4D), or a function of the point and
// normal.
class SoTextureCoordinateElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoTextureCoordinateElement);

 public:
  enum CoordType { DEFAULT, EXPLICIT, FUNCTION };
  // Texture coordinates of a point with a normal.
  typedef const SbVec4f& FunctionCB(void* userData, const SbVec3f& point, const SbVec3f& normal);

  void init(SoState* state) override;

  static void setDefault(SoState* state, SoNode* node);
  static void setFunction(SoState* state, SoNode* node, FunctionCB* function, void* userData);
  static void set2(SoState* state, SoNode* node, int32_t numCoords, const SbVec2f* coords);
  static void set3(SoState* state, SoNode* node, int32_t numCoords, const SbVec3f* coords);
  static void set4(SoState* state, SoNode* node, int32_t numCoords, const SbVec4f* coords);
  static CoordType getType(SoState* state);
  static const SoTextureCoordinateElement* getInstance(SoState* state);

  virtual CoordType getType() const;
  int32_t getNum() const { return numCoords; }
  // Dimension of the explicit coordinates (2, 3 or 4).
  int getDimension() const { return dimension; }
  // Coordinate i as 4D (missing components 0, w 1).
  SbVec4f get4(int index) const;
  SbVec2f get2(int index) const;
  // The coordinates that the function gives for a point and normal.
  const SbVec4f& get(const SbVec3f& point, const SbVec3f& normal) const;

 protected:
  ~SoTextureCoordinateElement() override;

  CoordType whatKind = DEFAULT;
  FunctionCB* function = nullptr;
  void* functionData = nullptr;
  int32_t numCoords = 0;
  int dimension = 2;
  const SbVec2f* coords2 = nullptr;
  const SbVec3f* coords3 = nullptr;
  const SbVec4f* coords4 = nullptr;
};
