#pragma once
// Test helper: a node with one field of every field type, filled with
// values that differ from the defaults, for round trips through files.

#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFDouble.h>
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/fields/SoSFUInt32.h>
#include <Orvex/fields/SoSFShort.h>
#include <Orvex/fields/SoSFUShort.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/fields/SoSFName.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/fields/SoSFPlane.h>
#include <Orvex/fields/SoSFMatrix.h>
#include <Orvex/fields/SoSFMatrixd.h>
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/fields/SoSFRotationd.h>
#include <Orvex/fields/SoSFColor.h>
#include <Orvex/fields/SoSFColorRGBA.h>
#include <Orvex/fields/SoSFVec2f.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/fields/SoSFVec4f.h>
#include <Orvex/fields/SoSFVec2d.h>
#include <Orvex/fields/SoSFVec3d.h>
#include <Orvex/fields/SoSFVec4d.h>
#include <Orvex/fields/SoSFVec2i32.h>
#include <Orvex/fields/SoSFVec3i32.h>
#include <Orvex/fields/SoSFVec4i32.h>
#include <Orvex/fields/SoSFVec2s.h>
#include <Orvex/fields/SoSFVec3s.h>
#include <Orvex/fields/SoSFBox2f.h>
#include <Orvex/fields/SoSFBox2d.h>
#include <Orvex/fields/SoSFBox2i32.h>
#include <Orvex/fields/SoSFBox2s.h>
#include <Orvex/fields/SoSFBox3f.h>
#include <Orvex/fields/SoSFBox3d.h>
#include <Orvex/fields/SoSFBox3i32.h>
#include <Orvex/fields/SoSFBox3s.h>
#include <Orvex/fields/SoMFBool.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFDouble.h>
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/fields/SoMFUInt32.h>
#include <Orvex/fields/SoMFShort.h>
#include <Orvex/fields/SoMFUShort.h>
#include <Orvex/fields/SoMFInt64.h>
#include <Orvex/fields/SoMFUInt64.h>
#include <Orvex/fields/SoMFByte.h>
#include <Orvex/fields/SoMFUByte.h>
#include <Orvex/fields/SoMFString.h>
#include <Orvex/fields/SoMFName.h>
#include <Orvex/fields/SoMFTime.h>
#include <Orvex/fields/SoMFPlane.h>
#include <Orvex/fields/SoMFMatrix.h>
#include <Orvex/fields/SoMFMatrixd.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFRotationd.h>
#include <Orvex/fields/SoMFColor.h>
#include <Orvex/fields/SoMFColorRGBA.h>
#include <Orvex/fields/SoMFVec2f.h>
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/fields/SoMFVec4f.h>
#include <Orvex/fields/SoMFVec2d.h>
#include <Orvex/fields/SoMFVec3d.h>
#include <Orvex/fields/SoMFVec4d.h>
#include <Orvex/fields/SoMFVec2i32.h>
#include <Orvex/fields/SoMFVec3i32.h>
#include <Orvex/fields/SoMFVec4i32.h>
#include <Orvex/fields/SoMFVec2s.h>
#include <Orvex/fields/SoMFVec3s.h>
#include <Orvex/fields/SoMFVec4s.h>
#include <Orvex/fields/SoMFVec4b.h>
#include <Orvex/fields/SoMFVec4ub.h>
#include <Orvex/fields/SoMFVec4ui32.h>
#include <Orvex/fields/SoMFVec4us.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoMFEnum.h>
#include <Orvex/fields/SoMFBitMask.h>
#include <Orvex/fields/SoSFNode.h>
#include <Orvex/fields/SoMFNode.h>
#include <Orvex/fields/SoSFPath.h>
#include <Orvex/fields/SoMFPath.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/fields/SoSFImage3.h>
#include <Orvex/fields/SoSFArray.h>
#include <Orvex/fields/SoSFArray2D.h>
#include <Orvex/fields/SoSFArray3D.h>
#include <Orvex/fields/SoSFTrigger.h>
#include <Orvex/fields/SoSFFilePathString.h>
#include <Orvex/fields/SoMFFilePathString.h>
#include <Orvex/fields/SoSFFieldContainer.h>
#include <Orvex/fields/SoMFFieldContainer.h>
#include <Orvex/nodes/SoSubNode.h>

#include <functional>
#include <vector>

class TestAllFields : public SoNode {
  SO_NODE_HEADER(TestAllFields);

 public:
  enum Mode { ALPHA, BETA, GAMMA };
  enum Flags { ONE = 1, TWO = 2, FOUR = 4 };

