#pragma once
#include <Orvex/fields/SoSFString.h>

// A string field that names a file.
class SoSFFilePathString : public SoSFString {
  SO_FIELD_HEADER(SoSFFilePathString);

 public:
  SoSFFilePathString();
  ~SoSFFilePathString() override;
  SoSFFilePathString& operator=(const SbString& newValue) {
    setValue(newValue);
    return *this;
  }
};
