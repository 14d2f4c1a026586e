// The multiple-value fields of plain values.

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

#include "FieldSource.h"
#include "VectorFieldSource.h"

SO_MFIELD_SOURCE(SoMFBool, "MFBool", bool, bool)

SO_MFIELD_SOURCE(SoMFFloat, "MFFloat", float, float)

SO_MFIELD_SOURCE(SoMFDouble, "MFDouble", double, double)

SO_MFIELD_SOURCE(SoMFInt32, "MFInt32", int32_t, int32_t)

SO_MFIELD_SOURCE(SoMFUInt32, "MFUInt32", uint32_t, uint32_t)

SO_MFIELD_SOURCE(SoMFShort, "MFShort", short, short)

SO_MFIELD_SOURCE(SoMFUShort, "MFUShort", unsigned short, unsigned short)

SO_MFIELD_SOURCE(SoMFInt64, "MFInt64", int64_t, int64_t)

SO_MFIELD_SOURCE(SoMFUInt64, "MFUInt64", uint64_t, uint64_t)

SO_MFIELD_SOURCE(SoMFByte, "MFByte", int8_t, int8_t)

SO_MFIELD_SOURCE(SoMFUByte, "MFUByte", uint8_t, uint8_t)

SO_MFIELD_SOURCE(SoMFString, "MFString", SbString, const SbString&)

SO_MFIELD_SOURCE(SoMFName, "MFName", SbName, const SbName&)

SO_MFIELD_SOURCE(SoMFTime, "MFTime", SbTime, const SbTime&)

SO_MFIELD_SOURCE(SoMFPlane, "MFPlane", SbPlane, const SbPlane&)

SO_MFIELD_SOURCE(SoMFMatrix, "MFMatrix", SbMatrix, const SbMatrix&)

SO_MFIELD_SOURCE(SoMFMatrixd, "MFMatrixd", SbMatrixd, const SbMatrixd&)

SO_MFIELD_SOURCE(SoMFRotation, "MFRotation", SbRotation, const SbRotation&)
void SoMFRotation::set1Value(int index, const SbVec3f& axis, float angle) { set1Value(index, SbRotation(axis, angle)); }
void SoMFRotation::set1Value(int index, float q0, float q1, float q2, float q3) { set1Value(index, SbRotation(q0, q1, q2, q3)); }
void SoMFRotation::set1Value(int index, const float q[4]) { set1Value(index, SbRotation(q)); }
void SoMFRotation::setValue(const SbVec3f& axis, float angle) { setValue(SbRotation(axis, angle)); }
void SoMFRotation::setValue(float q0, float q1, float q2, float q3) { setValue(SbRotation(q0, q1, q2, q3)); }
void SoMFRotation::setValue(const float q[4]) { setValue(SbRotation(q)); }

SO_MFIELD_SOURCE(SoMFRotationd, "MFRotationd", SbRotationd, const SbRotationd&)
void SoMFRotationd::set1Value(int index, const SbVec3d& axis, double angle) { set1Value(index, SbRotationd(axis, angle)); }
void SoMFRotationd::set1Value(int index, double q0, double q1, double q2, double q3) { set1Value(index, SbRotationd(q0, q1, q2, q3)); }
void SoMFRotationd::set1Value(int index, const double q[4]) { set1Value(index, SbRotationd(q)); }
void SoMFRotationd::setValue(const SbVec3d& axis, double angle) { setValue(SbRotationd(axis, angle)); }
void SoMFRotationd::setValue(double q0, double q1, double q2, double q3) { setValue(SbRotationd(q0, q1, q2, q3)); }
void SoMFRotationd::setValue(const double q[4]) { setValue(SbRotationd(q)); }

SO_MFIELD_SOURCE(SoMFColor, "MFColor", SbColor, const SbColor&)
void SoMFColor::setValues(int start, int n, const float v[][3]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i) values[start + i] = SbColor(v[i][0], v[i][1], v[i][2]);
  valueChanged(start, n);
}
void SoMFColor::setHSVValues(int start, int n, const float hsv[][3]) {
  if ((n > 0 && !hsv) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i) values[start + i].setHSVValue(hsv[i][0], hsv[i][1], hsv[i][2]);
  valueChanged(start, n);
}
void SoMFColor::set1Value(int index, float r, float g, float b) { set1Value(index, SbColor(r, g, b)); }
void SoMFColor::set1Value(int index, const float v[3]) { set1Value(index, SbColor(v[0], v[1], v[2])); }
void SoMFColor::set1HSVValue(int index, float h, float s, float v) {
  SbColor c;
  c.setHSVValue(h, s, v);
  set1Value(index, c);
}
void SoMFColor::set1HSVValue(int index, const float hsv[3]) { set1HSVValue(index, hsv[0], hsv[1], hsv[2]); }
void SoMFColor::setValue(float r, float g, float b) { setValue(SbColor(r, g, b)); }
void SoMFColor::setValue(const float v[3]) { setValue(SbColor(v[0], v[1], v[2])); }
void SoMFColor::setHSVValue(float h, float s, float v) {
  SbColor c;
  c.setHSVValue(h, s, v);
  setValue(c);
}
void SoMFColor::setHSVValue(const float hsv[3]) { setHSVValue(hsv[0], hsv[1], hsv[2]); }

