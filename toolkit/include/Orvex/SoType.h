#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SbPList.h>

class SoTypeList;

// Run-time type identifier. Types form a single-inheritance tree and are
// registered by name; each has a 16-bit key (0 is the bad type).
class SoType {
 public:
  // Creates an instance of a type (nullptr when the type is abstract). The
  // object is returned as a pointer to its class family's root (SoBase,
  // SoField, ...) converted to void*, so callers cast it back to that root.
  typedef void* (*instantiationMethod)();
  // Called by fromName() with a name that is not registered. Answers the key
  // of the type to use, sign-extended into a pointer-sized integer, or 0.
  typedef intptr_t UnknownNameCB(const SbName& name);

  SoType() = default;

  // Registers a new type. A name that is already taken yields the bad type
  // and posts a debug error.
  static SoType createType(SoType parent, const SbName& name,
                           instantiationMethod method = nullptr, short data = 0);
  // Replaces the instance factory of an existing type.
  static SoType overrideType(SoType oldType, instantiationMethod method);
  // Type of that name; "SoFoo" also finds a type registered as "Foo". A
  // name that is not registered is offered to the unknown-name callback;
  // nothing is registered here.
  static SoType fromName(const SbName& name);
  static SoType fromKey(uint16_t key);
  static SoType badType() { return SoType(); }
  // Installs the unknown-name callback (nullptr removes it); returns the
  // previous one.
  static UnknownNameCB* setUnknownNameCB(UnknownNameCB* cb);
  static UnknownNameCB* getUnknownNameCB();
  static int getNumTypes();  // including the bad type
  // Appends every type derived from `type` (itself included); returns the count added.
  static int getAllDerivedFrom(SoType type, SoTypeList& list);

  bool isBad() const { return m_key == 0; }
  SbName getName() const;
  SoType getParent() const;
  bool isDerivedFrom(SoType t) const;
  bool canCreateInstance() const;
  void* createInstance() const;
  short getData() const;
  uint16_t getKey() const { return m_key; }
  void makeInternal();
  bool isInternal() const;

  friend bool operator==(SoType a, SoType b) { return a.m_key == b.m_key; }
  friend bool operator!=(SoType a, SoType b) { return a.m_key != b.m_key; }
  friend bool operator<(SoType a, SoType b) { return a.m_key < b.m_key; }

 private:
  explicit SoType(uint16_t key) : m_key(key) {}
  uint16_t m_key = 0;
};

// A list of types.
class SoTypeList : public SbPList {
 public:
  void append(SoType t) { SbPList::append(reinterpret_cast<void*>(static_cast<uintptr_t>(t.getKey()))); }
  int find(SoType t) const { return SbPList::find(reinterpret_cast<void*>(static_cast<uintptr_t>(t.getKey()))); }
  void insert(SoType t, int before) { SbPList::insert(reinterpret_cast<void*>(static_cast<uintptr_t>(t.getKey())), before); }
  SoType operator[](int i) const { return SoType::fromKey(static_cast<uint16_t>(reinterpret_cast<uintptr_t>(get(i)))); }
};
