// Reading with bounded memory: compressed files that inflate far beyond
// their size, endless streams, binary files whose counts promise more than
// they hold, and allocation failures in the middle of a read. Each must end
// in a read error (with the file and line) and a failed read, never in an
// abort or in memory growing with what the file claims.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSubNode.h>

#include <gtest/gtest.h>
#include <zlib.h>

#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "ErrorCapture.h"
#include "TestSupport.h"

// A node whose reading runs out of memory, as any allocation in a read may.
class Greedy : public SoNode {
  SO_NODE_HEADER(Greedy);

 public:
  static int live;
  Greedy() {
    SO_NODE_CONSTRUCTOR(Greedy);
    ++live;
  }
  bool readInstance(SoInput*, unsigned short) override { throw std::bad_alloc(); }

 protected:
  ~Greedy() override { --live; }
};
int Greedy::live = 0;
SO_NODE_SOURCE(Greedy)
void Greedy::initClass() { SO_NODE_INIT_CLASS(Greedy, SoNode, "Node"); }

// A group that counts its live instances, to show that failed reads free
// what they built.
class Counted : public SoGroup {
  SO_NODE_HEADER(Counted);

 public:
  static int live;
  Counted() {
    SO_NODE_CONSTRUCTOR(Counted);
    ++live;
  }

 protected:
  ~Counted() override { --live; }
};
int Counted::live = 0;
SO_NODE_SOURCE(Counted)
void Counted::initClass() { SO_NODE_INIT_CLASS(Counted, SoGroup, "Group"); }

namespace {

constexpr size_t kMiB = size_t(1) << 20;

class ReadLimitsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    Greedy::initClass();
    Counted::initClass();
  }
  void SetUp() override {
    Greedy::live = 0;
    Counted::live = 0;
    char pattern[] = "/tmp/orvex-readlimits-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    m_dir = pattern;
  }
  void TearDown() override { std::system(("rm -rf " + m_dir).c_str()); }

  std::string writeFile(const std::string& name, const std::string& content) {
    const std::string path = m_dir + "/" + name;
    std::ofstream f(path, std::ios::binary);
    f << content;
    return path;
  }

  std::string m_dir;
};

// One gzip member holding `data`, made with zlib.
std::string gzipMember(const std::string& data) {
  z_stream zs{};
  EXPECT_EQ(deflateInit2(&zs, Z_BEST_COMPRESSION, Z_DEFLATED, 16 + MAX_WBITS, 9, Z_DEFAULT_STRATEGY), Z_OK);
  std::string out(deflateBound(&zs, data.size()), '\0');
  zs.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  zs.avail_in = static_cast<uInt>(data.size());
  zs.next_out = reinterpret_cast<Bytef*>(out.data());
  zs.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(deflate(&zs, Z_FINISH), Z_STREAM_END);
  out.resize(zs.total_out);
  deflateEnd(&zs);
  return out;
}

// A compressed file of about 1 KB per MiB that inflates to `head` followed
// by `mib` MiB of blanks: gzip members of 1 MiB each, one after another
// (which readers must accept as one stream).
std::string gzipBomb(const std::string& head, size_t mib) {
  const std::string member = gzipMember(std::string(kMiB, ' '));
  std::string bomb = gzipMember(head);
  bomb.reserve(bomb.size() + member.size() * mib);
  for (size_t i = 0; i < mib; ++i) bomb += member;
  return bomb;
}

// The process's peak resident memory so far, in MiB.
long peakResidentMiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;  // kilobytes on Linux
}

const char kAsciiHeader[] = "#Orvex V1.0 ascii\n";

}  // namespace

TEST_F(ReadLimitsTest, LimitsHaveDefaultsAndSetters) {
  SoInput in;
  EXPECT_EQ(in.getMaxInputBytes(), size_t(1) << 30);
  EXPECT_EQ(in.getMaxInflatedBytes(), size_t(1) << 30);
  in.setMaxInputBytes(12345);
  in.setMaxInflatedBytes(678);
  EXPECT_EQ(in.getMaxInputBytes(), 12345u);
  EXPECT_EQ(in.getMaxInflatedBytes(), 678u);
}

