// The text of ASCII scene files: numbers beyond the range of their type,
// header lines and names too long to echo, and the three line endings (LF,
// CR LF, a lone CR) in the line numbers of read errors.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/fields/SoSFDouble.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/fields/SoSFShort.h>
#include <Orvex/fields/SoSFUInt32.h>
#include <Orvex/fields/SoSFUShort.h>
#include <Orvex/nodes/SoSubNode.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "ErrorCapture.h"
#include "TestSupport.h"

// A node with a field of each number type.
class NumberProbe : public SoNode {
  SO_NODE_HEADER(NumberProbe);

 public:
  SoSFFloat f;
  SoSFDouble d;
  SoSFShort s;
  SoSFUShort us;
  SoSFInt32 i;
  SoSFUInt32 u;
  SoMFFloat mf;
  SoMFInt32 mi;
  NumberProbe() {
    SO_NODE_CONSTRUCTOR(NumberProbe);
    SO_NODE_ADD_FIELD(f, (0.0f));
    SO_NODE_ADD_FIELD(d, (0.0));
    SO_NODE_ADD_FIELD(s, (0));
    SO_NODE_ADD_FIELD(us, (0));
    SO_NODE_ADD_FIELD(i, (0));
    SO_NODE_ADD_FIELD(u, (0));
    SO_NODE_ADD_FIELD(mf, (0.0f));
    SO_NODE_ADD_FIELD(mi, (0));
  }
};
SO_NODE_SOURCE(NumberProbe)
void NumberProbe::initClass() { SO_NODE_INIT_CLASS(NumberProbe, SoNode, "Node"); }

namespace {

const char kHeader[] = "#Orvex V1.0 ascii\n";

class ReadTextTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    NumberProbe::initClass();
  }

  // Reads a buffer that must fail; answers the first error posted.
  static std::string firstError(const std::string& text) {
    ErrorCapture<SoReadError> errors;
    SoInput in;
    in.setBuffer(const_cast<char*>(text.data()), text.size());
    SoSeparator* root = SoDB::readAll(&in);
    EXPECT_EQ(root, nullptr) << text.substr(0, 200);
    if (root) {
      root->ref();
      root->unref();
    }
    return errors.count() ? errors.records().front().text : std::string();
  }

  // Reads the body of one NumberProbe (on the second line) and answers it.
  static orvextest::Ref<NumberProbe> readProbe(const std::string& body) {
    ErrorCapture<SoReadError> errors;
    const std::string text = std::string(kHeader) + "NumberProbe { " + body + " }\n";
    orvextest::Ref<SoSeparator> root(orvextest::readFromString(text));
    EXPECT_TRUE(root) << body << ": " << errors.last();
    EXPECT_EQ(errors.count(), 0u) << errors.last();
    if (!root || root->getNumChildren() != 1) return orvextest::Ref<NumberProbe>();
    return orvextest::Ref<NumberProbe>(static_cast<NumberProbe*>(root->getChild(0)));
  }

  // The body starts on line 4.
  static void expectOutOfRange(const std::string& body, const std::string& number, int line = 4) {
    const std::string message = firstError(std::string(kHeader) + "\nNumberProbe {\n  " + body + "\n}\n");
    EXPECT_NE(message.find("Number " + number + " is out of range"), std::string::npos) << body << ": " << message;
    EXPECT_NE(message.find("line " + std::to_string(line)), std::string::npos) << body << ": " << message;
  }
};

}  // namespace

TEST_F(ReadTextTest, FloatsBeyondTheirRangeAreReadErrors) {
  expectOutOfRange("f 1e999999", "1e999999");
  expectOutOfRange("f -1e999999", "-1e999999");
  expectOutOfRange("f 1e39", "1e39");  // a double, but no float
  expectOutOfRange("d 1e999", "1e999");
  expectOutOfRange("d 123456789e999999999999999999999", "123456789e999999999999999999999");
  // In lists, on the fast path of plain numbers as on the token path.
  expectOutOfRange("mf [ 1, 2, 3e40, 4 ]", "3e40");
  expectOutOfRange("mf [ 1, # a comment ends the fast path\r 2, 3e40 ]", "3e40", 5);
}

TEST_F(ReadTextTest, NumbersTooSmallForTheirTypeReadAsZero) {
  auto probe = readProbe("f 1e-999999 d -1e-999 mf [ 1e-60, 2 ]");
  ASSERT_TRUE(probe);
  EXPECT_EQ(probe->f.getValue(), 0.0f);
  EXPECT_EQ(probe->d.getValue(), 0.0);
  EXPECT_TRUE(std::signbit(probe->d.getValue()));
  ASSERT_EQ(probe->mf.getNum(), 2);
  EXPECT_EQ(probe->mf[0], 0.0f);
  // The extremes of the range still read.
  auto extremes = readProbe("f 3.4028234e38 d -1.7976931348623157e308 s -32768 us 65535 i 2147483647 u 4294967295");
  ASSERT_TRUE(extremes);
  EXPECT_EQ(extremes->f.getValue(), std::numeric_limits<float>::max());
  EXPECT_EQ(extremes->d.getValue(), std::numeric_limits<double>::lowest());
  EXPECT_EQ(extremes->s.getValue(), -32768);
  EXPECT_EQ(extremes->us.getValue(), 65535);
  EXPECT_EQ(extremes->i.getValue(), 2147483647);
  EXPECT_EQ(extremes->u.getValue(), 4294967295u);
}

