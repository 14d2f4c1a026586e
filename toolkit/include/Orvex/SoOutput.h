#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SbString.h>

#include <cstdio>
#include <memory>
#include <string>
#include <unordered_map>

class SoBase;

// Grows a memory buffer: like realloc, answers the new block or nullptr.
typedef void* SoOutputReallocCB(void* ptr, size_t newSize);

// Writes scene files: to a named file (optionally gzip-compressed), an open
// FILE*, or a memory buffer that grows as needed. By default it writes to
// standard output. The low-level write() members write one token in the
// current format (ASCII or binary); indentation and the float precision
// apply to ASCII.
//
// The binary format follows its header line ("#Orvex V1.0 binary\n") with
// little-endian tokens: integers of up to 32 bits and floats take 4 bytes,
// 64-bit integers and doubles 8; a string is its byte count (4 bytes) and
// its bytes, padded with zeros to a multiple of 4. An object is written as
// the strings "USE" name, "NULL", or ["DEF" name] type name followed by a
// flags word (1: field descriptions follow, as for nodes of unknown type:
// a count and pairs of field type and name), the number of fields written
// and the name and value of each, and for groups the number of children
// and the children. A multiple-value field is its value count and the
// values; enumerations and bit masks are their ASCII text as a string.
class SoOutput {
 public:
  // Writing a graph takes two passes: COUNTREFS counts how often each object
  // is referenced (to know which need a name), WRITE writes.
  enum Stages { COUNTREFS, WRITE };
  enum FileProperties { DefaultProperty, CompressedZlib };

  SoOutput();
  virtual ~SoOutput();
  SoOutput(const SoOutput&) = delete;
  SoOutput& operator=(const SoOutput&) = delete;

  // Writes to an open file; the caller keeps ownership.
  virtual void setFilePointer(FILE* fp);
  virtual FILE* getFilePointer() const;
  // Creates (truncates) the named file; compressed when the file property
  // says so.
  virtual bool openFile(const char* fileName);
  virtual bool openFile(const SbString& fileName);
  // Flushes and closes the file this output opened.
  virtual void closeFile();
  // True when writing to the current target failed (a full disk, a closed
  // pipe, a flush or a close that failed, a memory buffer that could not
  // grow), or closing the file last closed with closeFile() did. The first
  // failure is posted as a debug error; later output to that target is
  // dropped. Setting a new target clears it.
  bool hasWriteError() const;
  // Writes into memory. With a reallocation function the buffer grows as
  // needed; a null buffer and function give a buffer the output manages
  // itself. `offset` bytes at the start of the buffer are kept.
  virtual void setBuffer(void* bufPointer, size_t initSize, SoOutputReallocCB* reallocFunc,
                         int32_t offset = 0);
  // The memory buffer and the number of bytes written into it.
  virtual bool getBuffer(void*& bufPointer, size_t& nBytes) const;
  virtual size_t getBufferSize() const;
  // Starts the memory buffer again from its beginning.
  virtual void resetBuffer();

  virtual void setBinary(bool flag);
  virtual bool isBinary() const;
  virtual void setHeaderString(const SbString& header);
  virtual void resetHeaderString();
  static SbString getDefaultASCIIHeader();
  static SbString getDefaultBinaryHeader();
  // Significant digits of floats and doubles; 0 (the default) writes the
  // shortest text that reads back to the same value.
  virtual void setFloatPrecision(int precision);
  virtual void setDoublePrecision(int precision);
  int getFloatPrecision() const { return m_floatPrecision; }
  int getDoublePrecision() const { return m_doublePrecision; }
  void setFileProperty(FileProperties property);
  FileProperties getFileProperty() const;
  void setStage(Stages stage);
  Stages getStage() const;

  virtual void write(char c);
  // Raw text in ASCII; a string token in binary.
  virtual void write(const char* s);
  // A quoted string with escapes in ASCII; a string token in binary.
  virtual void write(const SbString& s);
  // A name as it stands in ASCII; a string token in binary.
  virtual void write(const SbName& n);
  virtual void write(int i);
  virtual void write(unsigned int i);
  virtual void write(short s);
  virtual void write(unsigned short s);
  virtual void write(int64_t i);
  virtual void write(uint64_t i);
  virtual void write(float f);
  virtual void write(double d);
  void write(bool b);  // TRUE/FALSE in ASCII
  virtual void writeBinaryArray(const unsigned char* data, int length);
  virtual void writeBinaryArray(const int32_t* data, int length);
  virtual void writeBinaryArray(const float* data, int length);
  virtual void writeBinaryArray(const double* data, int length);

  // Writes bytes as they are, in either format.
  void filePuts(const char* s);
  void filePutc(char c);
  virtual void flushFile();

  // Indentation of ASCII output (4 spaces per level).
  // Writes the indentation when at the start of a line.
  void indent();
  // Ends the current line unless it is already ended.
  void endLine();
  bool isAtLineStart() const { return m_lastChar == '\n'; }
  void incrementIndent(int amount = 1);
  void decrementIndent(int amount = 1);
  int getIndentLevel() const;

  bool isWritingForScaleLux() const { return false; }

  // Writes the header line unless already written (the write action does
  // this before the first object).
  void writeHeader();
  bool isHeaderWritten() const;
  // Records that the header is already in the output.
  void markHeaderWritten() { m_headerWritten = true; }
  // Forgets the header, the reference counts and the names of the last
  // write, so that another graph can be written as a new file.
  void reset();

  // Reference bookkeeping of a two-pass write. Counts one reference
  // (COUNTREFS); answers the count so far.
  int addReference(const SoBase* base);
  int getReferenceCount(const SoBase* base) const;
  // The name an object is written under ("" when it needs none), given
  // when it is first written; later references write "USE name".
  bool isWritten(const SoBase* base) const;
  void setWritten(const SoBase* base, const SbName& name);
  SbName getWriteName(const SoBase* base) const;
  // A name that no other definition of this file uses, made from `wanted`
  // (or made up when `wanted` is empty).
  SbName makeUniqueName(const SbName& wanted);

  struct Target;  // where the bytes go

 private:
  void put(const char* data, size_t size);
  void putc(char c);
  void putWord(uint32_t w);
  void putDword(uint64_t w);
  void writeBinaryString(const char* s, size_t len);
  void flushChunk();

  std::unique_ptr<Target> m_target;
  bool m_closedTargetFailed = false;
  bool m_binary = false;
  bool m_headerWritten = false;
  SbString m_header;
  bool m_customHeader = false;
  int m_floatPrecision = 0;
  int m_doublePrecision = 0;
  FileProperties m_property = DefaultProperty;
  Stages m_stage = WRITE;
  int m_indent = 0;
  struct RefInfo {
    int count = 0;
    bool written = false;
    SbName name;
  };
  std::unordered_map<const SoBase*, RefInfo> m_refs;
  std::unordered_map<SbName, int> m_usedNames;  // 0: carried by an object, 1: defined
  int m_nextNameNumber = 1;
  char m_lastChar = '\n';
};
