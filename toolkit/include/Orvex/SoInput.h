#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SbString.h>

#include <cstdio>
#include <memory>
#include <unordered_map>
#include <vector>

class SoBase;
class SoInputParameters;

// Reads scene files: from a named file (searched in the directory list), an
// open FILE*, or a memory buffer. Files pushed with pushFile() are read
// before the rest of the current file. Each file starts with a header line
// that tells ASCII from binary; files compressed with gzip are recognised by
// their signature and decompressed on opening.
//
// Memory is bounded: a file or stream is read only up to getMaxInputBytes()
// and compressed content is inflated chunk by chunk only up to
// getMaxInflatedBytes(); beyond either limit the input is refused with a read
// error, so an endless stream or a small file that inflates to gigabytes
// stops at the limit. A file whose first bytes show that it is no scene file
// (neither a header nor compressed) is refused after its first chunk. Running
// out of memory while reading is a read error too, never an abort.
//
// The low-level read() members parse one token in the current format; they
// answer false (without posting) at the end of the input or when the token
// does not have the requested form. A number that has the form but not the
// range of its type (1e999999 for a float, 70000 for a short) is posted as a
// read error and answers false too; numbers too close to zero for a float or
// double read as zero. Errors are posted with SoReadError::post, which names
// the current file and line. Lines end with LF, CR LF or a lone CR.
class SoInput {
 public:
  // Kinds of file the toolkit family can import; this toolkit reads its own.
  enum FileTypes { ALL, CATIA5, DXF, IGES, OpenFlight, Orvexa, STEP };

  SoInput();
  virtual ~SoInput();
  SoInput(const SoInput&) = delete;
  SoInput& operator=(const SoInput&) = delete;

  // The directory search list, shared by all inputs. Relative file names are
  // tried in each directory in turn; the list starts with ".".
  static void addDirectoryFirst(const char* dirName);
  static void addDirectoryFirst(const SbString& dirName);
  static void addDirectoryLast(const char* dirName);
  static void addDirectoryLast(const SbString& dirName);
  // Adds each directory listed in an environment variable, in the order
  // listed; any character of `separator` separates two directories (by
  // default a colon, a tab or a space). An unset variable adds nothing.
  static void addEnvDirectoriesFirst(const char* envVarName, const char* separator = ":\t ");
  static void addEnvDirectoriesFirst(const SbString& envVarName, const SbString& separator = ":\t ");
  static void addEnvDirectoriesLast(const char* envVarName, const char* separator = ":\t ");
  static void addEnvDirectoriesLast(const SbString& envVarName, const SbString& separator = ":\t ");
  static void removeDirectory(const char* dirName);
  static void removeDirectory(const SbString& dirName);
  static void clearDirectories();
  static int getNumDirectories();
  static SbString getDirectory(int index);
  // Finds a file through the directory list; answers the full path.
  static bool findAbsolutePath(const SbString& fileName, SbString& absolutePath);
  // The same, answering the full path, or an empty string when the file is
  // found nowhere.
  static SbString findAbsolutePath(const SbString& fileName);

  // Replaces what is being read by the named file; posts an error unless
  // okIfNotFound when it cannot be opened.
  virtual bool openFile(const char* fileName, bool okIfNotFound = false);
  virtual bool openFile(const SbString& fileName, bool okIfNotFound = false);
  // Reads the named file before the rest of the current input.
  virtual bool pushFile(const char* fileName);
  virtual bool pushFile(const SbString& fileName);
  // Closes every file this input opened and forgets the buffer.
  virtual void closeFile();
  // Reads from an open file; the caller keeps ownership.
  virtual void setFilePointer(FILE* fp);
  // Reads from memory that the caller keeps valid while reading. Only the
  // limit on inflated bytes applies (to a compressed buffer).
  virtual void setBuffer(void* buffer, size_t bufSize);

  // Largest file or stream (as stored: compressed or not) that openFile(),
  // pushFile() and setFilePointer() accept. Default 1 GiB.
  void setMaxInputBytes(size_t maxBytes);
  size_t getMaxInputBytes() const;
  // Largest content that a compressed file or buffer may inflate to.
  // Default 1 GiB. With both defaults a reader holds at most about 2 GiB of
  // file data at once (1 GiB while inflating and 1 GiB inflated), which a
  // machine of a few GiB survives. The limits apply to what is opened after
  // they are set. While reading parameters are set (below), theirs apply
  // instead, and the getters answer them.
  void setMaxInflatedBytes(size_t maxBytes);
  size_t getMaxInflatedBytes() const;

  // Reading parameters shared by several inputs: while set, their values
  // (as they are when a file or buffer is opened) replace the input's own
  // limits. The input does not own them; they must outlive their use, or
  // be unset with nullptr first.
  void setInputParameters(SoInputParameters* parameters);
  SoInputParameters* getInputParameters() const;