TEST_F(ReadLimitsTest, GzipBombStopsAtTheInflatedLimit) {
  // 1 GiB of blanks in about 1 MB. Inflated whole it would add 1 GiB to the
  // peak memory; read through a limit of 1 MiB it adds next to nothing.
  const std::string bomb = gzipBomb(kAsciiHeader, 1024);
  ASSERT_LT(bomb.size(), 2 * kMiB);
  const std::string path = writeFile("bomb.ovx.gz", bomb);
  ErrorCapture<SoReadError> errors;
  const long peakBefore = peakResidentMiB();
  const auto start = std::chrono::steady_clock::now();
  {
    SoInput in;
    in.setMaxInflatedBytes(kMiB);
    EXPECT_FALSE(in.openFile(path.c_str()));
    EXPECT_FALSE(in.isValidBuffer());
    EXPECT_EQ(SoDB::readAll(&in), nullptr);
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  EXPECT_LT(peakResidentMiB() - peakBefore, 64) << "the bomb was inflated beyond the limit";
  EXPECT_LT(seconds, 5.0);
  ASSERT_GE(errors.count(), 1u);
  const std::string message = errors.records().front().text;
  EXPECT_NE(message.find("inflates to more than the limit of 1048576 bytes"), std::string::npos) << message;
  EXPECT_NE(message.find(path), std::string::npos) << message;

  // The same bytes in a memory buffer.
  SoInput buffer;
  buffer.setMaxInflatedBytes(kMiB);
  buffer.setBuffer(const_cast<char*>(bomb.data()), bomb.size());
  EXPECT_FALSE(buffer.isValidBuffer());
  EXPECT_EQ(SoDB::readAll(&buffer), nullptr);
  EXPECT_NE(errors.last().find("inflates to more than the limit"), std::string::npos) << errors.last();
}

TEST_F(ReadLimitsTest, CompressedFileBelowTheLimitReads) {
  const std::string scene = std::string(kAsciiHeader) + "Separator { Cube { width 2 } }\n";
  const std::string path = writeFile("small.ovx.gz", gzipMember(scene) + gzipMember(std::string(1000, ' ')));
  SoInput in;
  in.setMaxInflatedBytes(scene.size() + 1000);  // exactly what it inflates to
  ASSERT_TRUE(in.openFile(path.c_str()));
  orvextest::Ref<SoSeparator> root(SoDB::readAll(&in));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumChildren(), 1);
  SoInput tight;
  ErrorCapture<SoReadError> errors;
  tight.setMaxInflatedBytes(scene.size() + 999);
  EXPECT_FALSE(tight.openFile(path.c_str()));
  EXPECT_NE(errors.last().find("limit"), std::string::npos) << errors.last();
}

TEST_F(ReadLimitsTest, CompressedContentWithoutHeaderIsRefusedAtOnce) {
  // 1 GiB of zeros compressed: with the default limits the first inflated
  // chunk already shows that it is no scene file.
  const std::string member = gzipMember(std::string(kMiB, '\0'));
  std::string zeros;
  for (int i = 0; i < 1024; ++i) zeros += member;
  const std::string path = writeFile("zeros.gz", zeros);
  ErrorCapture<SoReadError> errors;
  const long peakBefore = peakResidentMiB();
  SoInput in;
  EXPECT_FALSE(in.openFile(path.c_str()));
  EXPECT_LT(peakResidentMiB() - peakBefore, 64);
  EXPECT_NE(errors.last().find("no header"), std::string::npos) << errors.last();
}

