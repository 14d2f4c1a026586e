#include "FieldValueIO.h"

namespace orvex {
namespace fio {

bool read(SoInput* in, SbName& v) {
  SbString s;
  if (!in->read(s)) return false;
  v = SbName(s);
  return true;
}

void write(SoOutput* out, const SbName& v) {
  const char* text = v.getString();
  bool bare = !out->isBinary() && *text && SbName::isBaseNameStartChar(*text);
  for (const char* p = text; bare && *p; ++p) bare = SbName::isBaseNameChar(*p);
  if (bare)
    out->write(text);
  else
    out->write(SbString(text));
}

bool read(SoInput* in, SbRotation& r) {
  float x, y, z, angle;
  if (!in->read(x) || !in->read(y) || !in->read(z) || !in->read(angle)) return false;
  r.setValue(SbVec3f(x, y, z), angle);
  return true;
}

void write(SoOutput* out, const SbRotation& r) {
  SbVec3f axis;
  float angle;
  r.getValue(axis, angle);
  write(out, axis);
  space(out);
  out->write(angle);
}

bool read(SoInput* in, SbRotationd& r) {
  double x, y, z, angle;
  if (!in->read(x) || !in->read(y) || !in->read(z) || !in->read(angle)) return false;
  r.setValue(SbVec3d(x, y, z), angle);
  return true;
}

void write(SoOutput* out, const SbRotationd& r) {
  SbVec3d axis;
  double angle;
  r.getValue(axis, angle);
  write(out, axis);
  space(out);
  out->write(angle);
}

bool read(SoInput* in, SbMatrix& m) {
  SbMat values;
  for (int row = 0; row < 4; ++row)
    for (int col = 0; col < 4; ++col)
      if (!in->read(values[row][col])) return false;
  m.setValue(values);
  return true;
}

void write(SoOutput* out, const SbMatrix& m) {
  for (int row = 0; row < 4; ++row)
    for (int col = 0; col < 4; ++col) {
      if (row || col) space(out);
      out->write(m[row][col]);
    }
}

bool read(SoInput* in, SbMatrixd& m) {
  SbMatd values;
  for (int row = 0; row < 4; ++row)
    for (int col = 0; col < 4; ++col)
      if (!in->read(values[row][col])) return false;
  m.setValue(values);
  return true;
}

void write(SoOutput* out, const SbMatrixd& m) {
  for (int row = 0; row < 4; ++row)
    for (int col = 0; col < 4; ++col) {
      if (row || col) space(out);
      out->write(m[row][col]);
    }
}

bool read(SoInput* in, SbPlane& p) {
  SbVec3f normal;
  float distance;
  if (!read(in, normal) || !in->read(distance)) return false;
  p = SbPlane(normal, distance);
  return true;
}

void write(SoOutput* out, const SbPlane& p) {
  write(out, p.getNormal());
  space(out);
  out->write(p.getDistanceFromOrigin());
}

}  // namespace fio
}  // namespace orvex
