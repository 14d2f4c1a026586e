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

SO_SFIELD_SOURCE(SoSFVec2f, "SFVec2f", SbVec2f, const SbVec2f&)
void SoSFVec2f::setValue(float x, float y) {
  SbVec2f tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoSFVec2f::setValue(const float v[2]) {
  SbVec2f tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec3f, "SFVec3f", SbVec3f, const SbVec3f&)
void SoSFVec3f::setValue(float x, float y, float z) {
  SbVec3f tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoSFVec3f::setValue(const float v[3]) {
  SbVec3f tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec4f, "SFVec4f", SbVec4f, const SbVec4f&)
void SoSFVec4f::setValue(float x, float y, float z, float w) {
  SbVec4f tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoSFVec4f::setValue(const float v[4]) {
  SbVec4f tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec2d, "SFVec2d", SbVec2d, const SbVec2d&)
void SoSFVec2d::setValue(double x, double y) {
  SbVec2d tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoSFVec2d::setValue(const double v[2]) {
  SbVec2d tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec3d, "SFVec3d", SbVec3d, const SbVec3d&)
void SoSFVec3d::setValue(double x, double y, double z) {
  SbVec3d tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoSFVec3d::setValue(const double v[3]) {
  SbVec3d tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec4d, "SFVec4d", SbVec4d, const SbVec4d&)
void SoSFVec4d::setValue(double x, double y, double z, double w) {
  SbVec4d tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoSFVec4d::setValue(const double v[4]) {
  SbVec4d tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec2i32, "SFVec2i32", SbVec2i32, const SbVec2i32&)
void SoSFVec2i32::setValue(int32_t x, int32_t y) {
  SbVec2i32 tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoSFVec2i32::setValue(const int32_t v[2]) {
  SbVec2i32 tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec3i32, "SFVec3i32", SbVec3i32, const SbVec3i32&)
void SoSFVec3i32::setValue(int32_t x, int32_t y, int32_t z) {
  SbVec3i32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoSFVec3i32::setValue(const int32_t v[3]) {
  SbVec3i32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec4i32, "SFVec4i32", SbVec4i32, const SbVec4i32&)
void SoSFVec4i32::setValue(int32_t x, int32_t y, int32_t z, int32_t w) {
  SbVec4i32 tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z; tmp[3] = w;
  setValue(tmp);
}
void SoSFVec4i32::setValue(const int32_t v[4]) {
  SbVec4i32 tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2]; tmp[3] = v[3];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec2s, "SFVec2s", SbVec2s, const SbVec2s&)
void SoSFVec2s::setValue(short x, short y) {
  SbVec2s tmp; tmp[0] = x; tmp[1] = y;
  setValue(tmp);
}
void SoSFVec2s::setValue(const short v[2]) {
  SbVec2s tmp; tmp[0] = v[0]; tmp[1] = v[1];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFVec3s, "SFVec3s", SbVec3s, const SbVec3s&)
void SoSFVec3s::setValue(short x, short y, short z) {
  SbVec3s tmp; tmp[0] = x; tmp[1] = y; tmp[2] = z;
  setValue(tmp);
}
void SoSFVec3s::setValue(const short v[3]) {
  SbVec3s tmp; tmp[0] = v[0]; tmp[1] = v[1]; tmp[2] = v[2];
  setValue(tmp);
}

SO_SFIELD_SOURCE(SoSFBox2f, "SFBox2f", SbBox2f, const SbBox2f&)
void SoSFBox2f::setValue(const SbVec2f& min, const SbVec2f& max) {
  SbBox2f b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox2f::getValue(SbVec2f& min, SbVec2f& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox2d, "SFBox2d", SbBox2d, const SbBox2d&)
void SoSFBox2d::setValue(const SbVec2d& min, const SbVec2d& max) {
  SbBox2d b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox2d::getValue(SbVec2d& min, SbVec2d& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox2i32, "SFBox2i32", SbBox2i32, const SbBox2i32&)
void SoSFBox2i32::setValue(const SbVec2i32& min, const SbVec2i32& max) {
  SbBox2i32 b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox2i32::getValue(SbVec2i32& min, SbVec2i32& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox2s, "SFBox2s", SbBox2s, const SbBox2s&)
void SoSFBox2s::setValue(const SbVec2s& min, const SbVec2s& max) {
  SbBox2s b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox2s::getValue(SbVec2s& min, SbVec2s& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox3f, "SFBox3f", SbBox3f, const SbBox3f&)
void SoSFBox3f::setValue(const SbVec3f& min, const SbVec3f& max) {
  SbBox3f b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox3f::getValue(SbVec3f& min, SbVec3f& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox3d, "SFBox3d", SbBox3d, const SbBox3d&)
void SoSFBox3d::setValue(const SbVec3d& min, const SbVec3d& max) {
  SbBox3d b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox3d::getValue(SbVec3d& min, SbVec3d& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox3i32, "SFBox3i32", SbBox3i32, const SbBox3i32&)
void SoSFBox3i32::setValue(const SbVec3i32& min, const SbVec3i32& max) {
  SbBox3i32 b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox3i32::getValue(SbVec3i32& min, SbVec3i32& max) const {
  min = value.getMin();
  max = value.getMax();
}

SO_SFIELD_SOURCE(SoSFBox3s, "SFBox3s", SbBox3s, const SbBox3s&)
void SoSFBox3s::setValue(const SbVec3s& min, const SbVec3s& max) {
  SbBox3s b;
  b.setBounds(min, max);
  setValue(b);
}
void SoSFBox3s::getValue(SbVec3s& min, SbVec3s& max) const {
  min = value.getMin();
  max = value.getMax();
}
