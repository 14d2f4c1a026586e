// Node classes, groups, names, and the node-specific members.

#include <Orvex/SoDB.h>
#include <Orvex/SoNodeList.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/nodes/SoBaseColor.h>
#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoDepthBuffer.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoIndexedLineSet.h>
#include <Orvex/nodes/SoInfo.h>
#include <Orvex/nodes/SoLabel.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoMatrixTransform.h>
#include <Orvex/nodes/SoNormal.h>
#include <Orvex/nodes/SoNormalBinding.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPattern.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoPickStyle.h>
#include <Orvex/nodes/SoPointLight.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoResetTransform.h>
#include <Orvex/nodes/SoRotation.h>
#include <Orvex/nodes/SoRotationXYZ.h>
#include <Orvex/nodes/SoScale.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSpotLight.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoTransformSeparator.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/nodes/SoTriangleStripSet.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <unistd.h>

#include "ErrorCapture.h"
#include "TestSupport.h"

using orvextest::make;

namespace {
class NodesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};
}  // namespace

TEST_F(NodesTest, TypeNamesAndHierarchy) {
  EXPECT_EQ(SoNode::getClassTypeId().getName(), SbName("Node"));
  EXPECT_EQ(SoSeparator::getClassTypeId().getName(), SbName("Separator"));
  EXPECT_EQ(SoSeparator::getClassTypeId().getParent(), SoGroup::getClassTypeId());
  EXPECT_EQ(SoType::fromName("SoIndexedFaceSet"), SoIndexedFaceSet::getClassTypeId());
  EXPECT_TRUE(SoIndexedFaceSet::getClassTypeId().isDerivedFrom(SoType::fromName("VertexShape")));
  EXPECT_FALSE(SoType::fromName("Shape").canCreateInstance());
  EXPECT_FALSE(SoType::fromName("Camera").canCreateInstance());
  EXPECT_TRUE(SoType::fromName("PerspectiveCamera").isDerivedFrom(SoType::fromName("Camera")));
  EXPECT_EQ(SoType::fromName("Path").getName(), SbName("Path"));
  // Each node class has its own action-method index, kept in its type.
  EXPECT_NE(SoNode::getActionMethodIndex(SoCube::getClassTypeId()),
            SoNode::getActionMethodIndex(SoSphere::getClassTypeId()));
  auto cube = make(new SoCube);
  EXPECT_EQ(cube->getTypeActionMethodIndex(), SoNode::getActionMethodIndex(SoCube::getClassTypeId()));
  EXPECT_LT(cube->getTypeActionMethodIndex(), SoNode::getNextActionMethodIndex());
  const int next = SoNode::getNextActionMethodIndex();
  SoNode::incNextActionMethodIndex();
  EXPECT_EQ(SoNode::getNextActionMethodIndex(), next + 1);
}