  SoSFBool fSFBool;
  SoSFFloat fSFFloat;
  SoSFDouble fSFDouble;
  SoSFInt32 fSFInt32;
  SoSFUInt32 fSFUInt32;
  SoSFShort fSFShort;
  SoSFUShort fSFUShort;
  SoSFString fSFString;
  SoSFName fSFName;
  SoSFTime fSFTime;
  SoSFPlane fSFPlane;
  SoSFMatrix fSFMatrix;
  SoSFMatrixd fSFMatrixd;
  SoSFRotation fSFRotation;
  SoSFRotationd fSFRotationd;
  SoSFColor fSFColor;
  SoSFColorRGBA fSFColorRGBA;
  SoSFVec2f fSFVec2f;
  SoSFVec3f fSFVec3f;
  SoSFVec4f fSFVec4f;
  SoSFVec2d fSFVec2d;
  SoSFVec3d fSFVec3d;
  SoSFVec4d fSFVec4d;
  SoSFVec2i32 fSFVec2i32;
  SoSFVec3i32 fSFVec3i32;
  SoSFVec4i32 fSFVec4i32;
  SoSFVec2s fSFVec2s;
  SoSFVec3s fSFVec3s;
  SoSFBox2f fSFBox2f;
  SoSFBox2d fSFBox2d;
  SoSFBox2i32 fSFBox2i32;
  SoSFBox2s fSFBox2s;
  SoSFBox3f fSFBox3f;
  SoSFBox3d fSFBox3d;
  SoSFBox3i32 fSFBox3i32;
  SoSFBox3s fSFBox3s;
  SoMFBool fMFBool;
  SoMFFloat fMFFloat;
  SoMFDouble fMFDouble;
  SoMFInt32 fMFInt32;
  SoMFUInt32 fMFUInt32;
  SoMFShort fMFShort;
  SoMFUShort fMFUShort;
  SoMFInt64 fMFInt64;
  SoMFUInt64 fMFUInt64;
  SoMFByte fMFByte;
  SoMFUByte fMFUByte;
  SoMFString fMFString;
  SoMFName fMFName;
  SoMFTime fMFTime;
  SoMFPlane fMFPlane;
  SoMFMatrix fMFMatrix;
  SoMFMatrixd fMFMatrixd;
  SoMFRotation fMFRotation;
  SoMFRotationd fMFRotationd;
  SoMFColor fMFColor;
  SoMFColorRGBA fMFColorRGBA;
  SoMFVec2f fMFVec2f;
  SoMFVec3f fMFVec3f;
  SoMFVec4f fMFVec4f;
  SoMFVec2d fMFVec2d;
  SoMFVec3d fMFVec3d;
  SoMFVec4d fMFVec4d;
  SoMFVec2i32 fMFVec2i32;
  SoMFVec3i32 fMFVec3i32;
  SoMFVec4i32 fMFVec4i32;
  SoMFVec2s fMFVec2s;
  SoMFVec3s fMFVec3s;
  SoMFVec4s fMFVec4s;
  SoMFVec4b fMFVec4b;
  SoMFVec4ub fMFVec4ub;
  SoMFVec4ui32 fMFVec4ui32;
  SoMFVec4us fMFVec4us;
  SoSFEnum fSFEnum;
  SoSFBitMask fSFBitMask;
  SoMFEnum fMFEnum;
  SoMFBitMask fMFBitMask;
  SoSFNode fSFNode;
  SoMFNode fMFNode;
  SoSFPath fSFPath;
  SoMFPath fMFPath;
  SoSFImage fSFImage;
  SoSFImage3 fSFImage3;
  SoSFArray fSFArray;
  SoSFArray2D fSFArray2D;
  SoSFArray3D fSFArray3D;
  SoSFTrigger fSFTrigger;
  SoSFFilePathString fSFFilePathString;
  SoMFFilePathString fMFFilePathString;
  SoSFFieldContainer fSFFieldContainer;
  SoMFFieldContainer fMFFieldContainer;

