#include <Orvex/events/SbTrackerInfo.h>

SbLine SbTrackerInfo::getRay() const {
  SbVec3f direction;
  m_orientation.multVec(SbVec3f(0, 0, -1), direction);
  SbLine ray;
  ray.setPosDir(m_position, direction);
  return ray;
}
