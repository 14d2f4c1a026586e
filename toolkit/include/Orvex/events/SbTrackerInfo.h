#pragma once
#include <Orvex/SbLine.h>
#include <Orvex/SbRotation.h>
#include <Orvex/SbVec3f.h>

// Where a tracked 3D device (a VR controller, a head tracker) is and where it
// points: a position and an orientation in world space. Unrotated, the
// device points down the negative z axis.
class SbTrackerInfo {
 public:
  // At the origin, unrotated.
  SbTrackerInfo() = default;
  SbTrackerInfo(const SbVec3f& position, const SbRotation& orientation)
      : m_position(position), m_orientation(orientation) {}

  void setPosition3(const SbVec3f& p) { m_position = p; }
  const SbVec3f& getPosition3() const { return m_position; }

  void setOrientation(const SbRotation& orientation) { m_orientation = orientation; }
  void setOrientation(const SbVec3f& axis, float radians) { m_orientation.setValue(axis, radians); }
  void setOrientation(float q0, float q1, float q2, float q3) { m_orientation.setValue(q0, q1, q2, q3); }
  void setOrientation(const float q[4]) { m_orientation.setValue(q); }
  // The rotation that turns `rotateFrom` into `rotateTo`.
  void setOrientation(const SbVec3f& rotateFrom, const SbVec3f& rotateTo) {
    m_orientation.setValue(rotateFrom, rotateTo);
  }
  const SbRotation& getOrientation() const { return m_orientation; }

  // The line from the device's position in the direction it points.
  SbLine getRay() const;

  friend bool operator==(const SbTrackerInfo& a, const SbTrackerInfo& b) {
    return a.m_position == b.m_position && a.m_orientation == b.m_orientation;
  }
  friend bool operator!=(const SbTrackerInfo& a, const SbTrackerInfo& b) { return !(a == b); }

 private:
  SbVec3f m_position;
  SbRotation m_orientation;
};
