#pragma once
#include <Orvex/fields/SoField.h>

// Base of the multiple-value fields: an array of values of one type.
// In files the values stand in brackets, separated by commas; a single value
// may stand without brackets.
class SoMField : public SoField {
 public:
  static SoType getClassTypeId();
  static void initClass();

  int getNum() const {
    evaluate();
    return num;
  }
  // Grows (with default values) or shrinks the array.
  void setNum(int num);
  // Removes `num` values from `start` (-1: to the end).
  virtual void deleteValues(int start, int num = -1);
  // Inserts `num` default values before `start`.
  virtual void insertSpace(int start, int num);
  // One value as text.
  bool set1(int index, const char* valueString);
  void get1(int index, SbString& valueString) const;

  // After this the field never frees its current storage; whoever took the
  // storage over (through startEditing) frees it.
  virtual void disableDeleteValues();
  virtual bool isDeleteValuesEnabled() const { return m_deleteValuesEnabled; }

  bool readValue(SoInput* in) override;
  void writeValue(SoOutput* out) const override;

 protected:
  SoMField();
  ~SoMField() override;

  virtual bool read1Value(SoInput* in, int index) = 0;
  virtual void write1Value(SoOutput* out, int index) const = 0;
  // The binary form holds the count and then the values.
  virtual bool readBinaryValues(SoInput* in, int numToRead);
  virtual void writeBinaryValues(SoOutput* out) const;
  // Makes room for newNum values (keeping the existing ones) and sets num.
  virtual void allocValues(int newNum) = 0;
  virtual void deleteAllValues() = 0;
  virtual void copyValue(int to, int from) = 0;
  // Gives one value its default (releasing what it refers to).
  virtual void resetValue(int index) = 0;
  virtual void* getValuesStorage() const = 0;
  // Values per line when written as ASCII.
  virtual int getNumValuesPerLine() const { return 1; }

  int num = 0;
  int maxNum = 0;
  // Storage flags: the values live in memory the field does not own, which
  // the field may also not write to.
  bool m_userDataIsUsed = false;
  bool m_userDataIsReadOnly = false;
  bool m_deleteValuesEnabled = true;
  bool m_editing = false;
};
