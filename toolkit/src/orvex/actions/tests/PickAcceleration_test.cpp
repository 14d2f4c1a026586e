// The search structure of large face sets gives exactly what testing every
// triangle gives, and follows changes of the shape and its coordinates.

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoTransform.h>

#include <random>

#include "ActionTestSupport.h"

using namespace actiontest;

namespace {

// A bumpy grid of quads, with a few concave pentagons among them, under a
// transformation.
struct Mesh {
  Ref<SoSeparator> root{new SoSeparator};
  SoCoordinate3* coords = new SoCoordinate3;
  SoIndexedFaceSet* faces = new SoIndexedFaceSet;
  SoTransform* transform = new SoTransform;
  static constexpr int kSize = 30;

  Mesh() {
    std::mt19937 rng(7);
    std::uniform_real_distribution<float> bump(-0.3f, 0.3f);
    std::vector<SbVec3f> points;
    for (int y = 0; y <= kSize; ++y)
      for (int x = 0; x <= kSize; ++x) points.emplace_back(float(x), float(y), bump(rng));
    coords->point.setValues(0, static_cast<int>(points.size()), points.data());
    std::vector<int32_t> index;
    const int row = kSize + 1;
    for (int y = 0; y < kSize; ++y)
      for (int x = 0; x < kSize; ++x) {
        const int a = y * row + x;
        index.insert(index.end(), {a, a + 1, a + row + 1, a + row, -1});
      }
    faces->coordIndex.setValues(0, static_cast<int>(index.size()), index.data());
    auto* hints = new SoShapeHints;
    hints->faceType = SoShapeHints::UNKNOWN_FACE_TYPE;
    auto* binding = new SoMaterialBinding;
    binding->value = SoMaterialBinding::PER_FACE;
    transform->rotation.setValue(SbRotation(SbVec3f(1, 1, 0), 0.3f));
    transform->translation.setValue(-10, 3, 2);
    transform->scaleFactor.setValue(1.5f, 0.8f, 2.0f);
    for (SoNode* n : std::vector<SoNode*>{hints, binding, transform, coords, faces}) root->addChild(n);
  }
};

// Everything a pick reports, to be compared exactly.
void expectSamePicks(const SoPickedPointList& a, const SoPickedPointList& b) {
  ASSERT_EQ(a.getLength(), b.getLength());
  for (int i = 0; i < a.getLength(); ++i) {
    EXPECT_EQ(a[i]->getPoint(), b[i]->getPoint());
    EXPECT_EQ(a[i]->getNormal(), b[i]->getNormal());
    EXPECT_EQ(a[i]->getTextureCoords(), b[i]->getTextureCoords());
    EXPECT_EQ(a[i]->getMaterialIndex(), b[i]->getMaterialIndex());
    const auto* fa = static_cast<const SoFaceDetail*>(a[i]->getDetail());
    const auto* fb = static_cast<const SoFaceDetail*>(b[i]->getDetail());
    ASSERT_NE(fa, nullptr);
    ASSERT_NE(fb, nullptr);
    EXPECT_EQ(fa->getFaceIndex(), fb->getFaceIndex());
    ASSERT_EQ(fa->getNumPoints(), fb->getNumPoints());
    for (int k = 0; k < fa->getNumPoints(); ++k)
      EXPECT_EQ(fa->getPoint(k)->getCoordinateIndex(), fb->getPoint(k)->getCoordinateIndex());
  }
}

class PickAcceleration : public ActionTest {
 protected:
  void TearDown() override { SoRayPickAction::setAccelerationEnabled(true); }

  // Picks with and without the search structure and compares.
  void compare(SoNode* root, const SbVec3f& start, const SbVec3f& dir, bool all, int* hits) {
    SoRayPickAction fast(SbViewportRegion(100, 100)), slow(SbViewportRegion(100, 100));
    for (SoRayPickAction* a : {&fast, &slow}) {
      a->setRay(start, dir);
      a->setPickAll(all);
    }
    SoRayPickAction::setAccelerationEnabled(true);
    fast.apply(root);
    SoRayPickAction::setAccelerationEnabled(false);
    slow.apply(root);
    SoRayPickAction::setAccelerationEnabled(true);
    expectSamePicks(fast.getPickedPointList(), slow.getPickedPointList());
    if (hits) *hits += slow.getPickedPointList().getLength() > 0 ? 1 : 0;
  }
};

TEST_F(PickAcceleration, RandomRaysGiveTheSameHits) {
  Mesh mesh;
  std::mt19937 rng(11);
  std::uniform_real_distribution<float> u(-1, 1);
  int hits = 0;
  for (int i = 0; i < 300; ++i) {
    // From around the mesh towards points of it, and some at random.
    SbVec3f target(u(rng) * 20, u(rng) * 20 + 10, u(rng) * 3);
    SbVec3f start(u(rng) * 40, u(rng) * 40, 30 + u(rng) * 10);
    if (i % 3 == 0) start[2] = -30;
    compare(mesh.root.get(), start, target - start, i % 2 == 0, &hits);
  }
  EXPECT_GT(hits, 100);  // the rays mostly meet the mesh
}

TEST_F(PickAcceleration, RaysThroughVerticesAndEdgesAgree) {
  Mesh mesh;
  // Straight down through grid vertices and edge midpoints, where several
  // triangles are hit at the same distance: the first in order must win.
  SbMatrix m = mesh.transform->getMatrix();
  int hits = 0;
  for (int y = 1; y < Mesh::kSize; y += 3)
    for (int x = 1; x < Mesh::kSize; x += 3)
      for (const SbVec2f& offset : {SbVec2f(0, 0), SbVec2f(0.5f, 0), SbVec2f(0.5f, 0.5f)}) {
        SbVec3f local(x + offset[0], y + offset[1], 0), world, up;
        m.multVecMatrix(local, world);
        m.multDirMatrix(SbVec3f(0, 0, 1), up);
        compare(mesh.root.get(), world + up * 5.0f, -up, false, &hits);
        compare(mesh.root.get(), world + up * 5.0f, -up, true, nullptr);
      }
  EXPECT_GT(hits, 100);
}

TEST_F(PickAcceleration, TheStructureFollowsChangesOfCoordinatesAndFaces) {
  Mesh mesh;
  const SbVec3f start(5, 5, 40), dir(0.05f, 0.1f, -1);
  compare(mesh.root.get(), start, dir, true, nullptr);
  // Lift a whole region high: the next pick must see it.
  SbVec3f* p = mesh.coords->point.startEditing();
  for (int i = 0; i < mesh.coords->point.getNum(); ++i) p[i][2] += (i % 7 == 0) ? 4.0f : 0.0f;
  mesh.coords->point.finishEditing();
  compare(mesh.root.get(), start, dir, true, nullptr);
  mesh.faces->coordIndex.setNum(5 * 100);  // fewer faces
  compare(mesh.root.get(), start, dir, true, nullptr);
  int hits = 0;
  for (int i = 0; i < 20; ++i)
    compare(mesh.root.get(), SbVec3f(float(i), 2, 40), SbVec3f(0, 0.1f, -1), false, &hits);
  EXPECT_GT(hits, 0);
}

}  // namespace
