// Pre, post and tail callbacks, their answers, primitive callbacks by
// shape type, and the state a callback can read.

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTranslation.h>

#include <string>

#include "ActionTestSupport.h"
#include "PrimitiveCollector.h"

using namespace actiontest;

namespace {

class CallbackAction : public ActionTest {};

struct Trace {
  std::vector<std::string> events;
  SoCallbackAction::Response answer = SoCallbackAction::CONTINUE;
  SoNode* answerAt = nullptr;
};

SoCallbackAction::Response pre(void* data, SoCallbackAction*, const SoNode* node) {
  auto* t = static_cast<Trace*>(data);
  t->events.push_back("pre " + std::string(node->getTypeId().getName().getString()));
  return node == t->answerAt ? t->answer : SoCallbackAction::CONTINUE;
}
SoCallbackAction::Response post(void* data, SoCallbackAction*, const SoNode* node) {
  static_cast<Trace*>(data)->events.push_back("post " + std::string(node->getTypeId().getName().getString()));
  return SoCallbackAction::CONTINUE;
}
SoCallbackAction::Response tail(void* data, SoCallbackAction*, const SoNode* node) {
  static_cast<Trace*>(data)->events.push_back("tail " + std::string(node->getTypeId().getName().getString()));
  return SoCallbackAction::CONTINUE;
}

TEST_F(CallbackAction, PreAndPostCallbacksSurroundNodesOfTheirType) {
  auto root = make(new SoSeparator);
  auto* group = new SoGroup;
  group->addChild(new SoCube);
  root->addChild(group);
  root->addChild(new SoSphere);
  Trace trace;
  SoCallbackAction action;
  action.addPreCallback(SoNode::getClassTypeId(), &pre, &trace);
  action.addPostCallback(SoShape::getClassTypeId(), &post, &trace);
  action.apply(root.get());
  const std::vector<std::string> expected = {"pre Separator", "pre Group", "pre Cube", "post Cube", "pre Sphere",
                                             "post Sphere"};
  EXPECT_EQ(trace.events, expected);
}

TEST_F(CallbackAction, PruneSkipsANodeAndAbortStopsEverything) {
  auto root = make(new SoSeparator);
  auto* group = new SoGroup;
  group->addChild(new SoCube);
  root->addChild(group);
  root->addChild(new SoSphere);
  Trace trace;
  SoCallbackAction action;
  action.addPreCallback(SoNode::getClassTypeId(), &pre, &trace);
  trace.answer = SoCallbackAction::PRUNE;
  trace.answerAt = group;
  action.apply(root.get());
  EXPECT_EQ(trace.events, (std::vector<std::string>{"pre Separator", "pre Group", "pre Sphere"}));
  trace.events.clear();
  trace.answer = SoCallbackAction::ABORT;
  action.apply(root.get());
  EXPECT_EQ(trace.events, (std::vector<std::string>{"pre Separator", "pre Group"}));
  EXPECT_TRUE(action.hasTerminated());
  EXPECT_EQ(action.getCurrentResponse(), SoCallbackAction::ABORT);
}

TEST_F(CallbackAction, TailCallbacksMarkThePathsTail) {
  auto root = make(new SoSeparator);
  auto* group = new SoGroup;
  auto* cube = new SoCube;
  group->addChild(cube);
  root->addChild(group);
  root->addChild(new SoSphere);
  Trace trace;
  SoCallbackAction action;
  action.addPreTailCallback(&tail, &trace);
  action.addPostTailCallback(&post, &trace);
  action.apply(root.get());
  EXPECT_TRUE(trace.events.empty());  // applied to a node: no tail
  auto path = make(new SoPath(root.get()));
  path->append(0);
  path->append(0);
  action.apply(path.get());
  EXPECT_EQ(trace.events, (std::vector<std::string>{"tail Cube", "post Cube"}));
  action.removePreTailCallback(&tail, &trace);
  trace.events.clear();
  action.apply(path.get());
  EXPECT_EQ(trace.events, (std::vector<std::string>{"post Cube"}));
}

TEST_F(CallbackAction, PrimitiveCallbacksAreChosenByShapeType) {
  auto root = make(new SoSeparator);
  root->addChild(new SoCube);
  root->addChild(new SoSphere);
  SoCallbackAction action;
  int cubeTriangles = 0;
  auto count = [](void* d, SoCallbackAction*, const SoPrimitiveVertex*, const SoPrimitiveVertex*,
                  const SoPrimitiveVertex*) { ++*static_cast<int*>(d); };
  action.addTriangleCallback(SoCube::getClassTypeId(), count, &cubeTriangles);
  action.apply(root.get());
  EXPECT_EQ(cubeTriangles, 12);
  action.removeTriangleCallback(SoCube::getClassTypeId(), count, &cubeTriangles);
  action.apply(root.get());
  EXPECT_EQ(cubeTriangles, 12);
}

// What the state says at each cube.
struct Seen {
  std::vector<SbMatrix> models;
  std::vector<SbColor> diffuse;
  std::vector<float> complexity;
  std::vector<SoDrawStyleElement::Style> styles;
  std::vector<int> numCoords;
  std::vector<SoShapeHintsElement::VertexOrderings> orderings;
  std::vector<SoMaterialBindingElement::Binding> bindings;
  std::vector<SbVec3f> cameraPoints;
  std::vector<float> focal;
};

SoCallbackAction::Response look(void* data, SoCallbackAction* action, const SoNode*) {
  auto* s = static_cast<Seen*>(data);
  s->models.push_back(action->getModelMatrix());
  SbColor a, d, sp, e;
  float shininess, transparency;
  action->getMaterial(a, d, sp, e, shininess, transparency);
  s->diffuse.push_back(d);
  s->complexity.push_back(action->getComplexity());
  s->styles.push_back(action->getDrawStyle());
  s->numCoords.push_back(action->getNumCoordinates());
  s->orderings.push_back(action->getVertexOrdering());
  s->bindings.push_back(action->getMaterialBinding());
  SbVec3f projected;
  action->getViewVolume().projectToScreen(SbVec3f(0, 0, 0), projected);
  s->cameraPoints.push_back(projected);
  s->focal.push_back(action->getFocalDistance());
  return SoCallbackAction::CONTINUE;
}

TEST_F(CallbackAction, CallbacksReadTheCurrentState) {
  auto root = make(new SoSeparator);
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(0, 0, 10);
  camera->focalDistance = 10;
  root->addChild(camera);
  auto* inner = new SoSeparator;
  auto* move = new SoTranslation;
  move->translation.setValue(1, 2, 3);
  auto* material = new SoMaterial;
  material->diffuseColor.setValue(1, 0, 0);
  auto* complexity = new SoComplexity;
  complexity->value = 0.9f;
  auto* style = new SoDrawStyle;
  style->style = SoDrawStyle::LINES;
  auto* coords = new SoCoordinate3;
  coords->point.setNum(7);
  auto* hints = new SoShapeHints;
  hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_FACE;
  for (SoNode* n : std::vector<SoNode*>{move, material, complexity, style, coords, hints, binding, new SoCube})
    inner->addChild(n);
  root->addChild(inner);
  root->addChild(new SoCube);  // after the separator: all back to defaults
  Seen seen;
  SoCallbackAction action(SbViewportRegion(100, 100));
  action.addPreCallback(SoCube::getClassTypeId(), &look, &seen);
  action.apply(root.get());
  ASSERT_EQ(seen.models.size(), 2u);
  SbVec3f p;
  seen.models[0].multVecMatrix(SbVec3f(0, 0, 0), p);
  EXPECT_EQ(p, SbVec3f(1, 2, 3));
  EXPECT_EQ(seen.diffuse[0], SbColor(1, 0, 0));
  EXPECT_FLOAT_EQ(seen.complexity[0], 0.9f);
  EXPECT_EQ(seen.styles[0], SoDrawStyleElement::LINES);
  EXPECT_EQ(seen.numCoords[0], 7);
  EXPECT_EQ(seen.orderings[0], SoShapeHintsElement::COUNTERCLOCKWISE);
  EXPECT_EQ(seen.bindings[0], SoMaterialBindingElement::PER_FACE);
  EXPECT_TRUE(seen.models[1].isIdentity());
  EXPECT_EQ(seen.diffuse[1], SoLazyElement::getDefaultDiffuse());
  EXPECT_FLOAT_EQ(seen.complexity[1], 0.5f);
  EXPECT_EQ(seen.styles[1], SoDrawStyleElement::FILLED);
  EXPECT_EQ(seen.numCoords[1], 1);
  EXPECT_EQ(seen.bindings[1], SoMaterialBindingElement::OVERALL);
  // The camera's volume is in the state: the origin is in the middle of the screen.
  EXPECT_NEAR(seen.cameraPoints[1][0], 0.5f, 1e-5f);
  EXPECT_NEAR(seen.cameraPoints[1][1], 0.5f, 1e-5f);
  EXPECT_FLOAT_EQ(seen.focal[1], 10.0f);
}

TEST_F(CallbackAction, AnOverrideNodeWinsOverLaterNodes) {
  auto root = make(new SoSeparator);
  auto* first = new SoMaterial;
  first->diffuseColor.setValue(0, 1, 0);
  first->setOverride(true);
  first->shininess.setIgnored(true);  // an ignored field is neither set nor fixed
  auto* second = new SoMaterial;
  second->diffuseColor.setValue(0, 0, 1);
  second->shininess = 0.9f;
  auto* sep = new SoSeparator;
  sep->addChild(first);
  sep->addChild(second);
  sep->addChild(new SoCube);
  root->addChild(sep);
  root->addChild(second);
  root->addChild(new SoCube);
  struct Colors {
    std::vector<SbColor> diffuse;
    std::vector<float> shininess;
  } colors;
  SoCallbackAction action;
  action.addPreCallback(SoCube::getClassTypeId(), [](void* d, SoCallbackAction* a, const SoNode*) {
    SbColor amb, dif, specular, em;
    float sh, tr;
    a->getMaterial(amb, dif, specular, em, sh, tr);
    static_cast<Colors*>(d)->diffuse.push_back(dif);
    static_cast<Colors*>(d)->shininess.push_back(sh);
    return SoCallbackAction::CONTINUE;
  }, &colors);
  action.apply(root.get());
  ASSERT_EQ(colors.diffuse.size(), 2u);
  EXPECT_EQ(colors.diffuse[0], SbColor(0, 1, 0));
  EXPECT_FLOAT_EQ(colors.shininess[0], 0.9f);  // only what the override node set is fixed
  EXPECT_EQ(colors.diffuse[1], SbColor(0, 0, 1));  // outside the separator the override is gone
}

TEST_F(CallbackAction, ASwitchShowsItsChoice) {
  auto root = make(new SoSwitch);
  root->addChild(new SoCube);
  root->addChild(new SoSphere);
  root->whichChild = 1;
  Trace trace;
  SoCallbackAction action;
  action.addPreCallback(SoShape::getClassTypeId(), &pre, &trace);
  action.apply(root.get());
  EXPECT_EQ(trace.events, (std::vector<std::string>{"pre Sphere"}));
}

}  // namespace
