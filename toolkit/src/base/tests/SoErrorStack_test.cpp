#include <Orvex/errors/SoErrorStack.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

// Probe functions with known names and addresses. They are exported from the
// test executable (ENABLE_EXPORTS), so the dynamic linker can name them; the
// empty asm statements keep their calls from being folded into their callers.
extern "C" __attribute__((noinline)) int orvexStackProbeCapture(SoErrorStack::StackFrame* frames, int maxFrames) {
  const int n = SoErrorStack::getStackFrames(frames, maxFrames);
  asm volatile("");
  return n;
}

extern "C" __attribute__((noinline)) void orvexStackProbePost() {
  SoErrorStack::post();
  asm volatile("");
}

namespace stackprobe {
__attribute__((noinline)) int inner(SoErrorStack::StackFrame* frames, int maxFrames, double) {
  const int n = SoErrorStack::getStackFrames(frames, maxFrames);
  asm volatile("");
  return n;
}
__attribute__((noinline)) int outer(SoErrorStack::StackFrame* frames, int maxFrames) {
  const int n = inner(frames, maxFrames, 0.5);
  asm volatile("");
  return n;
}
}  // namespace stackprobe

namespace {

using Frame = SoErrorStack::StackFrame;

class SoErrorStackTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoError::initClasses(); }
};

// Keeps what a posted stack error carries; restores the handler afterwards.
struct PostedStacks {
  struct Posted {
    std::vector<Frame> frames;
    std::string text;
    bool isStackError;
  };
  std::vector<Posted> posted;
  SoErrorCB* previousCb = SoErrorStack::getHandlerCallback();
  void* previousData = SoErrorStack::getHandlerCallbackData();

  PostedStacks() { SoErrorStack::setHandlerCallback(&record, this); }
  ~PostedStacks() { SoErrorStack::setHandlerCallback(previousCb, previousData); }

  static void record(const SoError* error, void* data) {
    auto* self = static_cast<PostedStacks*>(data);
    const auto* stack = static_cast<const SoErrorStack*>(error);
    Posted p{{}, error->getDebugString().getString(), error->isOfType(SoErrorStack::getClassTypeId())};
    p.frames.assign(stack->getFrames(), stack->getFrames() + stack->getNumFrames());
    self->posted.push_back(std::move(p));
  }
};

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

}  // namespace

TEST_F(SoErrorStackTest, FrameValueSetGetAndText) {
  const Frame empty;
  EXPECT_EQ(empty.getAddress(), 0u);
  EXPECT_TRUE(empty.getModuleName().isEmpty());
  EXPECT_TRUE(empty.getFunctionName().isEmpty());
  EXPECT_EQ(empty.getOffset(), 0u);
  EXPECT_STREQ(empty.getString().getString(), "[0x0]");

  Frame f;
  f.setValue(0x7f0012345678u, "/usr/lib/libfoo.so", "Foo::bar(int)", 0x1f);
  EXPECT_EQ(f.getAddress(), 0x7f0012345678u);
  EXPECT_STREQ(f.getModuleName().getString(), "/usr/lib/libfoo.so");
  EXPECT_STREQ(f.getFunctionName().getString(), "Foo::bar(int)");
  EXPECT_EQ(f.getOffset(), 0x1fu);
  EXPECT_STREQ(f.getString().getString(), "/usr/lib/libfoo.so(Foo::bar(int)+0x1f) [0x7f0012345678]");

  // An unnamed function: the offset is the module's.
  f.setValue(0x401000u, "/bin/app", nullptr, 0x1000);
  EXPECT_TRUE(f.getFunctionName().isEmpty());
  EXPECT_STREQ(f.getString().getString(), "/bin/app(+0x1000) [0x401000]");
}

TEST_F(SoErrorStackTest, FrameEqualityComparesEveryPart) {
  const Frame a(0x10, "m", "f", 2);
  Frame b;
  b.setValue(0x10, "m", "f", 2);
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  const Frame differing[] = {Frame(0x11, "m", "f", 2), Frame(0x10, "n", "f", 2), Frame(0x10, "m", "g", 2),
                             Frame(0x10, "m", "f", 3), Frame(0x10, nullptr, "f", 2)};
  for (const Frame& d : differing) {
    EXPECT_FALSE(a == d) << d.getString().getString();
    EXPECT_TRUE(a != d) << d.getString().getString();
  }
  Frame copy;
  copy = a;
  EXPECT_EQ(copy, a);
}