TEST_F(ReadLimitsTest, FileOverTheInputLimitIsRefused) {
  const std::string path = writeFile("large.ovx", std::string(kAsciiHeader) + std::string(2 * kMiB, ' '));
  ErrorCapture<SoReadError> errors;
  SoInput in;
  in.setMaxInputBytes(kMiB);
  EXPECT_FALSE(in.openFile(path.c_str()));
  EXPECT_EQ(SoDB::readAll(&in), nullptr);
  EXPECT_NE(errors.last().find("larger than the limit of 1048576 bytes"), std::string::npos) << errors.last();
  EXPECT_NE(errors.last().find(path), std::string::npos) << errors.last();
  // pushFile obeys the same limit and leaves the current file as it was.
  const std::string small = writeFile("small.ovx", std::string(kAsciiHeader) + "Cube { }\n");
  ASSERT_TRUE(in.openFile(small.c_str()));
  EXPECT_FALSE(in.pushFile(path.c_str()));
  orvextest::Ref<SoSeparator> root(SoDB::readAll(&in));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumChildren(), 1);
  // At the limit exactly, the file reads.
  SoInput exact;
  exact.setMaxInputBytes(std::string(kAsciiHeader).size() + 2 * kMiB);
  EXPECT_TRUE(exact.openFile(path.c_str()));
}

TEST_F(ReadLimitsTest, EndlessStreamStopsAtTheInputLimit) {
  // A valid header followed by blanks that never end (bounded here at
  // 256 MiB, so that a reader without a limit fails the test rather than
  // hanging it).
  int fds[2];
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, fds), 0);
  std::thread writer([fd = fds[1]] {
    const std::string header = kAsciiHeader;
    send(fd, header.data(), header.size(), MSG_NOSIGNAL);
    const std::string blanks(65536, ' ');
    for (size_t sent = 0; sent < 256 * kMiB; sent += blanks.size())
      if (send(fd, blanks.data(), blanks.size(), MSG_NOSIGNAL) <= 0) break;  // the reader has gone
    close(fd);
  });
  FILE* fp = fdopen(fds[0], "rb");
  ASSERT_NE(fp, nullptr);
  ErrorCapture<SoReadError> errors;
  {
    SoInput in;
    in.setMaxInputBytes(4 * kMiB);
    in.setFilePointer(fp);
    EXPECT_FALSE(in.isValidBuffer());
    EXPECT_EQ(SoDB::readAll(&in), nullptr);
  }
  std::fclose(fp);  // the writer's next send fails and it stops
  writer.join();
  ASSERT_GE(errors.count(), 1u);
  EXPECT_NE(errors.records().front().text.find("larger than the limit of 4194304 bytes"), std::string::npos)
      << errors.records().front().text;
}

TEST_F(ReadLimitsTest, DeviceWithoutEndIsRefusedAtOnce) {
  if (access("/dev/zero", R_OK) != 0) GTEST_SKIP() << "no /dev/zero";
  ErrorCapture<SoReadError> errors;
  const auto start = std::chrono::steady_clock::now();
  SoInput in;
  EXPECT_FALSE(in.openFile("/dev/zero"));
  EXPECT_EQ(SoDB::readAll(&in), nullptr);
  EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), 5.0);
  EXPECT_NE(errors.last().find("no header"), std::string::npos) << errors.last();
  EXPECT_NE(errors.last().find("/dev/zero"), std::string::npos) << errors.last();
}

TEST_F(ReadLimitsTest, BinaryCountsAreCheckedAgainstTheValueSize) {
  // A binary Coordinate3 whose point count (4 bytes per promised value
  // would fit in what follows, 12 bytes per value do not) is far beyond
  // its data. It must fail without allocating for the count.
  orvextest::Ref<SoCoordinate3> coords(new SoCoordinate3);
  coords->point.setValues(0, 3, std::vector<SbVec3f>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}.data());
  const std::string good = orvextest::writeToString(coords.get(), true);
  {
    orvextest::Ref<SoSeparator> root(orvextest::readFromString(good));
    ASSERT_TRUE(root);
  }
  // The count is the word after the field name "point".
  const size_t at = good.find("point");
  ASSERT_NE(at, std::string::npos);
  const size_t countAt = at + 8;  // "point" padded to 8 bytes
  uint32_t count;
  std::memcpy(&count, good.data() + countAt, 4);
  ASSERT_EQ(count, 3u);

  // 32 MiB of data after the count, 8 M values promised (96 MB as points).
  const uint32_t promised = 8u << 20;
  std::string lying = good.substr(0, countAt);
  lying.append(reinterpret_cast<const char*>(&promised), 4);
  lying.append(32 * kMiB, '\0');
  ErrorCapture<SoReadError> errors;
  const long peakBefore = peakResidentMiB();
  SoInput in;
  in.setBuffer(lying.data(), lying.size());
  EXPECT_EQ(SoDB::readAll(&in), nullptr);
  EXPECT_LT(peakResidentMiB() - peakBefore, 64) << "memory was allocated for the promised count";
  ASSERT_GE(errors.count(), 1u);
  EXPECT_NE(errors.last().find("point"), std::string::npos) << errors.last();

  // One value more than the data holds fails too; the exact count reads.
  std::string oneMore = good;
  const uint32_t four = 4;
  std::memcpy(oneMore.data() + countAt, &four, 4);
  SoInput short1;
  short1.setBuffer(oneMore.data(), oneMore.size());
  EXPECT_EQ(SoDB::readAll(&short1), nullptr);
}

