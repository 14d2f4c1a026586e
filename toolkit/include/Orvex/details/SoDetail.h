#pragma once
#include <Orvex/SoTypedObject.h>

// What part of a shape a primitive or a pick concerns (a face, a line, a
// vertex, a part of a primitive shape). Details are plain objects; copy()
// makes an independent one of the same class.
class SoDetail : public SoTypedObject {
 public:
  static SoType getClassTypeId();
  static void initClass();
  // Every detail class of the toolkit.
  static void initClasses();
  ~SoDetail() override;
  virtual SoDetail* copy() const = 0;

 protected:
  SoDetail();
  SoDetail(const SoDetail&) = default;
  SoDetail& operator=(const SoDetail&) = default;

 private:
  static SoType s_classTypeId;
};
