// Measures, in one run, the scene-graph core against plain C++ doing the same
// work, and prints the figures and their ratios:
//  - writing and reading a mesh of 1,000,000 vertices (an SoIndexedFaceSet
//    with its SoCoordinate3), against a floor that parses the same numbers
//    from the same text with std::from_chars;
//  - building, searching and destroying a tree of 1,000,000 nodes, against a
//    plain C++ tree of the same shape;
//  - the memory one group node takes.
// Nothing is asserted: the program only reports.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/SoPath.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoSeparator.h>

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point a, Clock::time_point b) { return std::chrono::duration<double>(b - a).count(); }

// Best of a few runs of `f`, in seconds.
template <class F>
double bestOf(int runs, F f) {
  double best = 1e30;
  for (int i = 0; i < runs; ++i) {
    const auto t0 = Clock::now();
    f();
    best = std::min(best, seconds(t0, Clock::now()));
  }
  return best;
}

void row(const char* what, double ours, double floor, const char* floorName) {
  std::printf("  %-34s %9.1f ms   %-22s %9.1f ms   ratio %6.2f\n", what, ours * 1e3, floorName, floor * 1e3,
              floor > 0 ? ours / floor : 0.0);
}

// ---- the mesh -------------------------------------------------------------------------

constexpr int kGrid = 1000;  // kGrid x kGrid vertices

SoSeparator* buildMesh() {
  auto* root = new SoSeparator;
  auto* coords = new SoCoordinate3;
  auto* faces = new SoIndexedFaceSet;
  root->addChild(coords);
  root->addChild(faces);
  SbVec3f* points = nullptr;
  coords->point.setNum(kGrid * kGrid);
  points = coords->point.startEditing();
  for (int y = 0; y < kGrid; ++y)
    for (int x = 0; x < kGrid; ++x) {
      // Values with several significant digits, as real meshes have.
      const float fx = x * 0.0137f + 0.25f * std::sin(y * 0.01f);
      const float fy = y * 0.0211f - 3.5f;
      const float fz = 0.125f * std::cos(x * 0.02f) * std::sin(y * 0.03f);
      points[y * kGrid + x].setValue(fx, fy, fz);
    }
  coords->point.finishEditing();
  const int quads = (kGrid - 1) * (kGrid - 1);
  faces->coordIndex.setNum(quads * 2 * 4);
  int32_t* idx = faces->coordIndex.startEditing();
  int k = 0;
  for (int y = 0; y + 1 < kGrid; ++y)
    for (int x = 0; x + 1 < kGrid; ++x) {
      const int v = y * kGrid + x;
      idx[k++] = v;
      idx[k++] = v + 1;
      idx[k++] = v + kGrid;
      idx[k++] = -1;
      idx[k++] = v + 1;
      idx[k++] = v + kGrid + 1;
      idx[k++] = v + kGrid;
      idx[k++] = -1;
    }
  faces->coordIndex.finishEditing();
  return root;
}

// The floor: every number of the text, parsed with std::from_chars into
// arrays (floats where the text has a point or exponent, else integers).
size_t parseNumbersFloor(const std::string& text, std::vector<float>& floats, std::vector<int32_t>& ints) {
  floats.clear();
  ints.clear();
  const char* p = text.data();
  const char* end = p + text.size();
  while (p < end) {
    const char c = *p;
    if ((c >= '0' && c <= '9') || c == '-' || c == '.') {
      const char* q = p;
      bool real = false;
      while (q < end && ((*q >= '0' && *q <= '9') || *q == '-' || *q == '+' || *q == '.' || *q == 'e' || *q == 'E')) {
        real = real || *q == '.' || *q == 'e' || *q == 'E';
        ++q;
      }
      if (real) {
        float f;
        std::from_chars(p, q, f);
        floats.push_back(f);
      } else {
        int32_t i;
        std::from_chars(p, q, i);
        ints.push_back(i);
      }
      p = q;
    } else {
      ++p;
    }
  }
  return floats.size() + ints.size();
}

