#pragma once
#include <Orvex/SbString.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/nodes/SoSubNode.h>

// A polygon fill pattern (32 x 32 bits) for the shapes that follow, chosen
// by category and name among the patterns known to the process. Patterns
// are added one by one or loaded from pattern files:
//
//   #Orvex Pattern V1.0
//   Category "hatch"
//   Pattern "diagonal" [ 0x80808080, 0x40404040, ... ]   (32 rows)
//
// A pattern given before any Category line has the empty category.
class SoPattern : public SoNode {
  SO_NODE_HEADER(SoPattern);

 public:
  // Which patterns of a file loadPatterns keeps: those of the category, or
  // all others.
  enum FilterTypes { INCLUSIVEFILTER, EXCLUSIVEFILTER };

  SoSFString category;
  SoSFString name;

  SoPattern();

  // Registers a pattern of 128 bytes (32 rows of 4 bytes, bottom row first).
  static void addPattern(const SbString& category, const SbString& name, const unsigned char* pattern);
  static void addPattern(const SbString& name, const unsigned char* pattern);
  // Loads every pattern of a file; answers how many, or -1 when the file
  // cannot be read.
  static int loadPatterns(const SbString& fileName);
  static int loadPatterns(const SbString& fileName, const SbString& categoryFilter, FilterTypes filterType);
  // Names of the patterns a file defines, in file order. `names` is a new
  // array (delete[] it); null when there are none.
  static bool getPatternNames(int& numNames, SbString*& names, const SbString& fileName);
  // The 128 bytes of a registered pattern, or nullptr.
  static const unsigned char* getPattern(const SbString& category, const SbString& name);

  // The pattern the fields name, or nullptr.
  const unsigned char* getPattern() const;

 protected:
  ~SoPattern() override;
};