  TestAllFields() {
    SO_NODE_CONSTRUCTOR(TestAllFields);
    SO_NODE_DEFINE_ENUM_VALUE(Mode, ALPHA);
    SO_NODE_DEFINE_ENUM_VALUE(Mode, BETA);
    SO_NODE_DEFINE_ENUM_VALUE(Mode, GAMMA);
    SO_NODE_DEFINE_ENUM_VALUE(Flags, ONE);
    SO_NODE_DEFINE_ENUM_VALUE(Flags, TWO);
    SO_NODE_DEFINE_ENUM_VALUE(Flags, FOUR);
    orvexAddDefault(fSFBool, "fSFBool", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFFloat, "fSFFloat", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFDouble, "fSFDouble", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFInt32, "fSFInt32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFUInt32, "fSFUInt32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFShort, "fSFShort", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFUShort, "fSFUShort", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFString, "fSFString", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFName, "fSFName", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFTime, "fSFTime", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFPlane, "fSFPlane", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFMatrix, "fSFMatrix", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFMatrixd, "fSFMatrixd", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFRotation, "fSFRotation", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFRotationd, "fSFRotationd", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFColor, "fSFColor", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFColorRGBA, "fSFColorRGBA", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec2f, "fSFVec2f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec3f, "fSFVec3f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec4f, "fSFVec4f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec2d, "fSFVec2d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec3d, "fSFVec3d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec4d, "fSFVec4d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec2i32, "fSFVec2i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec3i32, "fSFVec3i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec4i32, "fSFVec4i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec2s, "fSFVec2s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFVec3s, "fSFVec3s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox2f, "fSFBox2f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox2d, "fSFBox2d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox2i32, "fSFBox2i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox2s, "fSFBox2s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox3f, "fSFBox3f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox3d, "fSFBox3d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox3i32, "fSFBox3i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBox3s, "fSFBox3s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFBool, "fMFBool", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFFloat, "fMFFloat", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFDouble, "fMFDouble", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFInt32, "fMFInt32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFUInt32, "fMFUInt32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFShort, "fMFShort", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFUShort, "fMFUShort", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFInt64, "fMFInt64", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFUInt64, "fMFUInt64", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFByte, "fMFByte", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFUByte, "fMFUByte", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFString, "fMFString", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFName, "fMFName", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFTime, "fMFTime", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFPlane, "fMFPlane", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFMatrix, "fMFMatrix", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFMatrixd, "fMFMatrixd", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFRotation, "fMFRotation", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFRotationd, "fMFRotationd", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFColor, "fMFColor", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFColorRGBA, "fMFColorRGBA", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec2f, "fMFVec2f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec3f, "fMFVec3f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4f, "fMFVec4f", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec2d, "fMFVec2d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec3d, "fMFVec3d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4d, "fMFVec4d", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec2i32, "fMFVec2i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec3i32, "fMFVec3i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4i32, "fMFVec4i32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec2s, "fMFVec2s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec3s, "fMFVec3s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4s, "fMFVec4s", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4b, "fMFVec4b", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4ub, "fMFVec4ub", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4ui32, "fMFVec4ui32", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFVec4us, "fMFVec4us", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFEnum, "fSFEnum", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFBitMask, "fSFBitMask", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFEnum, "fMFEnum", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFBitMask, "fMFBitMask", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFNode, "fSFNode", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFNode, "fMFNode", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFPath, "fSFPath", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFPath, "fMFPath", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFImage, "fSFImage", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFImage3, "fSFImage3", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFArray, "fSFArray", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFArray2D, "fSFArray2D", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFArray3D, "fSFArray3D", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFTrigger, "fSFTrigger", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFFilePathString, "fSFFilePathString", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFFilePathString, "fMFFilePathString", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fSFFieldContainer, "fSFFieldContainer", orvexFirstInstance_, orvexFieldData_);
    orvexAddDefault(fMFFieldContainer, "fMFFieldContainer", orvexFirstInstance_, orvexFieldData_);
    SO_NODE_SET_SF_ENUM_TYPE(fSFEnum, Mode);
    SO_NODE_SET_SF_ENUM_TYPE(fSFBitMask, Flags);
    SO_NODE_SET_MF_ENUM_TYPE(fMFEnum, Mode);
    SO_NODE_SET_MF_ENUM_TYPE(fMFBitMask, Flags);
  }

