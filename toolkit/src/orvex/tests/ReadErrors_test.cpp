// Malformed scene files: every kind of bad input fails the read with a read
// error that names the file and line, never crashes, and leaves nothing that
// was read behind.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSubNode.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <unistd.h>

#include "ErrorCapture.h"
#include "TestSupport.h"

// A group that counts its live instances, to show that failed reads free
// everything they built. Outside the anonymous namespace: the class macros
// define members (type and field-data accessors) that this file never calls.
class Tracked : public SoGroup {
  SO_NODE_HEADER(Tracked);

 public:
  SoSFFloat value;
  static int live;
  Tracked() {
    SO_NODE_CONSTRUCTOR(Tracked);
    SO_NODE_ADD_FIELD(value, (0.0f));
    ++live;
  }

 protected:
  ~Tracked() override { --live; }
};
int Tracked::live = 0;
SO_NODE_SOURCE(Tracked)
void Tracked::initClass() { SO_NODE_INIT_CLASS(Tracked, SoGroup, "Group"); }

namespace {

class ReadErrorsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    Tracked::initClass();
  }
  void SetUp() override { Tracked::live = 0; }

  // Reads a buffer and expects failure with one error mentioning `what`
  // at `line`, and no Tracked node left.
  void expectFailure(const std::string& text, const std::string& what, int line) {
    ErrorCapture<SoReadError> errors;
    {
      SoInput in;
      in.setBuffer(const_cast<char*>(text.data()), text.size());
      SoSeparator* root = SoDB::readAll(&in);
      EXPECT_EQ(root, nullptr) << text;
      EXPECT_EQ(Tracked::live, 0) << "objects left referenced after: " << text;
    }
    ASSERT_GE(errors.count(), 1u) << text;
    const std::string message = errors.records().front().text;
    EXPECT_NE(message.find(what), std::string::npos) << message;
    EXPECT_NE(message.find("line " + std::to_string(line)), std::string::npos) << message;
    EXPECT_EQ(Tracked::live, 0);
  }
};

const char kHeader[] = "#Orvex V1.0 ascii\n";

}  // namespace

TEST_F(ReadErrorsTest, SyntaxErrors) {
  expectFailure(std::string(kHeader) + "Tracked { value 1 Tracked { value 2 }\n", "Premature end of file", 3);
  expectFailure(std::string(kHeader) + "Tracked value 1 }\n", "Expected '{'", 2);
  expectFailure(std::string(kHeader) + "Tracked { } }\n", "Expected a node type", 2);
  expectFailure(std::string(kHeader) + "Tracked {\n  USE nobody\n}\n", "Unknown reference \"nobody\"", 3);
  expectFailure(std::string(kHeader) + "DEF { }\n", "Expected a name after DEF", 2);
  expectFailure(std::string(kHeader) + "Tracked { [ }\n", "Expected a node type", 2);
}

TEST_F(ReadErrorsTest, UnknownFieldsAndTypes) {
  expectFailure(std::string(kHeader) + "Tracked {\n  Tracked { bogus 3 }\n}\n", "Unknown node type or field \"bogus\"", 3);
  expectFailure(std::string(kHeader) + "Separator {\n Cube { depth 1 colour 2 }\n}\n", "Unknown field \"colour\"", 3);
  expectFailure(std::string(kHeader) + "Tracked { Gizmo { } }\n", "Unknown node type \"Gizmo\"", 2);
  expectFailure(std::string(kHeader) + "Tracked { Gizmo { fields [ SFNothing x ] } }\n", "Unknown field type", 2);
}

TEST_F(ReadErrorsTest, BadValues) {
  expectFailure(std::string(kHeader) + "Tracked {\n value abc\n}\n", "Couldn't read value for field \"value\"", 3);
  expectFailure(std::string(kHeader) + "Separator { Cube { width } }\n", "Couldn't read value", 2);
  expectFailure(std::string(kHeader) + "Separator { Coordinate3 { point [ 1 2 3, 4 5 ] } }\n", "Couldn't read value", 2);
  expectFailure(std::string(kHeader) + "Separator { Cone { parts ( SIDES | TOP ) } }\n", "Unknown enumeration value \"TOP\"",
                2);
  expectFailure(std::string(kHeader) + "Separator { Material { shininess [ 1, 2\n", "Couldn't read value", 3);
  expectFailure(std::string(kHeader) + "Separator { Switch { whichChild 99999999999 } }\n",
                "Number 99999999999 is out of range", 2);
  expectFailure(std::string(kHeader) + "Separator { Info { string \"unterminated } }\n", "Couldn't read value", 3);
  expectFailure(std::string(kHeader) + "Tracked { Path { Group {} 1 0 } }\n", "where a Node is expected", 2);
}

