#pragma once
#include <Orvex/SbRotation.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/events/SoEvent.h>

// A 3D input device (spaceball) moved: a translation and a rotation since
// the previous motion event.
class SoMotion3Event : public SoEvent {
 public:
  SoMotion3Event();
  ~SoMotion3Event() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setTranslation(const SbVec3f& t) { m_translation = t; }
  const SbVec3f& getTranslation() const { return m_translation; }
  void setRotation(const SbRotation& r) { m_rotation = r; }
  const SbRotation& getRotation() const { return m_rotation; }

 private:
  SbVec3f m_translation;
  SbRotation m_rotation;
};
