// The parts of the runtime that need no virtual machine: the debug trace and
// the derivation of Java class names from toolkit type names.

#include <gtest/gtest.h>

#include <string>

#include "MakeJavaObj.h"
#include "NativeDebug.h"

namespace {

std::string derive(const char* typeName) { return orvexjava::deriveJavaSimpleName(typeName).getString(); }

TEST(DebugTrace, SilentUntilTheFlagIsSetThenVerbatimAndFlushed) {
  EXPECT_EQ(getNativeDebugFlag(), 0);  // the load hook traced nothing
  testing::internal::CaptureStdout();
  PRINTDBG("----> hidden\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");

  setNativeDebugFlag(1);
  testing::internal::CaptureStdout();
  PRINTDBG("----> SoNodeKit init\n");
  PRINTDBG("no newline added %d");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "----> SoNodeKit init\nno newline added %d");
  setNativeDebugFlag(0);
}

TEST(JavaSimpleName, KeepsSoAndPoPrefixesAndAddsSoOtherwise) {
  EXPECT_EQ(derive("SoSeparator"), "SoSeparator");
  EXPECT_EQ(derive("PoMeshProperty"), "PoMeshProperty");
  EXPECT_EQ(derive("Separator"), "SoSeparator");
  EXPECT_EQ(derive("SFFloat"), "SoSFFloat");
  // Only a leading "So"/"Po" counts.
  EXPECT_EQ(derive("MySoNode"), "SoMySoNode");
}

TEST(JavaSimpleName, CutsSizedIntegerNames) {
  EXPECT_EQ(derive("SoSFInt32"), "SoSFInt");
  EXPECT_EQ(derive("MFInt32"), "SoMFInt");
  EXPECT_EQ(derive("SoSFVec2i32"), "SoSFVec2i");
  EXPECT_EQ(derive("SFVec3i32"), "SoSFVec3i");
  // Cut, not replaced: whatever follows the first occurrence is dropped.
  EXPECT_EQ(derive("SoInt32Thing"), "SoInt");
}

TEST(JavaSimpleName, UnsignedFieldsMapToSignedClasses) {
  EXPECT_EQ(derive("SoSFUInt32"), "SoSFInt");
  EXPECT_EQ(derive("SFUInt32"), "SoSFInt");
  EXPECT_EQ(derive("SoSFUShort"), "SoSFShort");
  EXPECT_EQ(derive("MFUShort"), "SoMFShort");
  EXPECT_EQ(derive("SoMFUInt32"), "SoMFInt");
  // "U" followed by a lower-case letter is part of the name.
  EXPECT_EQ(derive("SoSFUnits"), "SoSFUnits");
  EXPECT_EQ(derive("SoSFU"), "SoSFU");
}

}  // namespace