  // Gives every plain field a value other than its default.
  void fillPlainValues() {
    fSFBool.setValue(true);
    fSFFloat.setValue(1.5f);
    fSFDouble.setValue(2.25e-3);
    fSFInt32.setValue(-123456);
    fSFUInt32.setValue(4000000000u);
    fSFShort.setValue(static_cast<short>(-1234));
    fSFUShort.setValue(static_cast<unsigned short>(60000));
    fSFString.setValue(SbString("quote \" and \\ back\nline"));
    fSFName.setValue(SbName("a_name"));
    fSFTime.setValue(SbTime(12.5));
    fSFPlane.setValue(SbPlane(SbVec3f(0.0f, 1.0f, 0.0f), 2.5f));
    fSFMatrix.setValue(SbMatrix(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16.5f));
    fSFMatrixd.setValue(SbMatrixd(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16.25));
    fSFRotation.setValue(SbRotation(SbVec3f(0.0f, 1.0f, 0.0f), 0.5f));
    fSFRotationd.setValue(SbRotationd(SbVec3d(1.0, 0.0, 0.0), 1.25));
    fSFColor.setValue(SbColor(0.1f, 0.2f, 0.3f));
    fSFColorRGBA.setValue(SbColorRGBA(0.1f, 0.2f, 0.3f, 0.4f));
    fSFVec2f.setValue(1.5f, -2.0f);
    fSFVec3f.setValue(1.5f, -2.0f, 3.25f);
    fSFVec4f.setValue(1.5f, -2.0f, 3.25f, 1e-7f);
    fSFVec2d.setValue(1.5, -2.0);
    fSFVec3d.setValue(1.5, -2.0, 0.1);
    fSFVec4d.setValue(1.5, -2.0, 0.1, 1e300);
    fSFVec2i32.setValue(7, -8);
    fSFVec3i32.setValue(7, -8, 2147483647);
    fSFVec4i32.setValue(7, -8, 9, -2147483647);
    fSFVec2s.setValue(static_cast<short>(3), static_cast<short>(-4));
    fSFVec3s.setValue(static_cast<short>(3), static_cast<short>(-4), static_cast<short>(5));
    fSFBox2f.setValue(SbVec2f(0, 1), SbVec2f(2, 3));
    fSFBox2d.setValue(SbVec2d(0, 1), SbVec2d(2, 3.5));
    fSFBox2i32.setValue(SbVec2i32(0, 1), SbVec2i32(2, 3));
    fSFBox2s.setValue(SbVec2s(0, 1), SbVec2s(2, 3));
    fSFBox3f.setValue(SbVec3f(0, 1, 2), SbVec3f(3, 4, 5));
    fSFBox3d.setValue(SbVec3d(0, 1, 2), SbVec3d(3, 4, 5));
    fSFBox3i32.setValue(SbVec3i32(0, 1, 2), SbVec3i32(3, 4, 5));
    fSFBox3s.setValue(SbVec3s(0, 1, 2), SbVec3s(3, 4, 5));
    { const bool v[] = {static_cast<bool>(true), static_cast<bool>(false), static_cast<bool>(true)}; fMFBool.setValues(0, 3, v); }
    { const float v[] = {static_cast<float>(1.5f), static_cast<float>(-0.0f), static_cast<float>(3e-20f)}; fMFFloat.setValues(0, 3, v); }
    { const double v[] = {static_cast<double>(1.5), static_cast<double>(-2.0), static_cast<double>(1e-300)}; fMFDouble.setValues(0, 3, v); }
    { const int32_t v[] = {static_cast<int32_t>(1), static_cast<int32_t>(-2), static_cast<int32_t>(2147483647)}; fMFInt32.setValues(0, 3, v); }
    { const uint32_t v[] = {static_cast<uint32_t>(1u), static_cast<uint32_t>(2u), static_cast<uint32_t>(4294967295u)}; fMFUInt32.setValues(0, 3, v); }
    { const short v[] = {static_cast<short>(1), static_cast<short>(-2), static_cast<short>(32767)}; fMFShort.setValues(0, 3, v); }
    { const unsigned short v[] = {static_cast<unsigned short>(1), static_cast<unsigned short>(2), static_cast<unsigned short>(65535)}; fMFUShort.setValues(0, 3, v); }
    { const int64_t v[] = {static_cast<int64_t>(1), static_cast<int64_t>(-2), static_cast<int64_t>(INT64_C(-9223372036854775807))}; fMFInt64.setValues(0, 3, v); }
    { const uint64_t v[] = {static_cast<uint64_t>(1), static_cast<uint64_t>(2), static_cast<uint64_t>(UINT64_C(18446744073709551615))}; fMFUInt64.setValues(0, 3, v); }
    { const int8_t v[] = {static_cast<int8_t>(1), static_cast<int8_t>(-2), static_cast<int8_t>(127)}; fMFByte.setValues(0, 3, v); }
    { const uint8_t v[] = {static_cast<uint8_t>(1), static_cast<uint8_t>(2), static_cast<uint8_t>(255)}; fMFUByte.setValues(0, 3, v); }
    { const SbString v[] = {static_cast<SbString>(SbString("a")), static_cast<SbString>(SbString("two words")), static_cast<SbString>(SbString(""))}; fMFString.setValues(0, 3, v); }
    { const SbName v[] = {static_cast<SbName>(SbName("a")), static_cast<SbName>(SbName("b_c")), static_cast<SbName>(SbName("with space"))}; fMFName.setValues(0, 3, v); }
    { const SbTime v[] = {static_cast<SbTime>(SbTime(1.0)), static_cast<SbTime>(SbTime(2.5)), static_cast<SbTime>(SbTime(-3.0))}; fMFTime.setValues(0, 3, v); }
    { const SbPlane v[] = {static_cast<SbPlane>(SbPlane(SbVec3f(1, 0, 0), 1)), static_cast<SbPlane>(SbPlane(SbVec3f(0, 0, 1), -2)), static_cast<SbPlane>(SbPlane(SbVec3f(0, 1, 0), 0.5f))}; fMFPlane.setValues(0, 3, v); }
    { const SbMatrix v[] = {static_cast<SbMatrix>(SbMatrix::identity()), static_cast<SbMatrix>(SbMatrix(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16)), static_cast<SbMatrix>(SbMatrix::identity())}; fMFMatrix.setValues(0, 3, v); }
    { const SbMatrixd v[] = {static_cast<SbMatrixd>(SbMatrixd::identity()), static_cast<SbMatrixd>(SbMatrixd(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16)), static_cast<SbMatrixd>(SbMatrixd::identity())}; fMFMatrixd.setValues(0, 3, v); }
    { const SbRotation v[] = {static_cast<SbRotation>(SbRotation(SbVec3f(0, 0, 1), 0.5f)), static_cast<SbRotation>(SbRotation()), static_cast<SbRotation>(SbRotation(SbVec3f(1, 0, 0), 3.0f))}; fMFRotation.setValues(0, 3, v); }
    { const SbRotationd v[] = {static_cast<SbRotationd>(SbRotationd(SbVec3d(0, 0, 1), 0.5)), static_cast<SbRotationd>(SbRotationd()), static_cast<SbRotationd>(SbRotationd(SbVec3d(1, 0, 0), 3.0))}; fMFRotationd.setValues(0, 3, v); }
    { const SbColor v[] = {static_cast<SbColor>(SbColor(1, 0, 0)), static_cast<SbColor>(SbColor(0, 1, 0)), static_cast<SbColor>(SbColor(0.25f, 0.5f, 0.75f))}; fMFColor.setValues(0, 3, v); }
    { const SbColorRGBA v[] = {static_cast<SbColorRGBA>(SbColorRGBA(1, 0, 0, 1)), static_cast<SbColorRGBA>(SbColorRGBA(0, 1, 0, 0.5f)), static_cast<SbColorRGBA>(SbColorRGBA(0.25f, 0.5f, 0.75f, 0))}; fMFColorRGBA.setValues(0, 3, v); }
    { const SbVec2f v[] = {static_cast<SbVec2f>(SbVec2f(static_cast<float>(1), static_cast<float>(-2))), static_cast<SbVec2f>(SbVec2f(static_cast<float>(-2), static_cast<float>(4))), static_cast<SbVec2f>(SbVec2f(static_cast<float>(3), static_cast<float>(-6)))}; fMFVec2f.setValues(0, 3, v); }
    { const SbVec3f v[] = {static_cast<SbVec3f>(SbVec3f(static_cast<float>(1), static_cast<float>(-2), static_cast<float>(3))), static_cast<SbVec3f>(SbVec3f(static_cast<float>(-2), static_cast<float>(4), static_cast<float>(-6))), static_cast<SbVec3f>(SbVec3f(static_cast<float>(3), static_cast<float>(-6), static_cast<float>(9)))}; fMFVec3f.setValues(0, 3, v); }
    { const SbVec4f v[] = {static_cast<SbVec4f>(SbVec4f(static_cast<float>(1), static_cast<float>(-2), static_cast<float>(3), static_cast<float>(-4))), static_cast<SbVec4f>(SbVec4f(static_cast<float>(-2), static_cast<float>(4), static_cast<float>(-6), static_cast<float>(8))), static_cast<SbVec4f>(SbVec4f(static_cast<float>(3), static_cast<float>(-6), static_cast<float>(9), static_cast<float>(-12)))}; fMFVec4f.setValues(0, 3, v); }
    { const SbVec2d v[] = {static_cast<SbVec2d>(SbVec2d(static_cast<double>(1), static_cast<double>(-2))), static_cast<SbVec2d>(SbVec2d(static_cast<double>(-2), static_cast<double>(4))), static_cast<SbVec2d>(SbVec2d(static_cast<double>(3), static_cast<double>(-6)))}; fMFVec2d.setValues(0, 3, v); }
    { const SbVec3d v[] = {static_cast<SbVec3d>(SbVec3d(static_cast<double>(1), static_cast<double>(-2), static_cast<double>(3))), static_cast<SbVec3d>(SbVec3d(static_cast<double>(-2), static_cast<double>(4), static_cast<double>(-6))), static_cast<SbVec3d>(SbVec3d(static_cast<double>(3), static_cast<double>(-6), static_cast<double>(9)))}; fMFVec3d.setValues(0, 3, v); }
    { const SbVec4d v[] = {static_cast<SbVec4d>(SbVec4d(static_cast<double>(1), static_cast<double>(-2), static_cast<double>(3), static_cast<double>(-4))), static_cast<SbVec4d>(SbVec4d(static_cast<double>(-2), static_cast<double>(4), static_cast<double>(-6), static_cast<double>(8))), static_cast<SbVec4d>(SbVec4d(static_cast<double>(3), static_cast<double>(-6), static_cast<double>(9), static_cast<double>(-12)))}; fMFVec4d.setValues(0, 3, v); }
    { const SbVec2i32 v[] = {static_cast<SbVec2i32>(SbVec2i32(static_cast<int32_t>(1), static_cast<int32_t>(-2))), static_cast<SbVec2i32>(SbVec2i32(static_cast<int32_t>(-2), static_cast<int32_t>(4))), static_cast<SbVec2i32>(SbVec2i32(static_cast<int32_t>(3), static_cast<int32_t>(-6)))}; fMFVec2i32.setValues(0, 3, v); }
    { const SbVec3i32 v[] = {static_cast<SbVec3i32>(SbVec3i32(static_cast<int32_t>(1), static_cast<int32_t>(-2), static_cast<int32_t>(3))), static_cast<SbVec3i32>(SbVec3i32(static_cast<int32_t>(-2), static_cast<int32_t>(4), static_cast<int32_t>(-6))), static_cast<SbVec3i32>(SbVec3i32(static_cast<int32_t>(3), static_cast<int32_t>(-6), static_cast<int32_t>(9)))}; fMFVec3i32.setValues(0, 3, v); }
    { const SbVec4i32 v[] = {static_cast<SbVec4i32>(SbVec4i32(static_cast<int32_t>(1), static_cast<int32_t>(-2), static_cast<int32_t>(3), static_cast<int32_t>(-4))), static_cast<SbVec4i32>(SbVec4i32(static_cast<int32_t>(-2), static_cast<int32_t>(4), static_cast<int32_t>(-6), static_cast<int32_t>(8))), static_cast<SbVec4i32>(SbVec4i32(static_cast<int32_t>(3), static_cast<int32_t>(-6), static_cast<int32_t>(9), static_cast<int32_t>(-12)))}; fMFVec4i32.setValues(0, 3, v); }
    { const SbVec2s v[] = {static_cast<SbVec2s>(SbVec2s(static_cast<short>(1), static_cast<short>(-2))), static_cast<SbVec2s>(SbVec2s(static_cast<short>(-2), static_cast<short>(4))), static_cast<SbVec2s>(SbVec2s(static_cast<short>(3), static_cast<short>(-6)))}; fMFVec2s.setValues(0, 3, v); }
    { const SbVec3s v[] = {static_cast<SbVec3s>(SbVec3s(static_cast<short>(1), static_cast<short>(-2), static_cast<short>(3))), static_cast<SbVec3s>(SbVec3s(static_cast<short>(-2), static_cast<short>(4), static_cast<short>(-6))), static_cast<SbVec3s>(SbVec3s(static_cast<short>(3), static_cast<short>(-6), static_cast<short>(9)))}; fMFVec3s.setValues(0, 3, v); }
    { const SbVec4s v[] = {static_cast<SbVec4s>(SbVec4s(static_cast<short>(1), static_cast<short>(-2), static_cast<short>(3), static_cast<short>(-4))), static_cast<SbVec4s>(SbVec4s(static_cast<short>(-2), static_cast<short>(4), static_cast<short>(-6), static_cast<short>(8))), static_cast<SbVec4s>(SbVec4s(static_cast<short>(3), static_cast<short>(-6), static_cast<short>(9), static_cast<short>(-12)))}; fMFVec4s.setValues(0, 3, v); }
    { const SbVec4b v[] = {static_cast<SbVec4b>(SbVec4b(static_cast<int8_t>(1), static_cast<int8_t>(-2), static_cast<int8_t>(3), static_cast<int8_t>(-4))), static_cast<SbVec4b>(SbVec4b(static_cast<int8_t>(-2), static_cast<int8_t>(4), static_cast<int8_t>(-6), static_cast<int8_t>(8))), static_cast<SbVec4b>(SbVec4b(static_cast<int8_t>(3), static_cast<int8_t>(-6), static_cast<int8_t>(9), static_cast<int8_t>(-12)))}; fMFVec4b.setValues(0, 3, v); }
    { const SbVec4ub v[] = {static_cast<SbVec4ub>(SbVec4ub(static_cast<uint8_t>(1), static_cast<uint8_t>(2), static_cast<uint8_t>(3), static_cast<uint8_t>(4))), static_cast<SbVec4ub>(SbVec4ub(static_cast<uint8_t>(2), static_cast<uint8_t>(4), static_cast<uint8_t>(6), static_cast<uint8_t>(8))), static_cast<SbVec4ub>(SbVec4ub(static_cast<uint8_t>(3), static_cast<uint8_t>(6), static_cast<uint8_t>(9), static_cast<uint8_t>(12)))}; fMFVec4ub.setValues(0, 3, v); }
    { const SbVec4ui32 v[] = {static_cast<SbVec4ui32>(SbVec4ui32(static_cast<uint32_t>(1), static_cast<uint32_t>(2), static_cast<uint32_t>(3), static_cast<uint32_t>(4))), static_cast<SbVec4ui32>(SbVec4ui32(static_cast<uint32_t>(2), static_cast<uint32_t>(4), static_cast<uint32_t>(6), static_cast<uint32_t>(8))), static_cast<SbVec4ui32>(SbVec4ui32(static_cast<uint32_t>(3), static_cast<uint32_t>(6), static_cast<uint32_t>(9), static_cast<uint32_t>(12)))}; fMFVec4ui32.setValues(0, 3, v); }
    { const SbVec4us v[] = {static_cast<SbVec4us>(SbVec4us(static_cast<unsigned short>(1), static_cast<unsigned short>(2), static_cast<unsigned short>(3), static_cast<unsigned short>(4))), static_cast<SbVec4us>(SbVec4us(static_cast<unsigned short>(2), static_cast<unsigned short>(4), static_cast<unsigned short>(6), static_cast<unsigned short>(8))), static_cast<SbVec4us>(SbVec4us(static_cast<unsigned short>(3), static_cast<unsigned short>(6), static_cast<unsigned short>(9), static_cast<unsigned short>(12)))}; fMFVec4us.setValues(0, 3, v); }
    fSFEnum.setValue(GAMMA);
    fSFBitMask.setValue(ONE | FOUR);
    { const int v[] = {BETA, ALPHA, GAMMA}; fMFEnum.setValues(0, 3, v); }
    { const int v[] = {TWO, ONE | TWO | FOUR, 0}; fMFBitMask.setValues(0, 3, v); }
    fSFFilePathString.setValue(SbString("dir/file.ovx"));
    fMFFilePathString.setValue(SbString("a/b.ovx"));
    const unsigned char pixels[] = {1, 2, 3, 4, 250, 251, 252, 253, 0, 0, 0, 0, 9, 8, 7, 6};
    fSFImage.setValue(SbVec2s(2, 2), 4, pixels);
    fSFImage3.setValue(SbVec3s(2, 1, 2), 1, pixels);
    const float data[] = {0.5f, -1.0f, 2.0f, 1e10f};
    fSFArray2D.setValue(SbVec2i32(2, 2), SbDataType(SbDataType::FLOAT), data);
    const short sdata[] = {1, -2, 3};
    fSFArray.setValue(SbVec3i32(3, 1, 1), SbDataType(SbDataType::SIGNED_SHORT), sdata);
    fSFArray3D.setValue(SbVec3i32(1, 2, 2), SbDataType(SbDataType::FLOAT), data);
  }

