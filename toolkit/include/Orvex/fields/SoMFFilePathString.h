#pragma once
#include <Orvex/fields/SoMFString.h>

// A multiple-value string field whose values name files.
class SoMFFilePathString : public SoMFString {
  SO_FIELD_HEADER(SoMFFilePathString);

 public:
  SoMFFilePathString();
  ~SoMFFilePathString() override;
  SoMFFilePathString& operator=(const SbString& newValue) {
    setValue(newValue);
    return *this;
  }
};
