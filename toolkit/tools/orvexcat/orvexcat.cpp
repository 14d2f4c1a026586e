// orvexcat: reads scene files (or standard input) and writes the combined
// scene to standard output or a file, in ASCII or binary, optionally
// compressed. Read errors are reported with file and line; any failed read
// makes the tool exit with status 1 after reading every input. A failed
// write (a full disk, a closed pipe, a failing close) exits with status 2.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/nodes/SoSeparator.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <vector>

namespace {

const char kUsage[] =
    "usage: orvexcat [options] [file ...]\n"
    "Reads the scene files (standard input when none is given, or for \"-\")\n"
    "and writes the combined scene.\n"
    "  -o file   write to the file instead of standard output\n"
    "  -b        write the binary format\n"
    "  -z        compress the output (gzip); needs -o\n"
    "  -p digits significant digits of floats (default: as many as needed)\n"
    "  --max-input-bytes N\n"
    "            refuse an input (file or standard input, as stored) larger\n"
    "            than N bytes (default 1G)\n"
    "  --max-inflated-bytes N\n"
    "            refuse a compressed input that inflates to more than N bytes\n"
    "            (default 1G)\n"
    "            N may end in K, M or G (powers of 1024)\n"
    "  -h        show this help\n"
    "Exit status: 0 done, 1 an input could not be read, 2 bad arguments or\n"
    "the output could not be written.\n";

struct Options {
  std::vector<std::string> inputs;
  std::string output;
  bool binary = false;
  bool compress = false;
  int precision = 0;
  size_t maxInputBytes = 0;     // 0: the reader's default
  size_t maxInflatedBytes = 0;
};

// A byte count with an optional K, M or G suffix (powers of 1024); answers
// false for anything else, zero and values that do not fit.
bool parseByteCount(const char* text, size_t& bytes) {
  if (!text || *text < '0' || *text > '9') return false;
  errno = 0;
  char* end = nullptr;
  const unsigned long long value = std::strtoull(text, &end, 10);
  if (errno == ERANGE || value == 0) return false;
  unsigned shift = 0;
  if (*end == 'K' || *end == 'k') shift = 10;
  if (*end == 'M' || *end == 'm') shift = 20;
  if (*end == 'G' || *end == 'g') shift = 30;
  if (shift) ++end;
  if (*end) return false;
  if (value > (std::numeric_limits<size_t>::max() >> shift)) return false;
  bytes = static_cast<size_t>(value) << shift;
  return true;
}

// Answers false (after printing why) when the arguments are not usable.
bool parseArguments(int argc, char** argv, Options& options) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "-h" || arg == "--help") {
      std::fputs(kUsage, stdout);
      std::exit(0);
    } else if (arg == "-o" || arg == "-p") {
      if (i + 1 >= argc) {
        std::fprintf(stderr, "orvexcat: %s needs a value\n", arg.c_str());
        return false;
      }
      if (arg == "-o") {
        options.output = argv[++i];
      } else {
        char* end = nullptr;
        const long digits = std::strtol(argv[++i], &end, 10);
        if (!end || *end || digits < 1 || digits > 9) {
          std::fprintf(stderr, "orvexcat: -p takes 1 to 9 digits\n");
          return false;
        }
        options.precision = static_cast<int>(digits);
      }
    } else if (arg == "--max-input-bytes" || arg == "--max-inflated-bytes") {
      size_t bytes = 0;
      if (i + 1 >= argc || !parseByteCount(argv[i + 1], bytes)) {
        std::fprintf(stderr, "orvexcat: %s needs a byte count (like 500000, 64K, 200M or 2G)\n", arg.c_str());
        return false;
      }
      ++i;
      (arg == "--max-input-bytes" ? options.maxInputBytes : options.maxInflatedBytes) = bytes;
    } else if (arg == "-b") {
      options.binary = true;
    } else if (arg == "-z") {
      options.compress = true;
    } else if (arg.size() > 1 && arg[0] == '-') {
      std::fprintf(stderr, "orvexcat: unknown option %s\n%s", arg.c_str(), kUsage);
      return false;
    } else {
      options.inputs.push_back(arg);
    }
  }
  if (options.compress && options.output.empty()) {
    std::fprintf(stderr, "orvexcat: -z needs an output file (-o)\n");
    return false;
  }
  if (options.inputs.empty()) options.inputs.push_back("-");
  return true;
}

// The scene of one input, referenced; nullptr after a read error (which
// the toolkit has reported with the file and line).
SoSeparator* readInput(const std::string& name, const Options& options) {
  SoInput in;
  if (options.maxInputBytes) in.setMaxInputBytes(options.maxInputBytes);
  if (options.maxInflatedBytes) in.setMaxInflatedBytes(options.maxInflatedBytes);
  if (name == "-") {
    in.setFilePointer(stdin);
  } else if (!in.openFile(name.c_str())) {
    return nullptr;
  }
  SoSeparator* root = SoDB::readAll(&in);
  if (root) root->ref();
  return root;
}

// Writes the scene; answers false (after printing why) when the output
// could not be written completely.
bool writeScene(SoSeparator* scene, const Options& options) {
  SoOutput out;
  out.setBinary(options.binary);
  if (options.precision) out.setFloatPrecision(options.precision);
  if (options.compress) out.setFileProperty(SoOutput::CompressedZlib);
  const bool toFile = !options.output.empty();
  const std::string target = toFile ? options.output : std::string("standard output");
  if (toFile && !out.openFile(options.output.c_str())) {
    std::fprintf(stderr, "orvexcat: writing failed: cannot open %s\n", target.c_str());
    return false;
  }
  SoWriteAction action(&out);
  action.apply(scene);
  bool failed;
  if (toFile) {
    // Closing writes what is still buffered: a full disk shows up here.
    out.closeFile();
    failed = out.hasWriteError();
  } else {
    out.flushFile();
    failed = out.hasWriteError() || std::ferror(stdout) || std::fflush(stdout) != 0;
  }
  if (failed) std::fprintf(stderr, "orvexcat: writing failed: %s\n", target.c_str());
  return !failed;
}

int run(int argc, char** argv) {
  Options options;
  if (!parseArguments(argc, argv, options)) return 2;
  SoDB::init();

  // Every input is read, so that all errors are reported at once.
  std::vector<SoSeparator*> scenes;
  bool failed = false;
  for (const std::string& name : options.inputs) {
    SoSeparator* scene = readInput(name, options);
    if (scene)
      scenes.push_back(scene);
    else
      failed = true;
  }
  if (failed) {
    for (SoSeparator* s : scenes) s->unref();
    std::fprintf(stderr, "orvexcat: reading failed\n");
    return 1;
  }

  // One input is written as it is; several under one separator.
  SoSeparator* result = scenes.size() == 1 ? scenes[0] : new SoSeparator;
  if (scenes.size() != 1) {
    result->ref();
    for (SoSeparator* s : scenes) {
      result->addChild(s);
      s->unref();
    }
  }

  const bool written = writeScene(result, options);
  result->unref();
  return written ? 0 : 2;
}

}  // namespace

int main(int argc, char** argv) {
  // The reader turns running out of memory into read errors; anything
  // else that cannot get memory (writing a huge scene) ends here, with a
  // message instead of an abort.
  try {
    return run(argc, argv);
  } catch (const std::bad_alloc&) {
    std::fprintf(stderr, "orvexcat: out of memory\n");
    return 2;
  }
}