std::string readFile(const std::string& path) {
  std::string data;
  FILE* fp = std::fopen(path.c_str(), "rb");
  if (!fp) return data;
  char chunk[1 << 16];
  size_t n;
  while ((n = std::fread(chunk, 1, sizeof chunk, fp)) > 0) data.append(chunk, n);
  std::fclose(fp);
  return data;
}

void writeFile(SoNode* root, const std::string& path, bool binary) {
  SoOutput out;
  out.setBinary(binary);
  if (!out.openFile(path.c_str())) return;
  SoWriteAction action(&out);
  action.apply(root);
  out.closeFile();
}

SoSeparator* readFileScene(const std::string& path) {
  SoInput in;
  if (!in.openFile(path.c_str())) return nullptr;
  return SoDB::readAll(&in);
}

void meshBenchmark() {
  std::printf("Mesh of %d vertices, %d triangles, written to and read from files in /tmp\n", kGrid * kGrid,
              2 * (kGrid - 1) * (kGrid - 1));
  SoSeparator* mesh = buildMesh();
  mesh->ref();
  const std::string asciiPath = "/tmp/orvex-bench-mesh.ovx";
  const std::string binaryPath = "/tmp/orvex-bench-mesh-binary.ovx";
  const std::string floorPath = "/tmp/orvex-bench-mesh-floor.txt";

  const double writeAscii = bestOf(3, [&] { writeFile(mesh, asciiPath, false); });
  const double writeBinary = bestOf(3, [&] { writeFile(mesh, binaryPath, true); });

  // Writing floor: the same numbers formatted with std::to_chars and
  // written to a file in large blocks.
  const auto* coords = static_cast<SoCoordinate3*>(mesh->getChild(0));
  const auto* faces = static_cast<SoIndexedFaceSet*>(mesh->getChild(1));
  const double writeFloor = bestOf(3, [&] {
    FILE* fp = std::fopen(floorPath.c_str(), "wb");
    std::string block;
    block.reserve(1 << 17);
    char buf[32];
    auto flush = [&] {
      std::fwrite(block.data(), 1, block.size(), fp);
      block.clear();
    };
    const SbVec3f* pts = coords->point.getValues(0);
    for (int i = 0; i < coords->point.getNum(); ++i) {
      for (int c = 0; c < 3; ++c) {
        auto r = std::to_chars(buf, buf + sizeof buf, pts[i][c]);
        block.append(buf, r.ptr);
        block += ' ';
      }
      if (block.size() > (1 << 16)) flush();
    }
    const int32_t* ix = faces->coordIndex.getValues(0);
    for (int i = 0; i < faces->coordIndex.getNum(); ++i) {
      auto r = std::to_chars(buf, buf + sizeof buf, ix[i]);
      block.append(buf, r.ptr);
      block += ' ';
      if (block.size() > (1 << 16)) flush();
    }
    flush();
    std::fclose(fp);
  });

  const std::string ascii = readFile(asciiPath);
  const size_t binarySize = readFile(binaryPath).size();
  std::printf("  file sizes: ASCII %.1f MB, binary %.1f MB\n", ascii.size() / 1e6, binarySize / 1e6);

  // Reading floor: the file read into memory, then every number of its text
  // parsed with std::from_chars into arrays.
  std::vector<float> floats;
  std::vector<int32_t> ints;
  size_t numbers = 0;
  const double parseFloor = bestOf(3, [&] {
    const std::string text = readFile(asciiPath);
    numbers = parseNumbersFloor(text, floats, ints);
  });

  int readVertices = 0;
  const double readAscii = bestOf(3, [&] {
    SoSeparator* root = readFileScene(asciiPath);
    root->ref();
    readVertices = static_cast<SoCoordinate3*>(root->getChild(0))->point.getNum();
    root->unref();
  });
  const double readBinary = bestOf(3, [&] {
    SoSeparator* root = readFileScene(binaryPath);
    root->ref();
    root->unref();
  });

  std::printf("  numbers in the text: %zu (floor) ; vertices read back: %d\n", numbers, readVertices);
  row("read ASCII file (SoDB::readAll)", readAscii, parseFloor, "from_chars floor");
  std::printf("  %-34s %9.1f MB/s  %-22s %9.1f MB/s  -> %.0f%% of the floor's throughput\n", "",
              ascii.size() / 1e6 / readAscii, "", ascii.size() / 1e6 / parseFloor, 100.0 * parseFloor / readAscii);
  row("write ASCII file (SoWriteAction)", writeAscii, writeFloor, "to_chars floor");
  row("read binary file", readBinary, parseFloor, "from_chars floor");
  row("write binary file", writeBinary, writeFloor, "to_chars floor");
  mesh->unref();
  std::remove(asciiPath.c_str());
  std::remove(binaryPath.c_str());
  std::remove(floorPath.c_str());
}

