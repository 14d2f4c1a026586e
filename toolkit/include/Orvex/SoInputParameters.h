#pragma once
#include <cstddef>

// Options of reading scene files that several inputs may share: an
// application sets them once and hands them to each SoInput with
// setInputParameters(). Inputs read them whenever they open a file or a
// buffer, so a change applies to what is opened afterwards.
class SoInputParameters {
 public:
  // The defaults of SoInput: 1 GiB for each limit.
  SoInputParameters();

  // Largest file or stream (as stored: compressed or not) an input accepts.
  void setMaxInputBytes(size_t maxBytes);
  size_t getMaxInputBytes() const;
  // Largest content that a compressed file or buffer may inflate to.
  void setMaxInflatedBytes(size_t maxBytes);
  size_t getMaxInflatedBytes() const;

 private:
  size_t m_maxInputBytes;
  size_t m_maxInflatedBytes;
};
