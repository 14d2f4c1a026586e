// Engines compute only when a connected field is read, notify without
// computing, and live as long as fields are connected from them.

#include <Orvex/SoDB.h>
#include <Orvex/engines/SoComposeVec3f.h>
#include <Orvex/engines/SoInterpolateFloat.h>
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/sensors/SoFieldSensor.h>
#include <Orvex/sensors/SoNodeSensor.h>

#include <gtest/gtest.h>

#include "TestSupport.h"

// Doubles its input, counting its evaluations and its instances.
class Doubler : public SoEngine {
  SO_ENGINE_HEADER(Doubler);

 public:
  SoSFFloat in;
  SoEngineOutput out;  // SoSFFloat
  static int evaluations;
  static int alive;
  Doubler() {
    SO_ENGINE_CONSTRUCTOR(Doubler);
    SO_ENGINE_ADD_INPUT(in, (0.0f));
    SO_ENGINE_ADD_OUTPUT(out, SoSFFloat);
    ++alive;
  }

 protected:
  ~Doubler() override { --alive; }
  void evaluate() override {
    ++evaluations;
    SO_ENGINE_OUTPUT(out, SoSFFloat, setValue(2.0f * in.getValue()));
  }
};
SO_ENGINE_SOURCE(Doubler)
void Doubler::initClass() { SO_ENGINE_INIT_CLASS(Doubler, SoEngine, "Engine"); }
int Doubler::evaluations = 0;
int Doubler::alive = 0;

namespace {

class EngineEvaluation : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    Doubler::initClass();
  }
  void SetUp() override { Doubler::evaluations = 0; }
};

struct Count {
  int fired = 0;
  static void bump(void* d, SoSensor*) { ++static_cast<Count*>(d)->fired; }
};

TEST_F(EngineEvaluation, ConnectedFieldsAreUpdatedOnlyWhenRead) {
  auto* engine = new Doubler;
  SoSFFloat field;
  ASSERT_TRUE(field.connectFrom(&engine->out));
  EXPECT_TRUE(field.isConnectedFromEngine());
  SoEngineOutput* master = nullptr;
  ASSERT_TRUE(field.getConnectedEngine(master));
  EXPECT_EQ(master, &engine->out);
  EXPECT_EQ(engine->getRefCount(), 1);  // the connection holds it
  Count sensed;
  SoFieldSensor sensor(&Count::bump, &sensed);
  sensor.setPriority(0);
  sensor.attach(&field);

  engine->in = 3.0f;
  engine->in = 4.0f;
  EXPECT_EQ(sensed.fired, 2);  // the field heard of both changes...
  EXPECT_EQ(Doubler::evaluations, 0);  // ...without the engine computing
  EXPECT_EQ(field.getValue(), 8.0f);
  EXPECT_EQ(Doubler::evaluations, 1);
  EXPECT_EQ(field.getValue(), 8.0f);
  EXPECT_EQ(Doubler::evaluations, 1);  // up to date: no new evaluation

  // A value set directly holds until the engine changes again.
  field.setValue(1.0f);
  EXPECT_EQ(field.getValue(), 1.0f);
  engine->in = 5.0f;
  EXPECT_EQ(field.getValue(), 10.0f);
  sensor.detach();
  field.disconnect();
  EXPECT_FALSE(field.isConnected());
}

TEST_F(EngineEvaluation, OneEvaluationServesEveryConnectedField) {
  auto* engine = new Doubler;
  SoSFFloat a, b;
  SoSFInt32 converted;  // another type: the value goes through text
  a.connectFrom(&engine->out);
  b.connectFrom(&engine->out);
  converted.connectFrom(&engine->out);
  engine->in = 21.0f;
  EXPECT_EQ(a.getValue(), 42.0f);
  EXPECT_EQ(b.getValue(), 42.0f);
  EXPECT_EQ(converted.getValue(), 42);
  EXPECT_EQ(Doubler::evaluations, 1);
  EXPECT_EQ(engine->getRefCount(), 3);
  a.disconnect();
  b.disconnect();
  converted.disconnect();
}