TEST_F(ReadErrorsTest, TruncatedFilesAtEveryPosition) {
  const std::string full = std::string(kHeader) +
                           "DEF a Tracked {\n  value 1.5\n  DEF b Tracked { value 2 }\n  Separator { Cube { width 2 } USE b }\n}\nUSE a\n";
  // The complete file reads.
  {
    SoInput in;
    in.setBuffer(const_cast<char*>(full.data()), full.size());
    orvextest::Ref<SoSeparator> root(SoDB::readAll(&in));
    ASSERT_TRUE(root);
  }
  EXPECT_EQ(Tracked::live, 0);
  ErrorCapture<SoReadError> errors;
  for (size_t cut = std::strlen(kHeader) + 1; cut < full.size() - 1; ++cut) {
    const std::string part = full.substr(0, cut);
    {
      SoInput in;
      in.setBuffer(const_cast<char*>(part.data()), part.size());
      SoSeparator* root = SoDB::readAll(&in);
      if (!root) {
        // A failed read has freed everything at once.
        EXPECT_EQ(Tracked::live, 0) << "cut at " << cut;
      } else {
        // A cut between top-level objects is a complete (shorter) file; the
        // input holds the objects it named until it is closed.
        root->ref();
        root->unref();
      }
    }
    EXPECT_EQ(Tracked::live, 0) << "cut at " << cut;
  }
  EXPECT_GT(errors.count(), 10u);
}

TEST_F(ReadErrorsTest, BinaryGarbage) {
  std::mt19937 random(12345);
  ErrorCapture<SoReadError> errors;
  for (int round = 0; round < 300; ++round) {
    std::string data = round % 2 ? "#Orvex V1.0 binary\n" : "#Orvex V1.0 ascii\n";
    const size_t n = random() % 200;
    for (size_t i = 0; i < n; ++i) data += static_cast<char>(random() & 0xFF);
    SoInput in;
    in.setBuffer(data.data(), data.size());
    SoSeparator* root = SoDB::readAll(&in);
    if (root) {
      root->ref();
      root->unref();
    }
  }
  EXPECT_GT(errors.count(), 100u);
  // Binary files built to lie about their counts.
  std::string lying = "#Orvex V1.0 binary\n";
  auto word = [&](uint32_t w) { lying.append(reinterpret_cast<const char*>(&w), 4); };
  auto str = [&](const std::string& s) {
    word(static_cast<uint32_t>(s.size()));
    lying += s;
    lying.append((4 - s.size() % 4) % 4, '\0');
  };
  str("Tracked");
  word(0);           // flags
  word(1);           // one field
  str("value");
  word(0x40000000);  // 2.0f
  word(0x7FFFFFFF);  // children: far more than the file holds
  SoInput in;
  in.setBuffer(lying.data(), lying.size());
  EXPECT_EQ(SoDB::readAll(&in), nullptr);
  EXPECT_EQ(Tracked::live, 0);

  // Names that the ASCII form could not hold (here a control character in
  // a type name) are refused, so whatever reads can be written and read again.
  lying = "#Orvex V1.0 binary\n";
  str(std::string("Trac\x08ked"));
  word(1);  // field descriptions follow
  word(0);
  word(0);
  word(0);
  SoInput badName;
  badName.setBuffer(lying.data(), lying.size());
  EXPECT_EQ(SoDB::readAll(&badName), nullptr);
  EXPECT_NE(errors.last().find("Expected a node type"), std::string::npos) << errors.last();
  // A data type that is none of the enumeration's values.
  lying = "#Orvex V1.0 binary\n";
  str("Gadget");
  word(1);
  word(1);  // one field description
  str("SFArray");
  str("data");
  word(1);  // one field
  str("data");
  word(12345);  // no such data type
  word(1);
  word(1);
  word(1);
  SoInput badType;
  badType.setBuffer(lying.data(), lying.size());
  EXPECT_EQ(SoDB::readAll(&badType), nullptr);
  EXPECT_NE(errors.last().find("Couldn't read value for field \"data\""), std::string::npos) << errors.last();
}