  // Every field of the node with its name.
  std::vector<std::pair<const char*, SoField*>> plainFields() {
    return {
      {"fSFBool", &fSFBool},
      {"fSFFloat", &fSFFloat},
      {"fSFDouble", &fSFDouble},
      {"fSFInt32", &fSFInt32},
      {"fSFUInt32", &fSFUInt32},
      {"fSFShort", &fSFShort},
      {"fSFUShort", &fSFUShort},
      {"fSFString", &fSFString},
      {"fSFName", &fSFName},
      {"fSFTime", &fSFTime},
      {"fSFPlane", &fSFPlane},
      {"fSFMatrix", &fSFMatrix},
      {"fSFMatrixd", &fSFMatrixd},
      {"fSFRotation", &fSFRotation},
      {"fSFRotationd", &fSFRotationd},
      {"fSFColor", &fSFColor},
      {"fSFColorRGBA", &fSFColorRGBA},
      {"fSFVec2f", &fSFVec2f},
      {"fSFVec3f", &fSFVec3f},
      {"fSFVec4f", &fSFVec4f},
      {"fSFVec2d", &fSFVec2d},
      {"fSFVec3d", &fSFVec3d},
      {"fSFVec4d", &fSFVec4d},
      {"fSFVec2i32", &fSFVec2i32},
      {"fSFVec3i32", &fSFVec3i32},
      {"fSFVec4i32", &fSFVec4i32},
      {"fSFVec2s", &fSFVec2s},
      {"fSFVec3s", &fSFVec3s},
      {"fSFBox2f", &fSFBox2f},
      {"fSFBox2d", &fSFBox2d},
      {"fSFBox2i32", &fSFBox2i32},
      {"fSFBox2s", &fSFBox2s},
      {"fSFBox3f", &fSFBox3f},
      {"fSFBox3d", &fSFBox3d},
      {"fSFBox3i32", &fSFBox3i32},
      {"fSFBox3s", &fSFBox3s},
      {"fMFBool", &fMFBool},
      {"fMFFloat", &fMFFloat},
      {"fMFDouble", &fMFDouble},
      {"fMFInt32", &fMFInt32},
      {"fMFUInt32", &fMFUInt32},
      {"fMFShort", &fMFShort},
      {"fMFUShort", &fMFUShort},
      {"fMFInt64", &fMFInt64},
      {"fMFUInt64", &fMFUInt64},
      {"fMFByte", &fMFByte},
      {"fMFUByte", &fMFUByte},
      {"fMFString", &fMFString},
      {"fMFName", &fMFName},
      {"fMFTime", &fMFTime},
      {"fMFPlane", &fMFPlane},
      {"fMFMatrix", &fMFMatrix},
      {"fMFMatrixd", &fMFMatrixd},
      {"fMFRotation", &fMFRotation},
      {"fMFRotationd", &fMFRotationd},
      {"fMFColor", &fMFColor},
      {"fMFColorRGBA", &fMFColorRGBA},
      {"fMFVec2f", &fMFVec2f},
      {"fMFVec3f", &fMFVec3f},
      {"fMFVec4f", &fMFVec4f},
      {"fMFVec2d", &fMFVec2d},
      {"fMFVec3d", &fMFVec3d},
      {"fMFVec4d", &fMFVec4d},
      {"fMFVec2i32", &fMFVec2i32},
      {"fMFVec3i32", &fMFVec3i32},
      {"fMFVec4i32", &fMFVec4i32},
      {"fMFVec2s", &fMFVec2s},
      {"fMFVec3s", &fMFVec3s},
      {"fMFVec4s", &fMFVec4s},
      {"fMFVec4b", &fMFVec4b},
      {"fMFVec4ub", &fMFVec4ub},
      {"fMFVec4ui32", &fMFVec4ui32},
      {"fMFVec4us", &fMFVec4us},
      {"fSFEnum", &fSFEnum},
      {"fSFBitMask", &fSFBitMask},
      {"fMFEnum", &fMFEnum},
      {"fMFBitMask", &fMFBitMask},
      {"fSFImage", &fSFImage},
      {"fSFImage3", &fSFImage3},
      {"fSFArray", &fSFArray},
      {"fSFArray2D", &fSFArray2D},
      {"fSFArray3D", &fSFArray3D},
      {"fSFFilePathString", &fSFFilePathString},
      {"fMFFilePathString", &fMFFilePathString},
    };
  }

 protected:
  ~TestAllFields() override = default;

  template <class F>
  void orvexAddDefault(F& field, const char* name, bool first, SoFieldData* data) {
    if (first) data->addField(this, name, &field);
    field.setDefault(true);
    field.setContainer(this);
  }
};

// Include from one test source only: this defines the class members.
SO_NODE_SOURCE(TestAllFields)

void TestAllFields::initClass() { SO_NODE_INIT_CLASS(TestAllFields, SoNode, "Node"); }
