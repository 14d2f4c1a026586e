#pragma once
#include <Orvex/nodes/SoIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

#include <memory>
#include <mutex>

namespace orvex {
class FaceSetCache;
struct FaceTable;
}  // namespace orvex

// Polygons through indexed coordinates.
class SoIndexedFaceSet : public SoIndexedShape {
  SO_NODE_HEADER(SoIndexedFaceSet);

 public:
  SoIndexedFaceSet();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;
  // With acceleration enabled (SoRayPickAction), keeps a search structure
  // over its triangles between picks; the picks give the same results as
  // testing every triangle.
  void rayPick(SoRayPickAction* action) override;

 protected:
  ~SoIndexedFaceSet() override;
  void generatePrimitives(SoAction* action) override;

 private:
  friend class orvex::FaceSetCache;
  // Generates the faces [first, last) of the face table of `faces`.
  void generateFaces(SoAction* action, const orvex::FaceTable& faces, int first, int last);
  std::shared_ptr<orvex::FaceSetCache> cacheFor(SoAction* action);

  std::mutex m_cacheMutex;
  std::shared_ptr<orvex::FaceSetCache> m_cache;  // guarded by m_cacheMutex
};
