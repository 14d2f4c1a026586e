#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoRefCounter.h>

class SoBaseList;

// Base of every reference-counted toolkit object (nodes, paths, engines...).
// An object may carry a name, by which it can be found.
class SoBase : public SoRefCounter, public SoTypedObject {
 public:
  static SoType getClassTypeId();
  static void initClass();

  virtual SbName getName() const;
  virtual void setName(const SbName& name);

  // Finds the last object registered under `name` whose type derives from `type`.
  static SoBase* getNamedBase(const SbName& name, SoType type);
  // Appends every object of that name and type; returns how many.
  static int getNamedBases(const SbName& name, SoBaseList& result, SoType type);

  virtual void touch() {}
  virtual const char* getFileFormatName() const;

 protected:
  SoBase();
  ~SoBase() override;
};