TEST_F(ReadLimitsTest, RunningOutOfMemoryIsAReadError) {
  ErrorCapture<SoReadError> errors;
  const std::string text = std::string(kAsciiHeader) + "DEF outer Counted {\n  Counted { }\n  Greedy { }\n}\n";
  {
    SoInput in;
    in.setBuffer(const_cast<char*>(text.data()), text.size());
    EXPECT_EQ(SoDB::readAll(&in), nullptr);
    EXPECT_EQ(in.findReference("outer"), nullptr);
  }
  EXPECT_EQ(Counted::live, 0);
  EXPECT_EQ(Greedy::live, 0);
  ASSERT_GE(errors.count(), 1u);
  const std::string message = errors.records().front().text;
  EXPECT_NE(message.find("Out of memory"), std::string::npos) << message;
  EXPECT_NE(message.find("line 4"), std::string::npos) << message;
}

// Sanitizers reserve address space of their own and handle allocation
// failures themselves: the address-space limit below is for plain builds.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ORVEX_TEST_PLAIN_ALLOCATOR 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define ORVEX_TEST_PLAIN_ALLOCATOR 0
#endif
#endif
#ifndef ORVEX_TEST_PLAIN_ALLOCATOR
#define ORVEX_TEST_PLAIN_ALLOCATOR 1
#endif

namespace {

// Runs in a child process: limits its address space to what it uses and
// 32 MiB more, reads the file, and exits with 0 when the read failed with
// an out-of-memory read error (1 otherwise, 3 when the limit cannot be set).
[[noreturn]] void readWithLittleRoom(std::string& file) {
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t used = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
  rlimit limit{};
  limit.rlim_cur = limit.rlim_max = used + 32 * kMiB;
  if (pages <= 0 || setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(3);
  ErrorCapture<SoReadError> errors;
  SoInput in;
  in.setBuffer(file.data(), file.size());
  SoSeparator* root = SoDB::readAll(&in);
  const std::string message = errors.last();
  const bool reported = message.find("Out of memory") != std::string::npos && message.find("line") != std::string::npos;
  std::_Exit(root == nullptr && reported ? 0 : 1);
}

}  // namespace

TEST_F(ReadLimitsTest, AnAllocationThatFailsIsAReadError) {
  if (!ORVEX_TEST_PLAIN_ALLOCATOR) GTEST_SKIP() << "the sanitizer's allocator reports failures itself";
  rlimit current{};
  if (getrlimit(RLIMIT_AS, &current) != 0 || current.rlim_cur != RLIM_INFINITY)
    GTEST_SKIP() << "the address space is limited already";
  // An honest binary file of 8 M points (96 MB): reading it allocates as
  // much again. In a child process whose address space leaves 32 MiB of
  // room, that allocation fails for real.
  orvextest::Ref<SoCoordinate3> coords(new SoCoordinate3);
  coords->point.setValues(0, 1, std::vector<SbVec3f>{{1, 2, 3}}.data());
  const std::string one = orvextest::writeToString(coords.get(), true);
  const size_t countAt = one.find("point") + 8;
  const uint32_t count = 8u << 20;
  std::string file = one.substr(0, countAt);
  file.append(reinterpret_cast<const char*>(&count), 4);
  file.append(size_t(count) * 12, '\0');
  EXPECT_EXIT(readWithLittleRoom(file), ::testing::ExitedWithCode(0), "");
}