TEST_F(NodesTest, DefaultFieldValues) {
  auto t = make(new SoTransform);
  EXPECT_EQ(t->scaleFactor.getValue(), SbVec3f(1, 1, 1));
  EXPECT_EQ(t->rotation.getValue(), SbRotation::identity());
  auto m = make(new SoMaterial);
  EXPECT_EQ(m->ambientColor[0], SbColor(0.2f, 0.2f, 0.2f));
  EXPECT_EQ(m->diffuseColor[0], SbColor(0.8f, 0.8f, 0.8f));
  EXPECT_EQ(m->shininess[0], 0.2f);
  EXPECT_EQ(make(new SoBaseColor)->rgb[0], SbColor(0.8f, 0.8f, 0.8f));
  EXPECT_EQ(make(new SoDrawStyle)->linePattern.getValue(), 0xFFFF);
  EXPECT_EQ(make(new SoShapeHints)->faceType.getValue(), SoShapeHints::CONVEX);
  EXPECT_EQ(make(new SoComplexity)->value.getValue(), 0.5f);
  EXPECT_EQ(make(new SoLightModel)->model.getValue(), SoLightModel::PHONG);
  EXPECT_EQ(make(new SoMaterialBinding)->value.getValue(), SoMaterialBinding::OVERALL);
  EXPECT_EQ(make(new SoNormalBinding)->value.getValue(), SoNormalBinding::PER_VERTEX_INDEXED);
  EXPECT_EQ(make(new SoPickStyle)->style.getValue(), SoPickStyle::SHAPE);
  EXPECT_EQ(make(new SoCoordinate3)->point.getNum(), 1);
  EXPECT_EQ(make(new SoNormal)->vector.getNum(), 0);
  EXPECT_EQ(make(new SoTextureCoordinate2)->point[0], SbVec2f(0, 0));
  auto depth = make(new SoDepthBuffer);
  EXPECT_TRUE(depth->test.getValue());
  EXPECT_EQ(depth->function.getValue(), SoDepthBuffer::LESS);
  EXPECT_EQ(SoDepthBuffer::NEVER, 0);
  EXPECT_EQ(SoDepthBuffer::ALWAYS, 7);
  auto cam = make(new SoPerspectiveCamera);
  EXPECT_EQ(cam->position.getValue(), SbVec3f(0, 0, 1));
  EXPECT_NEAR(cam->heightAngle.getValue(), M_PI / 4, 1e-6);
  EXPECT_EQ(cam->viewportMapping.getValue(), SoCamera::ADJUST_CAMERA);
  EXPECT_EQ(make(new SoOrthographicCamera)->height.getValue(), 2.0f);
  EXPECT_EQ(make(new SoDirectionalLight)->direction.getValue(), SbVec3f(0, 0, -1));
  EXPECT_EQ(make(new SoPointLight)->location.getValue(), SbVec3f(0, 0, 1));
  EXPECT_NEAR(make(new SoSpotLight)->cutOffAngle.getValue(), M_PI / 4, 1e-6);
  EXPECT_TRUE(make(new SoSpotLight)->on.getValue());
  EXPECT_EQ(make(new SoCube)->depth.getValue(), 2.0f);
  EXPECT_EQ(make(new SoSphere)->radius.getValue(), 1.0f);
  EXPECT_EQ(make(new SoCylinder)->parts.getValue(), SoCylinder::ALL);
  EXPECT_EQ(make(new SoPointSet)->numPoints.getValue(), -1);
  EXPECT_EQ(make(new SoLineSet)->numVertices[0], -1);
  EXPECT_EQ(make(new SoFaceSet)->startIndex.getValue(), 0);
  EXPECT_EQ(make(new SoTriangleStripSet)->numVertices[0], -1);
  auto ifs = make(new SoIndexedFaceSet);
  EXPECT_EQ(ifs->coordIndex[0], 0);
  EXPECT_EQ(ifs->materialIndex[0], -1);
  EXPECT_EQ(ifs->vertexProperty.getValue(), nullptr);
  EXPECT_EQ(make(new SoIndexedLineSet)->textureCoordIndex[0], -1);
  EXPECT_EQ(make(new SoInfo)->string.getValue(), "<Undefined info>");
  EXPECT_EQ(make(new SoLabel)->label.getValue(), SbName("<Undefined label>"));
  EXPECT_EQ(make(new SoResetTransform)->whatToReset.getValue(), SoResetTransform::TRANSFORM);
  EXPECT_EQ(make(new SoScale)->scaleFactor.getValue(), SbVec3f(1, 1, 1));
  EXPECT_TRUE(make(new SoMatrixTransform)->matrix.getValue().isIdentity());
  EXPECT_EQ(make(new SoTranslation)->translation.getValue(), SbVec3f(0, 0, 0));
  EXPECT_EQ(make(new SoRotation)->rotation.getValue(), SbRotation::identity());
  EXPECT_EQ(make(new SoSwitch)->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(make(new SoSeparator)->renderCaching.getValue(), SoSeparator::AUTO);
}

TEST_F(NodesTest, GroupChildren) {
  auto group = make(new SoGroup);
  auto* a = new SoCube;
  auto* b = new SoSphere;
  auto* c = new SoCone;
  group->addChild(a);
  group->addChild(c);
  group->insertChild(b, 1);
  ASSERT_EQ(group->getNumChildren(), 3);
  EXPECT_EQ(group->getChild(1), b);
  EXPECT_EQ(group->findChild(c), 2);
  EXPECT_EQ(group->findChild(group.get()), -1);
  EXPECT_EQ(a->getRefCount(), 1);
  group->replaceChild(a, c);
  EXPECT_EQ(group->getChild(0), c);
  EXPECT_EQ(c->getRefCount(), 2);
  group->removeChild(2);
  EXPECT_EQ(c->getRefCount(), 1);
  group->removeChild(b);
  EXPECT_EQ(group->getNumChildren(), 1);
  ErrorCapture<SoDebugError> errors;
  EXPECT_EQ(group->getChild(5), nullptr);
  group->removeChild(7);
  // A refused insertion takes no reference: the test's own reference frees
  // the cube.
  auto stray = make(new SoCube);
  group->insertChild(stray.get(), 9);
  EXPECT_EQ(stray->getRefCount(), 1);
  group->addChild(nullptr);
  EXPECT_EQ(errors.count(), 4u);
  EXPECT_EQ(group->getNumChildren(), 1);
  group->removeAllChildren();
  EXPECT_EQ(group->getNumChildren(), 0);
  auto reserved = make(new SoSeparator(100));
  EXPECT_EQ(reserved->getNumChildren(), 0);
}

TEST_F(NodesTest, NamesFindNodes) {
  auto a = make(new SoCube);
  auto b = make(new SoSphere);
  a->setName("thing");
  b->setName("thing");
  EXPECT_EQ(SoNode::getByName("thing"), b.get());  // the most recently named
  SoNodeList list;
  EXPECT_EQ(SoNode::getByName("thing", list), 2);
  EXPECT_EQ(list[0], a.get());
  EXPECT_EQ(SoNode::getByName("nothing"), nullptr);
  b->setName("");
  EXPECT_EQ(SoNode::getByName("thing"), a.get());
}

TEST_F(NodesTest, ConeAndCylinderParts) {
  auto cone = make(new SoCone);
  EXPECT_TRUE(cone->hasPart(SoCone::SIDES));
  cone->removePart(SoCone::BOTTOM);
  EXPECT_FALSE(cone->hasPart(SoCone::BOTTOM));
  EXPECT_FALSE(cone->hasPart(SoCone::ALL));
  EXPECT_EQ(cone->parts.getValue(), SoCone::SIDES);
  cone->addPart(SoCone::BOTTOM);
  EXPECT_TRUE(cone->hasPart(SoCone::ALL));
  auto cyl = make(new SoCylinder);
  cyl->removePart(SoCylinder::TOP);
  EXPECT_EQ(cyl->parts.getValue(), SoCylinder::SIDES | SoCylinder::BOTTOM);
}

TEST_F(NodesTest, StateAndOverrideFlags) {
  EXPECT_FALSE(make(new SoSeparator)->affectsState());
  EXPECT_FALSE(make(new SoCube)->affectsState());
  EXPECT_TRUE(make(new SoMaterial)->affectsState());
  EXPECT_TRUE(make(new SoGroup)->affectsState());
  auto m = make(new SoMaterial);
  orvextest::Listener listener;
  m->addAuditor(&listener);
  EXPECT_FALSE(m->isOverride());
  m->setOverride(true);
  EXPECT_TRUE(m->isOverride());
  EXPECT_EQ(listener.count(), 1u);  // a change like any other
  m->removeAuditor(&listener);
}

TEST_F(NodesTest, TransformHelpers) {
  auto t = make(new SoTransform);
  t->translation.setValue(1, 2, 3);
  t->scaleFactor.setValue(2, 2, 2);
  SbMatrix m = t->getMatrix();
  SbVec3f p;
  m.multVecMatrix(SbVec3f(1, 0, 0), p);
  EXPECT_TRUE(p.equals(SbVec3f(3, 2, 3), 1e-10f));
  auto other = make(new SoTransform);
  other->setMatrix(m);
  EXPECT_TRUE(other->translation.getValue().equals(SbVec3f(1, 2, 3), 1e-10f));
  EXPECT_TRUE(other->scaleFactor.getValue().equals(SbVec3f(2, 2, 2), 1e-10f));
  t->pointAt(SbVec3f(0, 0, 0), SbVec3f(1, 0, 0));
  SbVec3f dir;
  t->rotation.getValue().multVec(SbVec3f(0, 0, -1), dir);
  EXPECT_TRUE(dir.equals(SbVec3f(1, 0, 0), 1e-10f));
  auto rx = make(new SoRotationXYZ);
  rx->axis = SoRotationXYZ::Y;
  rx->angle = 1.0f;
  EXPECT_TRUE(rx->getRotation().equals(SbRotation(SbVec3f(0, 1, 0), 1.0f), 1e-6f));
  auto cam = make(new SoPerspectiveCamera);
  cam->position.setValue(0, 0, 10);
  cam->pointAt(SbVec3f(10, 0, 10));
  cam->orientation.getValue().multVec(SbVec3f(0, 0, -1), dir);
  EXPECT_TRUE(dir.equals(SbVec3f(1, 0, 0), 1e-10f));
  EXPECT_NEAR(cam->focalDistance.getValue(), 10.0f, 1e-5f);
}

namespace {
int s_callbackCalls = 0;
void countCalls(void* data, SoAction*) {
  ++s_callbackCalls;
  ++*static_cast<int*>(data);
}
}  // namespace

TEST_F(NodesTest, CallbackNodesCallTheirFunction) {
  int mine = 0;
  auto root = make(new SoSeparator);
  auto* cb = new SoCallback;
  cb->setCallback(&countCalls, &mine);
  root->addChild(cb);
  EXPECT_EQ(cb->getCallback(), &countCalls);
  SoSearchAction search;
  search.setType(SoCube::getClassTypeId());
  search.apply(root.get());
  EXPECT_EQ(mine, 1);
  auto copy = make(static_cast<SoSeparator*>(root->copy()));
  search.apply(copy.get());
  EXPECT_EQ(mine, 2);  // the copy calls the same function
  orvextest::writeToString(root.get());
  EXPECT_EQ(mine, 2);  // writing does not
}

TEST_F(NodesTest, PatternFiles) {
  char dirPattern[] = "/tmp/orvex-patterns-XXXXXX";
  const std::string dir = mkdtemp(dirPattern);
  const std::string file = dir + "/hatch.pat";
  {
    std::ofstream f(file);
    f << "#Orvex Pattern V1.0\n# diagonal lines\nCategory \"hatch\"\nPattern \"diagonal\" [";
    for (int row = 0; row < 32; ++row) f << (row ? ", " : " ") << "0x" << std::hex << (0x80000000u >> row);
    f << " ]\nCategory \"solid\"\nPattern \"full\" [";
    for (int row = 0; row < 32; ++row) f << " 0xffffffff";
    f << " ]\n";
  }
  int count = 0;
  SbString* names = nullptr;
  ASSERT_TRUE(SoPattern::getPatternNames(count, names, SbString(file)));
  ASSERT_EQ(count, 2);
  EXPECT_EQ(names[0], "diagonal");
  EXPECT_EQ(names[1], "full");
  delete[] names;
  EXPECT_EQ(SoPattern::loadPatterns(SbString(file), "hatch", SoPattern::INCLUSIVEFILTER), 1);
  EXPECT_EQ(SoPattern::getPattern("solid", "full"), nullptr);
  EXPECT_EQ(SoPattern::loadPatterns(SbString(file)), 2);
  auto node = make(new SoPattern);
  node->category = SbString("hatch");
  node->name = SbString("diagonal");
  const unsigned char* bits = node->getPattern();
  ASSERT_NE(bits, nullptr);
  EXPECT_EQ(bits[0], 0x80);
  EXPECT_EQ(bits[4], 0x40);
  EXPECT_EQ(bits[127], 0x01);

  // A file without patterns has no names.
  const std::string empty = dir + "/empty.pat";
  {
    std::ofstream f(empty);
    f << "#Orvex Pattern V1.0\n";
  }
  ASSERT_TRUE(SoPattern::getPatternNames(count, names, SbString(empty)));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(names, nullptr);
  ErrorCapture<SoReadError> errors;
  {
    std::ofstream f(empty);
    f << "#Orvex Pattern V1.0\nPattern \"short\" [ 1 2 3 ]\n";
  }
  EXPECT_FALSE(SoPattern::getPatternNames(count, names, SbString(empty)));
  EXPECT_NE(errors.last().find("32 rows"), std::string::npos);
  EXPECT_EQ(SoPattern::loadPatterns(SbString(dir + "/missing.pat")), -1);
  std::system(("rm -rf " + dir).c_str());
}