  // True when the current input starts with a valid header (a file) or is
  // readable text (a buffer, where the header may be omitted).
  virtual bool isValidFile();
  bool isValidBuffer();
  // Name of the file being read ("" for a buffer or a FILE*).
  virtual const char* getCurFileName() const;
  SbString getCurStringFileName() const;
  virtual FILE* getCurFile() const;
  FileTypes getCurFileType() const;
  void setCurFileType(FileTypes type);
  // Header line of the current file and the format version it states.
  virtual SbString getHeader();
  virtual float getIVVersion();
  virtual bool isBinary();
  // Bytes consumed so far in the current file.
  virtual size_t getNumBytesRead() const;
  // Progress of reading: called with the percentage of the file (or
  // buffer) opened last that has been consumed, each time it passes a
  // further whole percent, and with 100 when its end is reached; never more
  // than once per percent, so never more than 100 times a file. Files
  // pushed on top are not counted. Does nothing here; a subclass may
  // report it. It is called in the middle of reading, so it must not read
  // from the input itself.
  virtual void updateReadPercent(double readPercentage);
  int getLineNumber() const;
  bool eof() const;
  // Bytes not yet read in the current file (bounds counts read from binary files).
  size_t getNumBytesLeft() const;

  // Next character, whitespace included (ASCII; a raw byte in binary).
  bool get(char& c);
  // Next character after whitespace and comments (ASCII only).
  bool read(char& c);
  bool read(SbString& s);   // a quoted string, or one word
  // A name; with validIdent only identifier characters, else every character
  // a node name may hold.
  bool read(SbName& n, bool validIdent = false);
  bool read(bool& b);       // TRUE/FALSE or 1/0
  bool read(int& i);
  bool read(unsigned int& i);
  bool read(short& s);
  bool read(unsigned short& s);
  bool read(int64_t& i);
  bool read(uint64_t& i);
  bool read(signed char& c);      // an 8-bit integer value
  bool read(unsigned char& c);    // an 8-bit integer value
  bool read(float& f);
  bool read(double& d);
  // Arrays of raw values in the binary format.
  bool readBinaryArray(unsigned char* data, int length);
  bool readBinaryArray(int32_t* data, int length);
  bool readBinaryArray(float* data, int length);
  bool readBinaryArray(double* data, int length);
  // Bulk parsing of ASCII values: the unread bytes of the current buffer.
  // Answers false when there are none at hand (binary input, text given
  // back, the end of the input); callers then read token by token.
  bool getRawBuffer(const char*& position, const char*& end);
  // Continues reading at `position` (inside the raw buffer), `newlines`
  // lines further on.
  void setRawPosition(const char* position, int newlines);
  // Gives back text that was read, to be read again.
  void putBack(char c);
  void putBack(const char* text);
  // Skips whitespace and comments; false at the end of the input.
  bool skipWhiteSpace();
  // Looks at the next character after whitespace without consuming it.
  bool peek(char& c);

  // The names defined with DEF in what has been read. The input holds a
  // reference to each object until the file is closed.
  void addReference(const SbName& name, SoBase* base);
  void removeReference(const SbName& name);
  SoBase* findReference(const SbName& name) const;
  // Marks the current state of the name table; rollBackReferences() undoes
  // every definition made since (used when a read fails part-way).
  size_t markReferences() const;
  void rollBackReferences(size_t mark);

  // The objects being read, outermost first. Deep nesting is refused so
  // that a hostile file cannot exhaust the stack, and an object cannot be
  // used inside its own definition (that would make a cycle).
  int enterObject(SoBase* base);
  void leaveObject();
  bool isBeingRead(const SoBase* base) const;
  static constexpr int kMaxNesting = 1000;

  struct Source;  // one file or buffer on the input stack

 private:
  Source* cur() const;
  bool openSource(std::unique_ptr<Source> src, bool push);
  bool openStream(std::unique_ptr<Source> src, FILE* fp, bool push);
  bool fill();
  void popSource();
  bool readHeader(Source& src);
  bool readInteger(int64_t& value, bool isUnsigned);
  bool readBinaryWord(uint32_t& w);
  bool readBinaryDword(uint64_t& w);
  // Calls updateReadPercent() when the bottom file has passed the next percent.
  void reportProgress(const Source& src);
  void resetProgress();

  std::vector<std::unique_ptr<Source>> m_stack;
  struct RefEntry {
    SbName name;
    SoBase* added;     // referenced by the input until the file is closed
    SoBase* previous;  // what the name meant before this definition
  };
  std::unordered_map<SbName, SoBase*> m_refs;
  std::vector<RefEntry> m_refLog;
  std::vector<SoBase*> m_reading;
  FileTypes m_fileType = Orvexa;
  size_t m_maxInputBytes;
  size_t m_maxInflatedBytes;
  SoInputParameters* m_parameters = nullptr;
  // Progress of the bottom file: the last whole percent reported, and the
  // position at which the next one is reached.
  int m_percentReported = 0;
  size_t m_nextPercentPos = 0;
};
