#include "FieldRegistry.h"

#include <Orvex/fields/SoMFBitMask.h>
#include <Orvex/fields/SoMFBool.h>
#include <Orvex/fields/SoMFByte.h>
#include <Orvex/fields/SoMFColor.h>
#include <Orvex/fields/SoMFColorRGBA.h>
#include <Orvex/fields/SoMFDouble.h>
#include <Orvex/fields/SoMFEngine.h>
#include <Orvex/fields/SoMFEnum.h>
#include <Orvex/fields/SoMFFieldContainer.h>
#include <Orvex/fields/SoMFFilePathString.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/fields/SoMFInt64.h>
#include <Orvex/fields/SoMFMatrix.h>
#include <Orvex/fields/SoMFMatrixd.h>
#include <Orvex/fields/SoMFName.h>
#include <Orvex/fields/SoMFNode.h>
#include <Orvex/fields/SoMFPath.h>
#include <Orvex/fields/SoMFPlane.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFRotationd.h>
#include <Orvex/fields/SoMFShort.h>
#include <Orvex/fields/SoMFString.h>
#include <Orvex/fields/SoMFTime.h>
#include <Orvex/fields/SoMFUByte.h>
#include <Orvex/fields/SoMFUInt32.h>
#include <Orvex/fields/SoMFUInt64.h>
#include <Orvex/fields/SoMFUShort.h>
#include <Orvex/fields/SoMFVec2d.h>
#include <Orvex/fields/SoMFVec2f.h>
#include <Orvex/fields/SoMFVec2i32.h>
#include <Orvex/fields/SoMFVec2s.h>
#include <Orvex/fields/SoMFVec3d.h>
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/fields/SoMFVec3i32.h>
#include <Orvex/fields/SoMFVec3s.h>
#include <Orvex/fields/SoMFVec4b.h>
#include <Orvex/fields/SoMFVec4d.h>
#include <Orvex/fields/SoMFVec4f.h>
#include <Orvex/fields/SoMFVec4i32.h>
#include <Orvex/fields/SoMFVec4s.h>
#include <Orvex/fields/SoMFVec4ub.h>
#include <Orvex/fields/SoMFVec4ui32.h>
#include <Orvex/fields/SoMFVec4us.h>
#include <Orvex/fields/SoSFArray.h>
#include <Orvex/fields/SoSFArray2D.h>
#include <Orvex/fields/SoSFArray3D.h>
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFBox2d.h>
#include <Orvex/fields/SoSFBox2f.h>
#include <Orvex/fields/SoSFBox2i32.h>
#include <Orvex/fields/SoSFBox2s.h>
#include <Orvex/fields/SoSFBox3d.h>
#include <Orvex/fields/SoSFBox3f.h>
#include <Orvex/fields/SoSFBox3i32.h>
#include <Orvex/fields/SoSFBox3s.h>
#include <Orvex/fields/SoSFColor.h>
#include <Orvex/fields/SoSFColorRGBA.h>
#include <Orvex/fields/SoSFDouble.h>
#include <Orvex/fields/SoSFEngine.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFieldContainer.h>
#include <Orvex/fields/SoSFFilePathString.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/fields/SoSFImage3.h>
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/fields/SoSFMatrix.h>
#include <Orvex/fields/SoSFMatrixd.h>
#include <Orvex/fields/SoSFName.h>
#include <Orvex/fields/SoSFNode.h>
#include <Orvex/fields/SoSFPath.h>
#include <Orvex/fields/SoSFPlane.h>
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/fields/SoSFRotationd.h>
#include <Orvex/fields/SoSFShort.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/fields/SoSFTrigger.h>
#include <Orvex/fields/SoSFUInt32.h>
#include <Orvex/fields/SoSFUShort.h>
#include <Orvex/fields/SoSFVec2d.h>
#include <Orvex/fields/SoSFVec2f.h>
#include <Orvex/fields/SoSFVec2i32.h>
#include <Orvex/fields/SoSFVec2s.h>
#include <Orvex/fields/SoSFVec3d.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/fields/SoSFVec3i32.h>
#include <Orvex/fields/SoSFVec3s.h>
#include <Orvex/fields/SoSFVec4d.h>
#include <Orvex/fields/SoSFVec4f.h>
#include <Orvex/fields/SoSFVec4i32.h>

