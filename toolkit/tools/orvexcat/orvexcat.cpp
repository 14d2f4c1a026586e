// orvexcat: reads scene files (or standard input) and writes the combined
// scene to standard output or a file, in ASCII or binary, optionally
// compressed. Read errors are reported with file and line; any failed read
// makes the tool exit with status 1 after reading every input.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/nodes/SoSeparator.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
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
    "  -h        show this help\n";

struct Options {
  std::vector<std::string> inputs;
  std::string output;
  bool binary = false;
  bool compress = false;
  int precision = 0;
};

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
SoSeparator* readInput(const std::string& name) {
  SoInput in;
  if (name == "-") {
    in.setFilePointer(stdin);
  } else if (!in.openFile(name.c_str())) {
    return nullptr;
  }
  SoSeparator* root = SoDB::readAll(&in);
  if (root) root->ref();
  return root;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (!parseArguments(argc, argv, options)) return 2;
  SoDB::init();

  // Every input is read, so that all errors are reported at once.
  std::vector<SoSeparator*> scenes;
  bool failed = false;
  for (const std::string& name : options.inputs) {
    SoSeparator* scene = readInput(name);
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

  SoOutput out;
  out.setBinary(options.binary);
  if (options.precision) out.setFloatPrecision(options.precision);
  if (options.compress) out.setFileProperty(SoOutput::CompressedZlib);
  if (!options.output.empty() && !out.openFile(options.output.c_str())) {
    result->unref();
    return 2;
  }
  SoWriteAction action(&out);
  action.apply(result);
  out.closeFile();
  const bool writeFailed = options.output.empty() && std::ferror(stdout);
  result->unref();
  if (writeFailed) {
    std::fprintf(stderr, "orvexcat: writing failed\n");
    return 2;
  }
  return 0;
}
