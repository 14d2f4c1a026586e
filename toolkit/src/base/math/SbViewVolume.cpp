#include <Orvex/SbViewVolume.h>

#include <cmath>
#include <initializer_list>

SbViewVolume::SbViewVolume() { ortho(-1, 1, -1, 1, -1, 1); }

void SbViewVolume::ortho(float left, float right, float bottom, float top, float nearDist, float farDist) {
  m_type = ORTHOGRAPHIC;
  m_projPoint.setValue(0, 0, 0);
  m_projDir.setValue(0, 0, -1);
  m_nearDist = nearDist;
  m_nearToFar = farDist - nearDist;
  m_llf.setValue(left, bottom, -nearDist);
  m_lrf.setValue(right, bottom, -nearDist);
  m_ulf.setValue(left, top, -nearDist);
}

void SbViewVolume::perspective(float fovy, float aspect, float nearDist, float farDist) {
  m_type = PERSPECTIVE;
  m_projPoint.setValue(0, 0, 0);
  m_projDir.setValue(0, 0, -1);
  m_nearDist = nearDist;
  m_nearToFar = farDist - nearDist;
  const float h = nearDist * std::tan(fovy / 2), w = h * aspect;
  m_llf.setValue(-w, -h, -nearDist);
  m_lrf.setValue(w, -h, -nearDist);
  m_ulf.setValue(-w, h, -nearDist);
}

float SbViewVolume::getWidth() const { return (m_lrf - m_llf).length(); }
float SbViewVolume::getHeight() const { return (m_ulf - m_llf).length(); }

void SbViewVolume::translateCamera(const SbVec3f& v) {
  m_projPoint += v;
  m_llf += v;
  m_lrf += v;
  m_ulf += v;
}

void SbViewVolume::rotateCamera(const SbRotation& r) {
  r.multVec(m_projDir, m_projDir);
  for (SbVec3f* corner : {&m_llf, &m_lrf, &m_ulf}) {
    SbVec3f rel = *corner - m_projPoint;
    r.multVec(rel, rel);
    *corner = m_projPoint + rel;
  }
}

void SbViewVolume::getMatrices(SbMatrix& affine, SbMatrix& proj) const {
  SbVec3f x = m_lrf - m_llf, y = m_ulf - m_llf;
  x.normalize();
  y.normalize();
  const SbVec3f z = zVector();
  // World to view: translate the camera to the origin, then express the point
  // in the camera's axes (row vectors: column j of the matrix is axis j).
  SbMatrix t;
  t.setTranslate(-m_projPoint);
  SbMatrix axes(x[0], y[0], z[0], 0, x[1], y[1], z[1], 0, x[2], y[2], z[2], 0, 0, 0, 0, 1);
  affine = t * axes;

  const SbVec3f ll = m_llf - m_projPoint, ur = m_lrf + (m_ulf - m_llf) - m_projPoint;
  const float l = ll.dot(x), r = ur.dot(x), b = ll.dot(y), tp = ur.dot(y);
  const float n = m_nearDist, f = m_nearDist + m_nearToFar;
  if (m_type == ORTHOGRAPHIC) {
    proj = SbMatrix(2 / (r - l), 0, 0, 0,                         //
                    0, 2 / (tp - b), 0, 0,                        //
                    0, 0, -2 / (f - n), 0,                        //
                    -(r + l) / (r - l), -(tp + b) / (tp - b), -(f + n) / (f - n), 1);
  } else {
    proj = SbMatrix(2 * n / (r - l), 0, 0, 0,                     //
                    0, 2 * n / (tp - b), 0, 0,                    //
                    (r + l) / (r - l), (tp + b) / (tp - b), -(f + n) / (f - n), -1,  //
                    0, 0, -2 * f * n / (f - n), 0);
  }
}

SbMatrix SbViewVolume::getMatrix() const {
  SbMatrix affine, proj;
  getMatrices(affine, proj);
  return affine * proj;
}

void SbViewVolume::projectToScreen(const SbVec3f& src, SbVec3f& dst) const {
  SbVec3f ndc;
  getMatrix().multVecMatrix(src, ndc);
  dst.setValue((ndc[0] + 1) / 2, (ndc[1] + 1) / 2, (ndc[2] + 1) / 2);
}

void SbViewVolume::projectPointToLine(const SbVec2f& pt, SbLine& line) const {
  const SbVec3f nearPt = m_llf + (m_lrf - m_llf) * pt[0] + (m_ulf - m_llf) * pt[1];
  if (m_type == PERSPECTIVE)
    line.setValue(m_projPoint, nearPt);
  else
    line.setPosDir(nearPt, m_projDir);
}

SbVec3f SbViewVolume::getPlanePoint(float distFromEye, const SbVec2f& normPoint) const {
  const SbVec3f nearPt = m_llf + (m_lrf - m_llf) * normPoint[0] + (m_ulf - m_llf) * normPoint[1];
  if (m_type == PERSPECTIVE) return m_projPoint + (nearPt - m_projPoint) * (distFromEye / m_nearDist);
  return nearPt + m_projDir * (distFromEye - m_nearDist);
}

SbVec3f SbViewVolume::getSightPoint(float distFromEye) const {
  if (m_type == PERSPECTIVE) return m_projPoint + m_projDir * distFromEye;
  return getPlanePoint(distFromEye, SbVec2f(0.5f, 0.5f));
}

SbPlane SbViewVolume::getPlane(float distFromEye) const { return SbPlane(zVector(), getSightPoint(distFromEye)); }

SbVec3f SbViewVolume::zVector() const { return -m_projDir; }

void SbViewVolume::scale(float factor) {
  const SbVec3f center = (m_lrf + m_ulf) / 2;
  m_llf = center + (m_llf - center) * factor;
  m_lrf = center + (m_lrf - center) * factor;
  m_ulf = center + (m_ulf - center) * factor;
}