TEST_F(EngineEvaluation, TheLastConnectionGoneTheEngineGoes) {
  const int before = Doubler::alive;
  {
    SoSFFloat field;
    field.connectFrom(&(new Doubler)->out);
    EXPECT_EQ(Doubler::alive, before + 1);
  }  // the field dies and lets the engine go
  EXPECT_EQ(Doubler::alive, before);
  SoSFFloat field;
  field.connectFrom(&(new Doubler)->out);
  field.connectFrom(&(new Doubler)->out);  // replaces the first
  EXPECT_EQ(Doubler::alive, before + 1);
  field.disconnect();
  EXPECT_EQ(Doubler::alive, before);
}

TEST_F(EngineEvaluation, ADisabledOutputNeitherNotifiesNorWrites) {
  auto* engine = new Doubler;
  engine->ref();
  SoSFFloat field;
  field.connectFrom(&engine->out);
  engine->in = 1.0f;
  EXPECT_EQ(field.getValue(), 2.0f);
  engine->out.enable(false);
  Count sensed;
  SoFieldSensor sensor(&Count::bump, &sensed);
  sensor.setPriority(0);
  sensor.attach(&field);
  engine->in = 7.0f;
  EXPECT_EQ(sensed.fired, 0);
  EXPECT_EQ(field.getValue(), 2.0f);
  engine->out.enable(true);
  engine->in = 8.0f;
  EXPECT_EQ(field.getValue(), 16.0f);
  sensor.detach();
  field.disconnect();
  engine->unref();
}

TEST_F(EngineEvaluation, ChangesReachTheNodeOfAConnectedField) {
  auto node = orvextest::make(new SoTranslation);
  auto* compose = new SoComposeVec3f;
  node->translation.connectFrom(&compose->vector);
  Count sensed;
  SoNodeSensor sensor(&Count::bump, &sensed);
  sensor.setPriority(0);
  sensor.attach(node.get());
  compose->x = 1.0f;
  compose->z = 3.0f;
  EXPECT_EQ(sensed.fired, 2);
  EXPECT_EQ(node->translation.getValue(), SbVec3f(1, 0, 3));
  sensor.detach();
}

TEST_F(EngineEvaluation, EnginesChainLazily) {
  auto* first = new Doubler;
  auto* second = new Doubler;
  second->in.connectFrom(&first->out);
  SoSFFloat end;
  end.connectFrom(&second->out);
  first->in = 1.5f;
  EXPECT_EQ(Doubler::evaluations, 0);
  EXPECT_EQ(end.getValue(), 6.0f);
  EXPECT_EQ(Doubler::evaluations, 2);
  // The names of outputs and the outputs by name.
  SbName name;
  ASSERT_TRUE(first->getOutputName(&first->out, name));
  EXPECT_EQ(name, SbName("out"));
  EXPECT_EQ(first->getOutput("out"), &first->out);
  std::vector<SoEngineOutput*> outputs;
  EXPECT_EQ(first->getOutputs(outputs), 1);
  EXPECT_EQ(first->out.getConnectionType(), SoSFFloat::getClassTypeId());
  end.disconnect();
}

TEST_F(EngineEvaluation, TextCopiesAndNodeCopiesSeeTheEngine) {
  auto* engine = new Doubler;
  auto node = orvextest::make(new SoTranslation);
  auto* compose = new SoComposeVec3f;
  compose->x.connectFrom(&engine->out);
  node->translation.connectFrom(&compose->vector);
  engine->in = 2.0f;
  SbString text;
  node->translation.get(text);  // reading as text brings it up to date
  EXPECT_EQ(std::string(text.getString()), "4 0 0");
  SoSFVec3f copy;
  compose->y = 1.0f;
  copy = node->translation;  // so does copying the value
  EXPECT_EQ(copy.getValue(), SbVec3f(4, 1, 0));
  // A copy of the node made with its connections follows the same engine.
  auto twin = orvextest::make(static_cast<SoTranslation*>(node->copy(true)));
  EXPECT_TRUE(twin->translation.isConnectedFromEngine());
  compose->z = 5.0f;
  EXPECT_EQ(twin->translation.getValue(), SbVec3f(4, 1, 5));
  auto plain = orvextest::make(static_cast<SoTranslation*>(node->copy(false)));
  EXPECT_FALSE(plain->translation.isConnected());
  twin->translation.disconnect();
  node->translation.disconnect();
}

}  // namespace