// ---- the tree ---------------------------------------------------------------------------

constexpr int kBranches = 1000;
constexpr int kLeavesPerBranch = 999;  // 1 + 1000 + 999,000 = 1,000,001 nodes

struct PlainNode {
  int type;  // 0 separator, 1 group, 2 cube
  std::string name;
  std::vector<std::unique_ptr<PlainNode>> children;
};

std::unique_ptr<PlainNode> buildPlainTree() {
  auto root = std::make_unique<PlainNode>();
  root->type = 0;
  root->children.reserve(kBranches);
  for (int b = 0; b < kBranches; ++b) {
    auto group = std::make_unique<PlainNode>();
    group->type = 1;
    group->children.reserve(kLeavesPerBranch);
    for (int l = 0; l < kLeavesPerBranch; ++l) {
      auto leaf = std::make_unique<PlainNode>();
      leaf->type = 2;
      if (b == kBranches - 1 && l == kLeavesPerBranch - 1) leaf->name = "target";
      group->children.push_back(std::move(leaf));
    }
    root->children.push_back(std::move(group));
  }
  return root;
}

// Depth-first search collecting the chain of child indices, like a path.
bool plainFindByName(const PlainNode* node, const std::string& name, std::vector<int>& path) {
  if (node->name == name) return true;
  for (size_t i = 0; i < node->children.size(); ++i) {
    path.push_back(static_cast<int>(i));
    if (plainFindByName(node->children[i].get(), name, path)) return true;
    path.pop_back();
  }
  return false;
}

void plainFindAllOfType(const PlainNode* node, int type, std::vector<int>& path, std::vector<std::vector<int>>& found) {
  if (node->type == type) found.push_back(path);
  for (size_t i = 0; i < node->children.size(); ++i) {
    path.push_back(static_cast<int>(i));
    plainFindAllOfType(node->children[i].get(), type, path, found);
    path.pop_back();
  }
}

SoSeparator* buildTree() {
  auto* root = new SoSeparator;
  for (int b = 0; b < kBranches; ++b) {
    auto* group = new SoGroup(kLeavesPerBranch);
    for (int l = 0; l < kLeavesPerBranch; ++l) {
      auto* leaf = new SoCube;
      if (b == kBranches - 1 && l == kLeavesPerBranch - 1) leaf->setName("target");
      group->addChild(leaf);
    }
    root->addChild(group);
  }
  return root;
}