TEST_F(ReadTextTest, IntegersBeyondTheirFieldTypeAreReadErrors) {
  expectOutOfRange("s 32768", "32768");
  expectOutOfRange("s -40000", "-40000");
  expectOutOfRange("us 65536", "65536");
  expectOutOfRange("i 2147483648", "2147483648");
  expectOutOfRange("u 4294967296", "4294967296");
  expectOutOfRange("i 0x100000000", "4294967296");
  expectOutOfRange("i 99999999999999999999999", "99999999999999999999999");
  expectOutOfRange("mi [ 1, 2, 3000000000 ]", "3000000000");
}

TEST_F(ReadTextTest, AHugeNumberIsCutInTheMessage) {
  const std::string digits(1000000, '7');
  const std::string message = firstError(std::string(kHeader) + "NumberProbe { i " + digits + " }\n");
  EXPECT_NE(message.find("out of range"), std::string::npos);
  EXPECT_NE(message.find("[cut from 1000000 bytes]"), std::string::npos) << message.substr(0, 300);
  EXPECT_LT(message.size(), 400u);
}

TEST_F(ReadTextTest, AHugeHeaderLineIsCutInTheMessage) {
  // 50 MB on the header line: refused, and the message shows a prefix.
  const std::string line = "#Orvex V1.0 " + std::string(50 * 1000 * 1000, 'A');
  const std::string message = firstError(line + "\nSeparator { }\n");
  EXPECT_NE(message.find("unknown header \"#Orvex V1.0 AAAA"), std::string::npos) << message.substr(0, 300);
  EXPECT_NE(message.find("[cut from " + std::to_string(line.size()) + " bytes]"), std::string::npos)
      << message.substr(0, 300);
  EXPECT_LT(message.size(), 400u);
  // A short unknown header is shown whole, control characters masked.
  const std::string shortOne = firstError("#Orvex V9.9 \x1b[2Jascii\nSeparator { }\n");
  EXPECT_NE(shortOne.find("unknown header \"#Orvex V9.9 ?[2Jascii\""), std::string::npos) << shortOne;
}

TEST_F(ReadTextTest, AHugeNameIsCutInTheMessage) {
  const std::string name(5 * 1000 * 1000, 'Q');
  const std::string message = firstError(std::string(kHeader) + name + " { }\n");
  EXPECT_NE(message.find("Unknown node type \"QQQQ"), std::string::npos) << message.substr(0, 300);
  EXPECT_NE(message.find("[cut from 5000000 bytes]"), std::string::npos) << message.substr(0, 300);
  EXPECT_LT(message.size(), 400u);
}

TEST_F(ReadTextTest, LineNumbersCountEveryLineEnding) {
  // The same scene with a bad value on its fifth line, with each line ending.
  const std::string lines[] = {"#Orvex V1.0 ascii", "# a comment", "Separator {", "  Cube {", "    width two",
                               "  }", "}"};
  for (const std::string eol : {"\n", "\r\n", "\r"}) {
    std::string text;
    for (const std::string& line : lines) text += line + eol;
    const std::string message = firstError(text);
    EXPECT_NE(message.find("Couldn't read value for field \"width\""), std::string::npos) << message;
    EXPECT_NE(message.find("line 5"), std::string::npos) << "line ending " << int(eol.back()) << ": " << message;
  }
  // Mixed endings, blank lines, a comment ended by a lone CR, and a list
  // read on the fast path across lines.
  const std::string mixed = std::string("#Orvex V1.0 ascii\r") +     // 1
                            "\r\n" +                                // 2
                            "Separator { # comment\r" +             // 3
                            "  Coordinate3 { point [ 1 2 3,\r" +     // 4
                            "    4 5 6,\r\n" +                       // 5
                            "    7 8 9 ] }\n" +                      // 6
                            "\r" +                                  // 7
                            "  Cube { width two }\r" +               // 8
                            "}\r";
  const std::string message = firstError(mixed);
  EXPECT_NE(message.find("line 8"), std::string::npos) << message;
}

TEST_F(ReadTextTest, CarriageReturnLinesReadWhole) {
  // A comment must end at a lone CR, not swallow the rest of the file.
  const std::string text = "#Orvex V1.0 ascii\r# comment\rNumberProbe { f 2.5 }\r# another\rNumberProbe { i 7 }\r";
  orvextest::Ref<SoSeparator> root(orvextest::readFromString(text));
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 2);
  EXPECT_EQ(static_cast<NumberProbe*>(root->getChild(0))->f.getValue(), 2.5f);
  EXPECT_EQ(static_cast<NumberProbe*>(root->getChild(1))->i.getValue(), 7);
  // The line count at the end of a CR-only input.
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  orvextest::Ref<SoSeparator> again(SoDB::readAll(&in));
  ASSERT_TRUE(again);
  EXPECT_EQ(in.getLineNumber(), 6);
}