SO_MFIELD_SOURCE(SoMFColorRGBA, "MFColorRGBA", SbColorRGBA, const SbColorRGBA&)
void SoMFColorRGBA::setValues(int start, int n, const float v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i) values[start + i] = SbColorRGBA(v[i][0], v[i][1], v[i][2], v[i][3]);
  valueChanged(start, n);
}
void SoMFColorRGBA::setHSVAValues(int start, int n, const float hsv[][4]) {
  if ((n > 0 && !hsv) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i) values[start + i].setHSVAValue(hsv[i][0], hsv[i][1], hsv[i][2], hsv[i][3]);
  valueChanged(start, n);
}
void SoMFColorRGBA::set1Value(int index, float r, float g, float b, float a) { set1Value(index, SbColorRGBA(r, g, b, a)); }
void SoMFColorRGBA::set1Value(int index, const float v[4]) { set1Value(index, SbColorRGBA(v[0], v[1], v[2], v[3])); }
void SoMFColorRGBA::set1HSVAValue(int index, float h, float s, float v, float a) {
  SbColorRGBA c;
  c.setHSVAValue(h, s, v, a);
  set1Value(index, c);
}
void SoMFColorRGBA::set1HSVAValue(int index, const float hsv[4]) { set1HSVAValue(index, hsv[0], hsv[1], hsv[2], hsv[3]); }
void SoMFColorRGBA::setValue(float r, float g, float b, float a) { setValue(SbColorRGBA(r, g, b, a)); }
void SoMFColorRGBA::setValue(const float v[4]) { setValue(SbColorRGBA(v[0], v[1], v[2], v[3])); }
void SoMFColorRGBA::setHSVAValue(float h, float s, float v, float a) {
  SbColorRGBA c;
  c.setHSVAValue(h, s, v, a);
  setValue(c);
}
void SoMFColorRGBA::setHSVAValue(const float hsv[4]) { setHSVAValue(hsv[0], hsv[1], hsv[2], hsv[3]); }

SO_MFVEC_SOURCE(SoMFVec2f, "MFVec2f", SbVec2f, float, 2)

SO_MFVEC_SOURCE(SoMFVec3f, "MFVec3f", SbVec3f, float, 3)

SO_MFVEC_SOURCE(SoMFVec4f, "MFVec4f", SbVec4f, float, 4)

SO_MFVEC_SOURCE(SoMFVec2d, "MFVec2d", SbVec2d, double, 2)

SO_MFVEC_SOURCE(SoMFVec3d, "MFVec3d", SbVec3d, double, 3)

SO_MFVEC_SOURCE(SoMFVec4d, "MFVec4d", SbVec4d, double, 4)

SO_MFVEC_SOURCE(SoMFVec2i32, "MFVec2i32", SbVec2i32, int32_t, 2)

SO_MFVEC_SOURCE(SoMFVec3i32, "MFVec3i32", SbVec3i32, int32_t, 3)

SO_MFVEC_SOURCE(SoMFVec4i32, "MFVec4i32", SbVec4i32, int32_t, 4)

SO_MFVEC_SOURCE(SoMFVec2s, "MFVec2s", SbVec2s, short, 2)

SO_MFVEC_SOURCE(SoMFVec3s, "MFVec3s", SbVec3s, short, 3)

SO_MFVEC_SOURCE(SoMFVec4s, "MFVec4s", SbVec4s, short, 4)

SO_MFVEC_SOURCE(SoMFVec4b, "MFVec4b", SbVec4b, int8_t, 4)

SO_MFVEC_SOURCE(SoMFVec4ub, "MFVec4ub", SbVec4ub, uint8_t, 4)

SO_MFVEC_SOURCE(SoMFVec4ui32, "MFVec4ui32", SbVec4ui32, uint32_t, 4)

SO_MFVEC_SOURCE(SoMFVec4us, "MFVec4us", SbVec4us, unsigned short, 4)
