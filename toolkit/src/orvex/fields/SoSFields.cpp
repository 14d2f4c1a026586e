// The single-value fields of plain values.

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

#include "FieldSource.h"
#include "VectorFieldSource.h"

// A single-value field of boxes, also set and read as its two corners.
#define SO_SFBOX_SOURCE(className, typeName, boxType, cornerType)        \
  SO_SFIELD_SOURCE(className, typeName, boxType, const boxType&)         \
  void className::setValue(const cornerType& min, const cornerType& max) { \
    boxType box;                                                         \
    box.setBounds(min, max);                                             \
    setValue(box);                                                       \
  }                                                                      \
  void className::getValue(cornerType& min, cornerType& max) const {     \
    min = value.getMin();                                                \
    max = value.getMax();                                                \
  }

SO_SFIELD_SOURCE(SoSFBool, "SFBool", bool, bool)

SO_SFIELD_SOURCE(SoSFFloat, "SFFloat", float, float)

SO_SFIELD_SOURCE(SoSFDouble, "SFDouble", double, double)

SO_SFIELD_SOURCE(SoSFInt32, "SFInt32", int32_t, int32_t)

SO_SFIELD_SOURCE(SoSFUInt32, "SFUInt32", uint32_t, uint32_t)

SO_SFIELD_SOURCE(SoSFShort, "SFShort", short, short)

SO_SFIELD_SOURCE(SoSFUShort, "SFUShort", unsigned short, unsigned short)

SO_SFIELD_SOURCE(SoSFString, "SFString", SbString, const SbString&)

SO_SFIELD_SOURCE(SoSFName, "SFName", SbName, const SbName&)

SO_SFIELD_SOURCE(SoSFTime, "SFTime", SbTime, const SbTime&)

SO_SFIELD_SOURCE(SoSFPlane, "SFPlane", SbPlane, const SbPlane&)

SO_SFIELD_SOURCE(SoSFMatrix, "SFMatrix", SbMatrix, const SbMatrix&)

SO_SFIELD_SOURCE(SoSFMatrixd, "SFMatrixd", SbMatrixd, const SbMatrixd&)

SO_SFIELD_SOURCE(SoSFRotation, "SFRotation", SbRotation, const SbRotation&)
void SoSFRotation::setValue(const SbVec3f& axis, float angle) { setValue(SbRotation(axis, angle)); }
void SoSFRotation::setValue(float q0, float q1, float q2, float q3) { setValue(SbRotation(q0, q1, q2, q3)); }
void SoSFRotation::setValue(const float q[4]) { setValue(SbRotation(q)); }
void SoSFRotation::getValue(SbVec3f& axis, float& angle) const { value.getValue(axis, angle); }

SO_SFIELD_SOURCE(SoSFRotationd, "SFRotationd", SbRotationd, const SbRotationd&)
void SoSFRotationd::setValue(const SbVec3d& axis, double angle) { setValue(SbRotationd(axis, angle)); }
void SoSFRotationd::setValue(double q0, double q1, double q2, double q3) { setValue(SbRotationd(q0, q1, q2, q3)); }
void SoSFRotationd::setValue(const double q[4]) { setValue(SbRotationd(q)); }
void SoSFRotationd::getValue(SbVec3d& axis, double& angle) const { value.getValue(axis, angle); }

SO_SFIELD_SOURCE(SoSFColor, "SFColor", SbColor, const SbColor&)
void SoSFColor::setValue(float r, float g, float b) { setValue(SbColor(r, g, b)); }
void SoSFColor::setValue(const float v[3]) { setValue(SbColor(v[0], v[1], v[2])); }
void SoSFColor::setHSVValue(float h, float s, float v) {
  SbColor c;
  c.setHSVValue(h, s, v);
  setValue(c);
}
void SoSFColor::setHSVValue(const float hsv[3]) { setHSVValue(hsv[0], hsv[1], hsv[2]); }

SO_SFIELD_SOURCE(SoSFColorRGBA, "SFColorRGBA", SbColorRGBA, const SbColorRGBA&)
void SoSFColorRGBA::setValue(float r, float g, float b, float a) { setValue(SbColorRGBA(r, g, b, a)); }
void SoSFColorRGBA::setValue(const float v[4]) { setValue(SbColorRGBA(v[0], v[1], v[2], v[3])); }
void SoSFColorRGBA::setHSVAValue(float h, float s, float v, float a) {
  SbColorRGBA c;
  c.setHSVAValue(h, s, v, a);
  setValue(c);
}
void SoSFColorRGBA::setHSVAValue(const float hsv[4]) { setHSVAValue(hsv[0], hsv[1], hsv[2], hsv[3]); }

SO_SFVEC_SOURCE(SoSFVec2f, "SFVec2f", SbVec2f, float, 2)

SO_SFVEC_SOURCE(SoSFVec3f, "SFVec3f", SbVec3f, float, 3)

SO_SFVEC_SOURCE(SoSFVec4f, "SFVec4f", SbVec4f, float, 4)

SO_SFVEC_SOURCE(SoSFVec2d, "SFVec2d", SbVec2d, double, 2)

SO_SFVEC_SOURCE(SoSFVec3d, "SFVec3d", SbVec3d, double, 3)

SO_SFVEC_SOURCE(SoSFVec4d, "SFVec4d", SbVec4d, double, 4)

SO_SFVEC_SOURCE(SoSFVec2i32, "SFVec2i32", SbVec2i32, int32_t, 2)

SO_SFVEC_SOURCE(SoSFVec3i32, "SFVec3i32", SbVec3i32, int32_t, 3)

SO_SFVEC_SOURCE(SoSFVec4i32, "SFVec4i32", SbVec4i32, int32_t, 4)

SO_SFVEC_SOURCE(SoSFVec2s, "SFVec2s", SbVec2s, short, 2)

SO_SFVEC_SOURCE(SoSFVec3s, "SFVec3s", SbVec3s, short, 3)

SO_SFBOX_SOURCE(SoSFBox2f, "SFBox2f", SbBox2f, SbVec2f)

SO_SFBOX_SOURCE(SoSFBox2d, "SFBox2d", SbBox2d, SbVec2d)

SO_SFBOX_SOURCE(SoSFBox2i32, "SFBox2i32", SbBox2i32, SbVec2i32)

SO_SFBOX_SOURCE(SoSFBox2s, "SFBox2s", SbBox2s, SbVec2s)

SO_SFBOX_SOURCE(SoSFBox3f, "SFBox3f", SbBox3f, SbVec3f)

SO_SFBOX_SOURCE(SoSFBox3d, "SFBox3d", SbBox3d, SbVec3d)

SO_SFBOX_SOURCE(SoSFBox3i32, "SFBox3i32", SbBox3i32, SbVec3i32)

SO_SFBOX_SOURCE(SoSFBox3s, "SFBox3s", SbBox3s, SbVec3s)
