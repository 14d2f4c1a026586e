// The detail classes.

#include <Orvex/details/SoConeDetail.h>
#include <Orvex/details/SoCubeDetail.h>
#include <Orvex/details/SoCylinderDetail.h>
#include <Orvex/details/SoDetail.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/details/SoLineDetail.h>
#include <Orvex/details/SoNodeKitDetail.h>
#include <Orvex/details/SoPointDetail.h>
#include <Orvex/details/SoTextDetail.h>

SoType SoDetail::s_classTypeId;

SoDetail::SoDetail() = default;
SoDetail::~SoDetail() = default;

SoType SoDetail::getClassTypeId() { return s_classTypeId; }

void SoDetail::initClass() {
  SoTypedObject::initClass();
  if (s_classTypeId.isBad()) s_classTypeId = SoType::createType(SoTypedObject::getClassTypeId(), "SoDetail");
}

void SoDetail::initClasses() {
  initClass();
  SoPointDetail::initClass();
  SoLineDetail::initClass();
  SoFaceDetail::initClass();
  SoConeDetail::initClass();
  SoCubeDetail::initClass();
  SoCylinderDetail::initClass();
  SoTextDetail::initClass();
  SoNodeKitDetail::initClass();
}

#define ORVEX_DETAIL_CLASS(className)                                               \
  SO_DETAIL_SOURCE(className)                                                      \
  className::className() = default;                                                \
  className::~className() = default;                                               \
  void className::initClass() { SO_DETAIL_INIT_CLASS(className, SoDetail); }

ORVEX_DETAIL_CLASS(SoPointDetail)
ORVEX_DETAIL_CLASS(SoLineDetail)
ORVEX_DETAIL_CLASS(SoFaceDetail)
ORVEX_DETAIL_CLASS(SoConeDetail)
ORVEX_DETAIL_CLASS(SoCubeDetail)
ORVEX_DETAIL_CLASS(SoCylinderDetail)
ORVEX_DETAIL_CLASS(SoTextDetail)
ORVEX_DETAIL_CLASS(SoNodeKitDetail)