void treeBenchmark() {
  std::printf("Tree of %d nodes (one separator, %d groups of %d cubes)\n", 1 + kBranches + kBranches * kLeavesPerBranch,
              kBranches, kLeavesPerBranch);
  SoSeparator* tree = nullptr;
  std::unique_ptr<PlainNode> plain;
  const double build = bestOf(1, [&] {
    tree = buildTree();
    tree->ref();
  });
  const double buildPlain = bestOf(1, [&] { plain = buildPlainTree(); });

  int pathLength = 0;
  const double searchName = bestOf(3, [&] {
    SoSearchAction search;
    search.setName("target");
    search.apply(tree);
    pathLength = search.getPath() ? search.getPath()->getLength() : 0;
  });
  std::vector<int> plainPath;
  const double searchNamePlain = bestOf(3, [&] {
    plainPath.clear();
    plainFindByName(plain.get(), "target", plainPath);
  });

  int groupsFound = 0;
  const double searchType = bestOf(3, [&] {
    SoSearchAction search;
    search.setType(SoGroup::getClassTypeId(), false);
    search.setInterest(SoSearchAction::ALL);
    search.apply(tree);
    groupsFound = search.getPaths().getLength();
  });
  std::vector<std::vector<int>> plainFound;
  const double searchTypePlain = bestOf(3, [&] {
    plainFound.clear();
    std::vector<int> path;
    plainFindAllOfType(plain.get(), 1, path, plainFound);
  });

  const double destroy = bestOf(1, [&] { tree->unref(); });
  const double destroyPlain = bestOf(1, [&] { plain.reset(); });

  std::printf("  found: path of %d nodes (plain %zu indices); %d groups (plain %zu)\n", pathLength, plainPath.size(),
              groupsFound, plainFound.size());
  row("build", build, buildPlain, "plain C++ tree");
  row("search by name (first)", searchName, searchNamePlain, "plain depth-first");
  row("search by type (all groups)", searchType, searchTypePlain, "plain depth-first");
  row("destroy", destroy, destroyPlain, "plain C++ tree");
}

// ---- memory -----------------------------------------------------------------------------

size_t heapInUse() { return mallinfo2().uordblks; }

template <class Make>
double bytesPerNode(int count, Make make) {
  std::vector<SoNode*> nodes;
  nodes.reserve(static_cast<size_t>(count));
  const size_t before = heapInUse();
  for (int i = 0; i < count; ++i) {
    SoNode* n = make();
    n->ref();
    nodes.push_back(n);
  }
  const size_t after = heapInUse();
  for (SoNode* n : nodes) n->unref();
  return static_cast<double>(after - before) / count;
}

void memoryBenchmark() {
  constexpr int kCount = 100000;
  std::printf("Memory (heap in use, %d nodes each, allocator overhead included)\n", kCount);
  std::printf("  empty SoGroup        %6.1f bytes per node (sizeof %zu)\n",
              bytesPerNode(kCount, [] { return new SoGroup; }), sizeof(SoGroup));
  std::printf("  empty SoSeparator    %6.1f bytes per node (sizeof %zu)\n",
              bytesPerNode(kCount, [] { return new SoSeparator; }), sizeof(SoSeparator));
  std::printf("  SoCube               %6.1f bytes per node (sizeof %zu)\n",
              bytesPerNode(kCount, [] { return new SoCube; }), sizeof(SoCube));
  // A group holding one child: the child list grows and the child audits.
  SoCube* shared = new SoCube;
  shared->ref();
  std::printf("  SoGroup with a child %6.1f bytes per node\n", bytesPerNode(kCount / 10, [shared] {
                auto* g = new SoGroup;
                g->addChild(shared);
                return g;
              }));
  shared->unref();
  std::printf("  plain C++ node       %6.1f bytes per node (sizeof %zu)\n", [] {
    std::vector<std::unique_ptr<PlainNode>> nodes;
    nodes.reserve(kCount);
    const size_t before = heapInUse();
    for (int i = 0; i < kCount; ++i) nodes.push_back(std::make_unique<PlainNode>());
    return static_cast<double>(heapInUse() - before) / kCount;
  }(), sizeof(PlainNode));
}

}  // namespace

int main() {
  SoDB::init();
  std::printf("Scene-graph benchmark (figures of this run; ratio = ours / plain)\n\n");
  meshBenchmark();
  std::printf("\n");
  treeBenchmark();
  std::printf("\n");
  memoryBenchmark();
  return 0;
}
