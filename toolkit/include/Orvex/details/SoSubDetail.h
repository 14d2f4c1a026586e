#pragma once
// Declarations and definitions shared by detail classes.

#include <Orvex/details/SoDetail.h>

#define SO_DETAIL_HEADER(className)            \
 public:                                       \
  SoType getTypeId() const override;           \
  static SoType getClassTypeId();              \
  static void initClass();                     \
  SoDetail* copy() const override;             \
                                               \
 private:                                      \
  static SoType s_classTypeId

#define SO_DETAIL_SOURCE(className)                                         \
  SoType className::s_classTypeId;                                         \
  SoType className::getTypeId() const { return s_classTypeId; }            \
  SoType className::getClassTypeId() { return s_classTypeId; }             \
  SoDetail* className::copy() const { return new className(*this); }

#define SO_DETAIL_INIT_CLASS(className, parentClass)                                  \
  do {                                                                               \
    if (s_classTypeId.isBad())                                                       \
      s_classTypeId = SoType::createType(parentClass::getClassTypeId(), #className); \
  } while (0)
