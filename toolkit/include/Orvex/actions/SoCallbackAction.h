#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/SbMatrix.h>
#include <Orvex/SbName.h>
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/SbViewVolume.h>
#include <Orvex/SbViewportRegion.h>
#include <Orvex/actions/SoSubAction.h>
#include <Orvex/elements/SoComplexityTypeElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoTextureCoordinateBindingElement.h>
#include <Orvex/elements/SoUnitsElement.h>

#include <vector>

class SoCallbackAction;
class SoPrimitiveVertex;
class SoShape;

// The primitive callbacks: the vertices are in the shape's object space.
typedef void SoTriangleCB(void* userData, SoCallbackAction* action, const SoPrimitiveVertex* v1,
                          const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3);
typedef void SoLineSegmentCB(void* userData, SoCallbackAction* action, const SoPrimitiveVertex* v1,
                             const SoPrimitiveVertex* v2);
typedef void SoPointCB(void* userData, SoCallbackAction* action, const SoPrimitiveVertex* v);

// Traverses a graph calling user functions: before and after each node of
// chosen types (pre and post callbacks), before and after the tail of the
// path it is applied to (tail callbacks), and for every triangle, line
// segment and point that shapes of chosen types generate. Inside a callback
// the current traversal state (transformations, material, coordinates...)
// can be read through the getters.
class SoCallbackAction : public SoAction {
  SO_ACTION_HEADER(SoCallbackAction);

 public:
  // What a pre or post callback asks the traversal to do next: go on, stop
  // the whole traversal, or (pre callback) skip the node and what is under it.
  enum Response { CONTINUE, ABORT, PRUNE };
  typedef Response SoCallbackActionCB(void* userData, SoCallbackAction* action, const SoNode* node);

  SoCallbackAction();
  explicit SoCallbackAction(const SbViewportRegion& region);
  ~SoCallbackAction() override;

  void setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }

  // Callbacks for nodes of `type` or derived from it, called in the order
  // they were added.
  void addPreCallback(SoType type, SoCallbackActionCB* cb, void* userData);
  void addPostCallback(SoType type, SoCallbackActionCB* cb, void* userData);
  void addPreTailCallback(SoCallbackActionCB* cb, void* userData);
  void addPostTailCallback(SoCallbackActionCB* cb, void* userData);
  void addTriangleCallback(SoType type, SoTriangleCB* cb, void* userData);
  void addLineSegmentCallback(SoType type, SoLineSegmentCB* cb, void* userData);
  void addPointCallback(SoType type, SoPointCB* cb, void* userData);
  // Each removes the first registration of that function and data.
  void removePreCallback(SoType type, SoCallbackActionCB* cb, void* userData);
  void removePostCallback(SoType type, SoCallbackActionCB* cb, void* userData);
  void removePreTailCallback(SoCallbackActionCB* cb, void* userData);
  void removePostTailCallback(SoCallbackActionCB* cb, void* userData);
  void removeTriangleCallback(SoType type, SoTriangleCB* cb, void* userData);
  void removeLineSegmentCallback(SoType type, SoLineSegmentCB* cb, void* userData);
  void removePointCallback(SoType type, SoPointCB* cb, void* userData);
  // Removes every callback.
  void clearCallbacks();

  // The traversal state at the current node.
  float getComplexity() const;
  SoComplexityTypeElement::Type getComplexityType() const;
  int32_t getNumCoordinates() const;
  const SbVec3f& getCoordinate3(int index) const;
  const SbVec4f& getCoordinate4(int index) const;
  SoDrawStyleElement::Style getDrawStyle() const;
  unsigned short getLinePattern() const;
  float getLineWidth() const;
  float getPointSize() const;
  const SbName& getFontName() const;
  float getFontSize() const;
  SoLazyElement::LightModel getLightModel() const;
  void getMaterial(SbColor& ambient, SbColor& diffuse, SbColor& specular, SbColor& emission, float& shininess,
                   float& transparency, int materialIndex = 0) const;
  SoMaterialBindingElement::Binding getMaterialBinding() const;
  int32_t getNumNormals() const;
  const SbVec3f& getNormal(int index) const;
  SoNormalBindingElement::Binding getNormalBinding() const;
  int32_t getNumTextureCoordinates() const;
  SbVec2f getTextureCoordinate2(int index) const;
  SbVec4f getTextureCoordinate4(int index) const;
  SoTextureCoordinateBindingElement::Binding getTextureCoordinateBinding() const;
  const SbMatrix& getTextureMatrix() const;
  const SbMatrix& getModelMatrix() const;
  SoUnitsElement::Units getUnits() const;
  float getFocalDistance() const;
  const SbMatrix& getProjectionMatrix() const;
  const SbMatrix& getViewingMatrix() const;
  const SbViewVolume& getViewVolume() const;
  SoPickStyleElement::Style getPickStyle() const;
  int32_t getSwitch() const;
  SoShapeHintsElement::VertexOrderings getVertexOrdering() const;
  SoShapeHintsElement::ShapeTypes getShapeType() const;
  SoShapeHintsElement::FaceTypes getFaceType() const;
  float getCreaseAngle() const;

  // What the last pre or post callback answered.
  Response getCurrentResponse() const { return m_response; }

  // Used by the traversal and the shapes.
  void invokePreCallbacks(const SoNode* node);
  void invokePostCallbacks(const SoNode* node);
  void invokeTriangleCallbacks(const SoShape* shape, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                               const SoPrimitiveVertex* v3);
  void invokeLineSegmentCallbacks(const SoShape* shape, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2);
  void invokePointCallbacks(const SoShape* shape, const SoPrimitiveVertex* v);
  // Whether any primitive callback wants the primitives of this shape.
  bool shouldGeneratePrimitives(const SoShape* shape) const;
  // The traversal function of every node: pre callbacks, the node, post callbacks.
  static void traverseNode(SoAction* action, SoNode* node);

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  template <class F>
  struct Entry {
    SoType type;
    F* function;
    void* data;
  };
  template <class F>
  static void removeEntry(std::vector<Entry<F>>& list, SoType type, F* cb, void* data);
  // Whether the node is the tail of the path the action was applied to.
  bool isAtPathTail(const SoNode* node);

  SbViewportRegion m_viewport;
  std::vector<Entry<SoCallbackActionCB>> m_pre;
  std::vector<Entry<SoCallbackActionCB>> m_post;
  std::vector<Entry<SoCallbackActionCB>> m_preTail;
  std::vector<Entry<SoCallbackActionCB>> m_postTail;
  std::vector<Entry<SoTriangleCB>> m_triangle;
  std::vector<Entry<SoLineSegmentCB>> m_lineSegment;
  std::vector<Entry<SoPointCB>> m_point;
  Response m_response = CONTINUE;
  // The primitive callbacks that apply to the last shape type seen (the
  // type tests are made once per shape type, not per primitive).
  void matchShape(const SoShape* shape);
  SoType m_matchedType;
  bool m_matchValid = false;
  std::vector<Entry<SoTriangleCB>> m_shapeTriangle;
  std::vector<Entry<SoLineSegmentCB>> m_shapeLineSegment;
  std::vector<Entry<SoPointCB>> m_shapePoint;
};

typedef SoCallbackAction::SoCallbackActionCB SoCallbackActionCB;
