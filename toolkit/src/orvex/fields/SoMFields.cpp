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

SO_MFIELD_SOURCE(SoMFVec2f, "MFVec2f", SbVec2f, const SbVec2f&)
void SoMFVec2f::setValues(int start, int n, const float v[][2]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 2; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec2f::set1Value(int index, float x, float y) {
  SbVec2f tmp; tmp[0] = x; tmp[1] = y;
  set1Value(index, tmp);
}
void SoMFVec2f::set1Value(int index, const float v[2]) {
  SbVec2f tmp; tmp[0] = v[0]; tmp[1] = v[1];
  set1Value(index, tmp);
}
void SoMFVec2f::setValue(float x, float y) {
  SbVec2f tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoMFVec2f::setValue(const float v[2]) {
  SbVec2f tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec3f, "MFVec3f", SbVec3f, const SbVec3f&)
void SoMFVec3f::setValues(int start, int n, const float v[][3]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 3; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec3f::set1Value(int index, float x, float y, float z) {
  SbVec3f tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  set1Value(index, tmp);
}
void SoMFVec3f::set1Value(int index, const float v[3]) {
  SbVec3f tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  set1Value(index, tmp);
}
void SoMFVec3f::setValue(float x, float y, float z) {
  SbVec3f tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoMFVec3f::setValue(const float v[3]) {
  SbVec3f tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4f, "MFVec4f", SbVec4f, const SbVec4f&)
void SoMFVec4f::setValues(int start, int n, const float v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4f::set1Value(int index, float x, float y, float z, float w) {
  SbVec4f tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4f::set1Value(int index, const float v[4]) {
  SbVec4f tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4f::setValue(float x, float y, float z, float w) {
  SbVec4f tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4f::setValue(const float v[4]) {
  SbVec4f tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec2d, "MFVec2d", SbVec2d, const SbVec2d&)
void SoMFVec2d::setValues(int start, int n, const double v[][2]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 2; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec2d::set1Value(int index, double x, double y) {
  SbVec2d tmp; tmp[0] = x; tmp[1] = y;
  set1Value(index, tmp);
}
void SoMFVec2d::set1Value(int index, const double v[2]) {
  SbVec2d tmp; tmp[0] = v[0]; tmp[1] = v[1];
  set1Value(index, tmp);
}
void SoMFVec2d::setValue(double x, double y) {
  SbVec2d tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoMFVec2d::setValue(const double v[2]) {
  SbVec2d tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec3d, "MFVec3d", SbVec3d, const SbVec3d&)
void SoMFVec3d::setValues(int start, int n, const double v[][3]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 3; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec3d::set1Value(int index, double x, double y, double z) {
  SbVec3d tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  set1Value(index, tmp);
}
void SoMFVec3d::set1Value(int index, const double v[3]) {
  SbVec3d tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  set1Value(index, tmp);
}
void SoMFVec3d::setValue(double x, double y, double z) {
  SbVec3d tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoMFVec3d::setValue(const double v[3]) {
  SbVec3d tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4d, "MFVec4d", SbVec4d, const SbVec4d&)
void SoMFVec4d::setValues(int start, int n, const double v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4d::set1Value(int index, double x, double y, double z, double w) {
  SbVec4d tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4d::set1Value(int index, const double v[4]) {
  SbVec4d tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4d::setValue(double x, double y, double z, double w) {
  SbVec4d tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4d::setValue(const double v[4]) {
  SbVec4d tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec2i32, "MFVec2i32", SbVec2i32, const SbVec2i32&)
void SoMFVec2i32::setValues(int start, int n, const int32_t v[][2]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 2; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec2i32::set1Value(int index, int32_t x, int32_t y) {
  SbVec2i32 tmp; tmp[0] = x; tmp[1] = y;
  set1Value(index, tmp);
}
void SoMFVec2i32::set1Value(int index, const int32_t v[2]) {
  SbVec2i32 tmp; tmp[0] = v[0]; tmp[1] = v[1];
  set1Value(index, tmp);
}
void SoMFVec2i32::setValue(int32_t x, int32_t y) {
  SbVec2i32 tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoMFVec2i32::setValue(const int32_t v[2]) {
  SbVec2i32 tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec3i32, "MFVec3i32", SbVec3i32, const SbVec3i32&)
void SoMFVec3i32::setValues(int start, int n, const int32_t v[][3]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 3; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec3i32::set1Value(int index, int32_t x, int32_t y, int32_t z) {
  SbVec3i32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  set1Value(index, tmp);
}
void SoMFVec3i32::set1Value(int index, const int32_t v[3]) {
  SbVec3i32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  set1Value(index, tmp);
}
void SoMFVec3i32::setValue(int32_t x, int32_t y, int32_t z) {
  SbVec3i32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoMFVec3i32::setValue(const int32_t v[3]) {
  SbVec3i32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4i32, "MFVec4i32", SbVec4i32, const SbVec4i32&)
void SoMFVec4i32::setValues(int start, int n, const int32_t v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4i32::set1Value(int index, int32_t x, int32_t y, int32_t z, int32_t w) {
  SbVec4i32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4i32::set1Value(int index, const int32_t v[4]) {
  SbVec4i32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4i32::setValue(int32_t x, int32_t y, int32_t z, int32_t w) {
  SbVec4i32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4i32::setValue(const int32_t v[4]) {
  SbVec4i32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec2s, "MFVec2s", SbVec2s, const SbVec2s&)
void SoMFVec2s::setValues(int start, int n, const short v[][2]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 2; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec2s::set1Value(int index, short x, short y) {
  SbVec2s tmp; tmp[0] = x; tmp[1] = y;
  set1Value(index, tmp);
}
void SoMFVec2s::set1Value(int index, const short v[2]) {
  SbVec2s tmp; tmp[0] = v[0]; tmp[1] = v[1];
  set1Value(index, tmp);
}
void SoMFVec2s::setValue(short x, short y) {
  SbVec2s tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoMFVec2s::setValue(const short v[2]) {
  SbVec2s tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec3s, "MFVec3s", SbVec3s, const SbVec3s&)
void SoMFVec3s::setValues(int start, int n, const short v[][3]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 3; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec3s::set1Value(int index, short x, short y, short z) {
  SbVec3s tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  set1Value(index, tmp);
}
void SoMFVec3s::set1Value(int index, const short v[3]) {
  SbVec3s tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  set1Value(index, tmp);
}
void SoMFVec3s::setValue(short x, short y, short z) {
  SbVec3s tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoMFVec3s::setValue(const short v[3]) {
  SbVec3s tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4s, "MFVec4s", SbVec4s, const SbVec4s&)
void SoMFVec4s::setValues(int start, int n, const short v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4s::set1Value(int index, short x, short y, short z, short w) {
  SbVec4s tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4s::set1Value(int index, const short v[4]) {
  SbVec4s tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4s::setValue(short x, short y, short z, short w) {
  SbVec4s tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4s::setValue(const short v[4]) {
  SbVec4s tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4b, "MFVec4b", SbVec4b, const SbVec4b&)
void SoMFVec4b::setValues(int start, int n, const int8_t v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4b::set1Value(int index, int8_t x, int8_t y, int8_t z, int8_t w) {
  SbVec4b tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4b::set1Value(int index, const int8_t v[4]) {
  SbVec4b tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4b::setValue(int8_t x, int8_t y, int8_t z, int8_t w) {
  SbVec4b tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4b::setValue(const int8_t v[4]) {
  SbVec4b tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4ub, "MFVec4ub", SbVec4ub, const SbVec4ub&)
void SoMFVec4ub::setValues(int start, int n, const uint8_t v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4ub::set1Value(int index, uint8_t x, uint8_t y, uint8_t z, uint8_t w) {
  SbVec4ub tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4ub::set1Value(int index, const uint8_t v[4]) {
  SbVec4ub tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4ub::setValue(uint8_t x, uint8_t y, uint8_t z, uint8_t w) {
  SbVec4ub tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4ub::setValue(const uint8_t v[4]) {
  SbVec4ub tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4ui32, "MFVec4ui32", SbVec4ui32, const SbVec4ui32&)
void SoMFVec4ui32::setValues(int start, int n, const uint32_t v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4ui32::set1Value(int index, uint32_t x, uint32_t y, uint32_t z, uint32_t w) {
  SbVec4ui32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4ui32::set1Value(int index, const uint32_t v[4]) {
  SbVec4ui32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4ui32::setValue(uint32_t x, uint32_t y, uint32_t z, uint32_t w) {
  SbVec4ui32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4ui32::setValue(const uint32_t v[4]) {
  SbVec4ui32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_MFIELD_SOURCE(SoMFVec4us, "MFVec4us", SbVec4us, const SbVec4us&)
void SoMFVec4us::setValues(int start, int n, const unsigned short v[][4]) {
  if ((n > 0 && !v) ||
      !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly, [this](int newNum) { allocValues(newNum); }))
    return;
  for (int i = 0; i < n; ++i)
    for (int k = 0; k < 4; ++k) values[start + i][k] = v[i][k];
  valueChanged(start, n);
}
void SoMFVec4us::set1Value(int index, unsigned short x, unsigned short y, unsigned short z, unsigned short w) {
  SbVec4us tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  set1Value(index, tmp);
}
void SoMFVec4us::set1Value(int index, const unsigned short v[4]) {
  SbVec4us tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  set1Value(index, tmp);
}
void SoMFVec4us::setValue(unsigned short x, unsigned short y, unsigned short z, unsigned short w) {
  SbVec4us tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoMFVec4us::setValue(const unsigned short v[4]) {
  SbVec4us tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}