namespace orvex {

void initFieldClasses() {
  // Parents first: derived field classes register under their parent type.
  SoSFBool::initClass();
  SoSFFloat::initClass();
  SoSFDouble::initClass();
  SoSFInt32::initClass();
  SoSFUInt32::initClass();
  SoSFShort::initClass();
  SoSFUShort::initClass();
  SoSFString::initClass();
  SoSFName::initClass();
  SoSFTime::initClass();
  SoSFPlane::initClass();
  SoSFMatrix::initClass();
  SoSFMatrixd::initClass();
  SoSFRotation::initClass();
  SoSFRotationd::initClass();
  SoSFColor::initClass();
  SoSFColorRGBA::initClass();
  SoSFVec2f::initClass();
  SoSFVec3f::initClass();
  SoSFVec4f::initClass();
  SoSFVec2d::initClass();
  SoSFVec3d::initClass();
  SoSFVec4d::initClass();
  SoSFVec2i32::initClass();
  SoSFVec3i32::initClass();
  SoSFVec4i32::initClass();
  SoSFVec2s::initClass();
  SoSFVec3s::initClass();
  SoSFBox2f::initClass();
  SoSFBox2d::initClass();
  SoSFBox2i32::initClass();
  SoSFBox2s::initClass();
  SoSFBox3f::initClass();
  SoSFBox3d::initClass();
  SoSFBox3i32::initClass();
  SoSFBox3s::initClass();
  SoMFBool::initClass();
  SoMFFloat::initClass();
  SoMFDouble::initClass();
  SoMFInt32::initClass();
  SoMFUInt32::initClass();
  SoMFShort::initClass();
  SoMFUShort::initClass();
  SoMFInt64::initClass();
  SoMFUInt64::initClass();
  SoMFByte::initClass();
  SoMFUByte::initClass();
  SoMFString::initClass();
  SoMFName::initClass();
  SoMFTime::initClass();
  SoMFPlane::initClass();
  SoMFMatrix::initClass();
  SoMFMatrixd::initClass();
  SoMFRotation::initClass();
  SoMFRotationd::initClass();
  SoMFColor::initClass();
  SoMFColorRGBA::initClass();
  SoMFVec2f::initClass();
  SoMFVec3f::initClass();
  SoMFVec4f::initClass();
  SoMFVec2d::initClass();
  SoMFVec3d::initClass();
  SoMFVec4d::initClass();
  SoMFVec2i32::initClass();
  SoMFVec3i32::initClass();
  SoMFVec4i32::initClass();
  SoMFVec2s::initClass();
  SoMFVec3s::initClass();
  SoMFVec4s::initClass();
  SoMFVec4b::initClass();
  SoMFVec4ub::initClass();
  SoMFVec4ui32::initClass();
  SoMFVec4us::initClass();
  SoSFEnum::initClass();
  SoSFBitMask::initClass();
  SoMFEnum::initClass();
  SoMFBitMask::initClass();
  SoSFTrigger::initClass();
  SoSFFilePathString::initClass();
  SoMFFilePathString::initClass();
  SoSFImage::initClass();
  SoSFImage3::initClass();
  SoSFArray::initClass();
  SoSFArray2D::initClass();
  SoSFArray3D::initClass();
  SoSFNode::initClass();
  SoSFPath::initClass();
  SoSFFieldContainer::initClass();
  SoMFNode::initClass();
  SoMFPath::initClass();
  SoMFFieldContainer::initClass();
  SoSFEngine::initClass();
  SoMFEngine::initClass();
}

}  // namespace orvex