TEST_F(ReadErrorsTest, FilesNameTheirPathAndLine) {
  char dirPattern[] = "/tmp/orvex-readerrors-XXXXXX";
  const std::string dir = mkdtemp(dirPattern);
  const std::string file = dir + "/broken.ovx";
  {
    std::ofstream f(file);
    f << kHeader << "Separator {\n  Cube {\n    width two\n  }\n}\n";
  }
  ErrorCapture<SoReadError> errors;
  SoInput in;
  ASSERT_TRUE(in.openFile(file.c_str()));
  EXPECT_EQ(SoDB::readAll(&in), nullptr);
  ASSERT_GE(errors.count(), 1u);
  EXPECT_NE(errors.records().front().text.find("line 4 in " + file), std::string::npos) << errors.records().front().text;

  // A file without a header is not a scene file.
  {
    std::ofstream f(file);
    f << "Separator { }\n";
  }
  SoInput noHeader;
  EXPECT_FALSE(noHeader.openFile(file.c_str()));
  EXPECT_FALSE(noHeader.isValidFile());
  EXPECT_EQ(SoDB::readAll(&noHeader), nullptr);
  EXPECT_NE(errors.last().find("no header"), std::string::npos) << errors.last();
  {
    std::ofstream f(file);
    f << "#Orvex V7.0 ascii\nSeparator { }\n";
  }
  SoInput badHeader;
  EXPECT_FALSE(badHeader.openFile(file.c_str()));
  EXPECT_NE(errors.last().find("unknown header"), std::string::npos);
  // A damaged compressed file.
  {
    std::ofstream f(file, std::ios::binary);
    f << "\x1f\x8b\x08\x00garbage";
  }
  SoInput damaged;
  EXPECT_FALSE(damaged.openFile(file.c_str()));
  EXPECT_NE(errors.last().find("decompress"), std::string::npos);
  std::system(("rm -rf " + dir).c_str());
}

TEST_F(ReadErrorsTest, AnObjectCannotContainItself) {
  expectFailure(std::string(kHeader) + "DEF loop Tracked {\n  Separator { USE loop }\n}\n",
                "\"loop\" is used inside its own definition", 3);
}

TEST_F(ReadErrorsTest, DeepNestingIsRefused) {
  std::string text = kHeader;
  const int depth = SoInput::kMaxNesting + 10;
  for (int i = 0; i < depth; ++i) text += "Tracked { ";
  for (int i = 0; i < depth; ++i) text += "} ";
  ErrorCapture<SoReadError> errors;
  SoInput in;
  in.setBuffer(text.data(), text.size());
  EXPECT_EQ(SoDB::readAll(&in), nullptr);
  EXPECT_NE(errors.last().find("nested too deeply"), std::string::npos) << errors.last();
  EXPECT_EQ(Tracked::live, 0);
}

TEST_F(ReadErrorsTest, AFailedReadKeepsEarlierObjectsOfTheSameInput) {
  // One top-level object read successfully stays usable after a later one
  // fails; the names the failed one defined are gone.
  const std::string text = std::string(kHeader) + "DEF good Tracked { value 1 }\nDEF bad Tracked { value x }\n";
  ErrorCapture<SoReadError> errors;
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  SoNode* node = nullptr;
  ASSERT_TRUE(SoDB::read(&in, node));
  orvextest::Ref<SoNode> good(node);
  EXPECT_FALSE(SoDB::read(&in, node));
  EXPECT_EQ(in.findReference("bad"), nullptr);
  EXPECT_EQ(in.findReference("good"), good.get());
  EXPECT_EQ(Tracked::live, 1);
  EXPECT_EQ(SoNode::getByName("bad"), nullptr);
}