TEST_F(SoErrorStackTest, FramesStartAtTheCallerWithItsAddressAndName) {
  Frame frames[16];
  const int n = orvexStackProbeCapture(frames, 16);
  ASSERT_GE(n, 2);
  EXPECT_STREQ(frames[0].getFunctionName().getString(), "orvexStackProbeCapture");
  // The return address lies inside the probe, `offset` bytes past its start.
  const auto probe = reinterpret_cast<uintptr_t>(&orvexStackProbeCapture);
  EXPECT_EQ(frames[0].getAddress() - frames[0].getOffset(), probe);
  EXPECT_GT(frames[0].getOffset(), 0u);
  EXPECT_LT(frames[0].getOffset(), 4096u);
  EXPECT_FALSE(frames[0].getModuleName().isEmpty());
  EXPECT_STREQ(frames[1].getFunctionName().getString(),
               "SoErrorStackTest_FramesStartAtTheCallerWithItsAddressAndName_Test::TestBody()");
}

TEST_F(SoErrorStackTest, CppNamesAreDemangled) {
  Frame frames[8];
  const int n = stackprobe::outer(frames, 8);
  ASSERT_GE(n, 3);
  EXPECT_STREQ(frames[0].getFunctionName().getString(), "stackprobe::inner(SoErrorStack::StackFrame*, int, double)");
  EXPECT_STREQ(frames[1].getFunctionName().getString(), "stackprobe::outer(SoErrorStack::StackFrame*, int)");
}

TEST_F(SoErrorStackTest, CaptureWritesNoMoreThanAskedFor) {
  Frame frames[4];
  const Frame sentinel(0xdead, "sentinel", "untouched", 7);
  frames[2] = sentinel;
  frames[3] = sentinel;
  EXPECT_EQ(orvexStackProbeCapture(frames, 2), 2);
  EXPECT_STREQ(frames[0].getFunctionName().getString(), "orvexStackProbeCapture");
  EXPECT_EQ(frames[2], sentinel);
  EXPECT_EQ(frames[3], sentinel);
  EXPECT_EQ(SoErrorStack::getStackFrames(frames, 0), 0);
  EXPECT_EQ(SoErrorStack::getStackFrames(nullptr, 8), 0);
  EXPECT_EQ(frames[2], sentinel);
}

TEST_F(SoErrorStackTest, PostedErrorCarriesThePostersFramesAndTheirText) {
  PostedStacks stacks;
  orvexStackProbePost();
  ASSERT_EQ(stacks.posted.size(), 1u);
  const auto& p = stacks.posted[0];
  EXPECT_TRUE(p.isStackError);
  ASSERT_GE(p.frames.size(), 2u);
  EXPECT_STREQ(p.frames[0].getFunctionName().getString(), "orvexStackProbePost");
  EXPECT_EQ(p.frames[0].getAddress() - p.frames[0].getOffset(), reinterpret_cast<uintptr_t>(&orvexStackProbePost));
  EXPECT_STREQ(p.frames[1].getFunctionName().getString(),
               "SoErrorStackTest_PostedErrorCarriesThePostersFramesAndTheirText_Test::TestBody()");

  // The text is a heading and then one line per carried frame, in order.
  const auto text = lines(p.text);
  ASSERT_EQ(text.size(), p.frames.size() + 1);
  EXPECT_EQ(text[0], "Orvex stack trace:");
  EXPECT_EQ(text[1].rfind("#0 ", 0), 0u);
  EXPECT_NE(text[1].find("(orvexStackProbePost+0x"), std::string::npos) << text[1];
  for (size_t i = 0; i < p.frames.size(); ++i)
    EXPECT_EQ(text[i + 1], "#" + std::to_string(i) + " " + p.frames[i].getString().getString());
}

TEST_F(SoErrorStackTest, AnErrorThatWasNotPostedHasNoFrames) {
  const SoErrorStack error;
  EXPECT_EQ(error.getNumFrames(), 0);
  EXPECT_EQ(SoErrorStack::getHandlerCallback(), &SoError::defaultHandlerCB);
}
