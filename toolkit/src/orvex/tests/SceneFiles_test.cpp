// Reading and writing scene files: round trips of every field type, shared
// nodes, binary and compressed files, unknown nodes, and the input's file
// handling.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/SoPath.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoUnknownNode.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

#include "ErrorCapture.h"
#include "TestAllFields.h"
#include "TestSupport.h"

using orvextest::make;
using orvextest::readFromString;
using orvextest::Ref;
using orvextest::writeToString;

namespace {

class SceneFilesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    TestAllFields::initClass();
  }

  // A directory of its own for files the test writes.
  std::string tempDir() {
    if (m_dir.empty()) {
      char pattern[] = "/tmp/orvex-scenefiles-XXXXXX";
      m_dir = mkdtemp(pattern);
    }
    return m_dir;
  }
  void TearDown() override {
    if (!m_dir.empty()) std::system(("rm -rf " + m_dir).c_str());
  }

  static void writeFile(const std::string& path, const std::string& text) {
    std::ofstream f(path, std::ios::binary);
    f << text;
  }

 private:
  std::string m_dir;
};

// The first node of that type under root.
template <class T>
T* findFirst(SoNode* root) {
  SoSearchAction search;
  search.setType(T::getClassTypeId());
  search.apply(root);
  return search.getPath() ? static_cast<T*>(search.getPath()->getTail()) : nullptr;
}

// Builds a graph with every field type set, including shared nodes and a path.
Ref<SoSeparator> buildAllFieldsScene(TestAllFields*& fieldsNode) {
  auto root = make(new SoSeparator);
  auto* shared = new SoCube;
  shared->width = 5;
  auto* fields = new TestAllFields;
  fields->fillPlainValues();
  root->addChild(shared);
  root->addChild(fields);
  root->addChild(shared);
  auto* holder = new SoGroup;
  holder->addChild(new SoSphere);
  root->addChild(holder);
  fields->fSFNode.setValue(holder);
  fields->fMFNode.addNode(shared);
  fields->fMFNode.addNode(new SoCone);
  fields->fMFNode.addNode(shared);
  // A path in another graph (a path into the graph being read would refer
  // to a node whose children are not all read yet).
  auto* path = new SoPath(holder);
  path->append(0);
  fields->fSFPath.setValue(path);
  fields->fMFPath.setValue(path);
  fields->fSFFieldContainer.setValue(shared);
  fields->fMFFieldContainer.setValue(new SoSphere);
  fieldsNode = fields;
  return root;
}

// Compares every plain field of two nodes; rotations may differ in the last
// bit after the axis-and-angle form.
void expectSameFields(TestAllFields* a, TestAllFields* b) {
  auto fa = a->plainFields();
  auto fb = b->plainFields();
  ASSERT_EQ(fa.size(), fb.size());
  for (size_t i = 0; i < fa.size(); ++i) {
    SoField* x = fa[i].second;
    SoField* y = fb[i].second;
    if (x->isOfType(SoSFRotation::getClassTypeId())) {
      EXPECT_TRUE(static_cast<SoSFRotation*>(x)->getValue().equals(static_cast<SoSFRotation*>(y)->getValue(), 1e-6f));
    } else if (x->isOfType(SoMFRotation::getClassTypeId())) {
      auto* mx = static_cast<SoMFRotation*>(x);
      auto* my = static_cast<SoMFRotation*>(y);
      ASSERT_EQ(mx->getNum(), my->getNum());
      for (int k = 0; k < mx->getNum(); ++k) EXPECT_TRUE((*mx)[k].equals((*my)[k], 1e-6f)) << fa[i].first;
    } else if (x->isOfType(SoSFRotationd::getClassTypeId())) {
      EXPECT_TRUE(static_cast<SoSFRotationd*>(x)->getValue().equals(static_cast<SoSFRotationd*>(y)->getValue(), 1e-12));
    } else if (x->isOfType(SoMFRotationd::getClassTypeId())) {
      auto* mx = static_cast<SoMFRotationd*>(x);
      auto* my = static_cast<SoMFRotationd*>(y);
      ASSERT_EQ(mx->getNum(), my->getNum());
      for (int k = 0; k < mx->getNum(); ++k) EXPECT_TRUE((*mx)[k].equals((*my)[k], 1e-12)) << fa[i].first;
    } else {
      SbString tx, ty;
      x->get(tx);
      y->get(ty);
      EXPECT_TRUE(x->isSame(*y)) << fa[i].first << ": " << tx.getString() << " vs " << ty.getString();
    }
    EXPECT_FALSE(y->isDefault()) << fa[i].first;
  }
}

void expectSameSharing(SoSeparator* root, TestAllFields* fields) {
  ASSERT_EQ(root->getNumChildren(), 4);
  SoNode* shared = root->getChild(0);
  EXPECT_TRUE(shared->isOfType(SoCube::getClassTypeId()));
  EXPECT_EQ(static_cast<SoCube*>(shared)->width.getValue(), 5.0f);
  EXPECT_EQ(root->getChild(2), shared);               // the same node twice
  EXPECT_EQ(fields->fMFNode.getNode(0), shared);      // and from a field
  EXPECT_EQ(fields->fMFNode.getNode(2), shared);
  EXPECT_TRUE(fields->fMFNode.getNode(1)->isOfType(SoCone::getClassTypeId()));
  EXPECT_EQ(fields->fSFNode.getValue(), root->getChild(3));
  EXPECT_EQ(fields->fSFFieldContainer.getValue(), shared);
  SoPath* path = fields->fSFPath.getValue();
  ASSERT_NE(path, nullptr);
  EXPECT_EQ(path->getHead(), root->getChild(3));
  EXPECT_EQ(path->getLength(), 2);
  EXPECT_TRUE(path->getTail()->isOfType(SoSphere::getClassTypeId()));
  EXPECT_EQ(fields->fMFPath[0], path);  // one path, written once
}

// The text without the lines (and the lines of the same value) that mention `word`.
std::string withoutLinesOf(const std::string& text, const std::string& word) {
  std::istringstream in(text);
  std::string line, result;
  bool skipping = false;
  while (std::getline(in, line)) {
    if (line.find(word) != std::string::npos) skipping = true;
    if (!skipping) result += line + "\n";
    if (skipping && line.find(']') != std::string::npos) skipping = false;
    if (skipping && line.find('[') == std::string::npos && line.find(word) != std::string::npos) skipping = false;
  }
  return result;
}

}  // namespace

TEST_F(SceneFilesTest, HeaderAndLayout) {
  auto root = make(new SoSeparator);
  auto* cube = new SoCube;
  cube->width = 3;
  root->addChild(cube);
  const std::string text = writeToString(root.get());
  EXPECT_EQ(text.rfind("#Orvex V1.0 ascii\n", 0), 0u) << text;
  EXPECT_NE(text.find("Separator {"), std::string::npos);
  EXPECT_NE(text.find("    Cube {\n        width 3\n    }"), std::string::npos) << text;
  EXPECT_EQ(text.find("height"), std::string::npos);  // defaults are not written
}

TEST_F(SceneFilesTest, EveryFieldTypeRoundTripsInAscii) {
  TestAllFields* original = nullptr;
  auto root = buildAllFieldsScene(original);
  const std::string text = writeToString(root.get());
  auto readBack = readFromString(text);
  ASSERT_TRUE(readBack) << text;
  auto* copy = findFirst<TestAllFields>(readBack.get());
  ASSERT_NE(copy, nullptr);
  expectSameFields(original, copy);
  expectSameSharing(readBack.get(), copy);
  // Writing what was read gives the same text again (but for double
  // rotations, whose axis-and-angle form may move in the last digit).
  EXPECT_TRUE(withoutLinesOf(writeToString(readBack.get()), "Rotationd") == withoutLinesOf(text, "Rotationd"));
}

TEST_F(SceneFilesTest, EveryFieldTypeRoundTripsInBinary) {
  TestAllFields* original = nullptr;
  auto root = buildAllFieldsScene(original);
  const std::string data = writeToString(root.get(), true);
  EXPECT_EQ(data.rfind("#Orvex V1.0 binary\n", 0), 0u);
  auto readBack = readFromString(data);
  ASSERT_TRUE(readBack);
  auto* copy = findFirst<TestAllFields>(readBack.get());
  ASSERT_NE(copy, nullptr);
  expectSameFields(original, copy);
  expectSameSharing(readBack.get(), copy);
  EXPECT_EQ(writeToString(readBack.get(), true).size(), data.size());
}

TEST_F(SceneFilesTest, SharedNodesGetNamesThatSurvive) {
  auto root = make(new SoSeparator);
  auto* named = new SoMaterial;
  named->setName("red");
  auto* anonymous = new SoSphere;
  root->addChild(named);
  root->addChild(anonymous);
  auto* inner = new SoSeparator;
  inner->addChild(anonymous);
  inner->addChild(named);
  root->addChild(inner);
  const std::string text = writeToString(root.get());
  EXPECT_NE(text.find("DEF red Material"), std::string::npos) << text;
  EXPECT_NE(text.find("USE red"), std::string::npos);
  EXPECT_NE(text.find("USE _1"), std::string::npos) << text;
  auto back = readFromString(text);
  ASSERT_TRUE(back);
  auto* innerBack = static_cast<SoSeparator*>(back->getChild(2));
  EXPECT_EQ(innerBack->getChild(0), back->getChild(1));
  EXPECT_EQ(innerBack->getChild(1), back->getChild(0));
  EXPECT_EQ(back->getChild(0)->getName(), SbName("red"));
}

TEST_F(SceneFilesTest, DuplicateNamesStayDistinct) {
  auto root = make(new SoSeparator);
  auto* a = new SoCube;
  auto* b = new SoSphere;
  a->setName("x");
  b->setName("x");
  root->addChild(a);
  root->addChild(b);
  root->addChild(a);  // must refer to a, not to b
  auto back = readFromString(writeToString(root.get()));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->getChild(2), back->getChild(0));
  EXPECT_TRUE(back->getChild(2)->isOfType(SoCube::getClassTypeId()));
}

TEST_F(SceneFilesTest, VrmlValueSyntax) {
  const char* text =
      "#Orvex V1.0 ascii\n"
      "# a comment\n"
      "Separator {\n"
      "  DEF t Transform { translation 1 2 3 rotation 0 0 1 1.5707963 }  # trailing comment\n"
      "  Material { diffuseColor [ 1 0 0, 0 1 0, 0 0 1, ] transparency 0.5 }\n"
      "  Cone { parts ( SIDES | BOTTOM ) }\n"
      "  Switch { whichChild -3 Cube {} USE t }\n"
      "  Coordinate3 { point [ 0 0 0 1 0 0 ] }\n"
      "  IndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] vertexProperty NULL }\n"
      "}\n";
  auto root = readFromString(text);
  ASSERT_TRUE(root);
  auto* t = findFirst<SoTransform>(root.get());
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(t->translation.getValue(), SbVec3f(1, 2, 3));
  EXPECT_EQ(t->getName(), SbName("t"));
  auto* m = findFirst<SoMaterial>(root.get());
  ASSERT_EQ(m->diffuseColor.getNum(), 3);
  EXPECT_EQ(m->diffuseColor[2], SbColor(0, 0, 1));
  EXPECT_EQ(m->transparency.getNum(), 1);
  auto* cone = findFirst<SoCone>(root.get());
  EXPECT_TRUE(cone->hasPart(SoCone::SIDES));
  EXPECT_TRUE(cone->hasPart(SoCone::ALL));
  auto* sw = findFirst<SoSwitch>(root.get());
  EXPECT_EQ(sw->whichChild.getValue(), SO_SWITCH_ALL);
  EXPECT_EQ(sw->getChild(1), t);
  EXPECT_EQ(findFirst<SoCoordinate3>(root.get())->point.getNum(), 2);
  EXPECT_EQ(findFirst<SoIndexedFaceSet>(root.get())->coordIndex.getNum(), 4);
}

TEST_F(SceneFilesTest, ReadOneNodeAtATimeAndReadAllWrapsThem) {
  const char* text = "#Orvex V1.0 ascii\nCube {}\nSphere { radius 2 }\n";
  SoInput in;
  in.setBuffer(const_cast<char*>(text), std::strlen(text));
  EXPECT_TRUE(in.isValidFile());
  EXPECT_EQ(in.getHeader(), "#Orvex V1.0 ascii");
  EXPECT_EQ(in.getIVVersion(), 1.0f);
  SoNode* node = nullptr;
  ASSERT_TRUE(SoDB::read(&in, node));
  auto first = make(node);
  EXPECT_TRUE(node->isOfType(SoCube::getClassTypeId()));
  ASSERT_TRUE(SoDB::read(&in, node));
  auto second = make(node);
  EXPECT_TRUE(node->isOfType(SoSphere::getClassTypeId()));
  ASSERT_TRUE(SoDB::read(&in, node));  // the end: success without a node
  EXPECT_EQ(node, nullptr);
  EXPECT_EQ(in.getNumBytesRead(), std::strlen(text));

  auto all = readFromString(text);
  ASSERT_TRUE(all);
  EXPECT_EQ(all->getNumChildren(), 2);
  // One separator in the file comes back as it is.
  auto single = readFromString("#Orvex V1.0 ascii\nSeparator { Cube {} }\n");
  ASSERT_TRUE(single);
  EXPECT_EQ(single->getNumChildren(), 1);
  EXPECT_EQ(single->getRefCount(), 1);
}

TEST_F(SceneFilesTest, ReadingPaths) {
  const char* text = "#Orvex V1.0 ascii\nPath { Separator { Cube {} Group { Sphere {} } } 2 1 0 }\n";
  SoInput in;
  in.setBuffer(const_cast<char*>(text), std::strlen(text));
  SoPath* path = nullptr;
  ASSERT_TRUE(SoDB::read(&in, path));
  ASSERT_NE(path, nullptr);
  auto hold = make(path);
  EXPECT_EQ(path->getLength(), 3);
  EXPECT_TRUE(path->getTail()->isOfType(SoSphere::getClassTypeId()));
  // A path is written with its head and indices and reads back equal.
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  out.writeHeader();
  out.setStage(SoOutput::COUNTREFS);
  path->writeInstance(&out);
  out.setStage(SoOutput::WRITE);
  path->writeInstance(&out);
  void* buffer;
  size_t size;
  out.getBuffer(buffer, size);
  std::string written(static_cast<char*>(buffer), size);
  SoInput again;
  again.setBuffer(written.data(), written.size());
  SoPath* other = nullptr;
  ASSERT_TRUE(SoDB::read(&again, other)) << written;
  auto holdOther = make(other);
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(other->getLength(), 3);
  EXPECT_EQ(other->getIndex(1), 1);
  ErrorCapture<SoReadError> errors;
  const char* bad = "#Orvex V1.0 ascii\nPath { Group { Cube {} } 1 4 }\n";
  SoInput badIn;
  badIn.setBuffer(const_cast<char*>(bad), std::strlen(bad));
  EXPECT_FALSE(SoDB::read(&badIn, path));
  EXPECT_NE(errors.last().find("out of range"), std::string::npos);
}

TEST_F(SceneFilesTest, FilesCompressedAndNot) {
  auto root = make(new SoSeparator);
  auto* mat = new SoMaterial;
  mat->diffuseColor.setValue(0.5f, 0.25f, 1.0f);
  root->addChild(mat);
  root->addChild(new SoCube);
  for (const bool compressed : {false, true}) {
    const std::string file = tempDir() + (compressed ? "/scene.ovx.gz" : "/scene.ovx");
    {
      SoOutput out;
      if (compressed) out.setFileProperty(SoOutput::CompressedZlib);
      ASSERT_TRUE(out.openFile(file.c_str()));
      SoWriteAction action(&out);
      action.apply(root.get());
      out.closeFile();
    }
    std::ifstream raw(file, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(raw)), std::istreambuf_iterator<char>());
    EXPECT_EQ(static_cast<unsigned char>(bytes[0]) == 0x1f, compressed);
    SoInput in;
    ASSERT_TRUE(in.openFile(file.c_str()));
    EXPECT_TRUE(in.isValidFile());
    EXPECT_EQ(in.getCurStringFileName(), SbString(file));
    auto back = make(SoDB::readAll(&in));
    ASSERT_TRUE(back);
    ASSERT_EQ(back->getNumChildren(), 2);
    EXPECT_EQ(static_cast<SoMaterial*>(back->getChild(0))->diffuseColor[0], SbColor(0.5f, 0.25f, 1.0f));
  }
}

TEST_F(SceneFilesTest, DirectoryListAndPushedFiles) {
  const std::string dir = tempDir();
  writeFile(dir + "/inner.ovx", "#Orvex V1.0 ascii\nSphere { radius 4 }\n");
  writeFile(dir + "/outer.ovx", "#Orvex V1.0 ascii\nCube {}\n");
  SbString found;
  EXPECT_FALSE(SoInput::findAbsolutePath("inner.ovx", found));
  SoInput::addDirectoryFirst(dir.c_str());
  EXPECT_TRUE(SoInput::findAbsolutePath("inner.ovx", found));
  EXPECT_EQ(found, SbString(dir + "/inner.ovx"));
  EXPECT_EQ(SoInput::getDirectory(0), SbString(dir));
  setenv("ORVEX_TEST_DIRS", ("/nonexistent:" + dir).c_str(), 1);
  SoInput::removeDirectory(dir.c_str());
  EXPECT_FALSE(SoInput::findAbsolutePath("inner.ovx", found));
  SoInput::addEnvDirectoriesLast("ORVEX_TEST_DIRS");
  EXPECT_TRUE(SoInput::findAbsolutePath("inner.ovx", found));

  SoInput in;
  ASSERT_TRUE(in.openFile("outer.ovx"));
  // The pushed file is read first, then the rest of the outer one.
  ASSERT_TRUE(in.pushFile("inner.ovx"));
  EXPECT_EQ(in.getCurStringFileName(), SbString(dir + "/inner.ovx"));
  auto all = make(SoDB::readAll(&in));
  ASSERT_TRUE(all);
  ASSERT_EQ(all->getNumChildren(), 2);
  EXPECT_TRUE(all->getChild(0)->isOfType(SoSphere::getClassTypeId()));
  EXPECT_TRUE(all->getChild(1)->isOfType(SoCube::getClassTypeId()));
  SoInput::removeDirectory(dir.c_str());
  SoInput::removeDirectory("/nonexistent");
  ErrorCapture<SoReadError> errors;
  SoInput missing;
  EXPECT_FALSE(missing.openFile("does-not-exist.ovx"));
  EXPECT_EQ(errors.count(), 1u);
  EXPECT_FALSE(missing.openFile("does-not-exist.ovx", true));
  EXPECT_EQ(errors.count(), 1u);  // okIfNotFound: silent
}

TEST_F(SceneFilesTest, HeadersAreRegistered) {
  EXPECT_GE(SoDB::getNumHeaders(), 2);
  EXPECT_EQ(SoDB::getHeaderString(0), "#Orvex V1.0 ascii");
  EXPECT_EQ(SoDB::getHeaderString(1), "#Orvex V1.0 binary");
  EXPECT_TRUE(SoDB::isValidHeader("#Orvex V1.0 ascii"));
  EXPECT_TRUE(SoDB::isValidHeader("#Orvex V1.0 binary\nrest"));
  EXPECT_FALSE(SoDB::isValidHeader("#Orvex V9.9 ascii"));
  EXPECT_FALSE(SoDB::isValidHeader("Separator {}"));
  EXPECT_TRUE(SoDB::registerHeader("#Test Format 2.0", false, 2.0f));
  EXPECT_FALSE(SoDB::registerHeader("#Test Format 2.0", false, 2.0f));
  EXPECT_TRUE(SoDB::isValidHeader("#Test Format 2.0"));
  const char* text = "#Test Format 2.0\nCube {}\n";
  {
    SoInput in;
    in.setBuffer(const_cast<char*>(text), std::strlen(text));
    EXPECT_EQ(in.getIVVersion(), 2.0f);
  }
  // A header may bring functions called when such a file opens and closes.
  static int opened = 0, closed = 0;
  EXPECT_TRUE(SoDB::registerHeader("#Test Format 3.0", false, 3.0f, [](void*, SoInput*) { ++opened; },
                                   [](void*, SoInput*) { ++closed; }));
  const char* text3 = "#Test Format 3.0\nCube {}\n";
  {
    SoInput in;
    in.setBuffer(const_cast<char*>(text3), std::strlen(text3));
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(closed, 0);
    auto root = make(SoDB::readAll(&in));
    EXPECT_TRUE(root);
  }
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(SoOutput::getDefaultASCIIHeader(), "#Orvex V1.0 ascii");
  EXPECT_EQ(SoOutput::getDefaultBinaryHeader(), "#Orvex V1.0 binary");
}

TEST_F(SceneFilesTest, OutputSettings) {
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  out.setFloatPrecision(3);
  out.write(3.14159f);
  out.write(' ');
  out.setDoublePrecision(4);
  out.write(2.718281828);
  out.write(' ');
  out.incrementIndent(2);
  EXPECT_EQ(out.getIndentLevel(), 2);
  out.write('\n');
  out.indent();
  out.write("x");
  out.decrementIndent();
  EXPECT_EQ(out.getIndentLevel(), 1);
  out.write(SbString("q\"d"));
  void* buffer;
  size_t size;
  out.getBuffer(buffer, size);
  EXPECT_EQ(std::string(static_cast<char*>(buffer), size), "3.14 2.718 \n        x\"q\\\"d\"");
  EXPECT_EQ(out.getBufferSize(), size);
  out.resetBuffer();
  EXPECT_EQ(out.getBufferSize(), 0u);
  out.setHeaderString("#Orvex V1.0 ascii");
  out.setStage(SoOutput::COUNTREFS);
  EXPECT_EQ(out.getStage(), SoOutput::COUNTREFS);
  out.setBinary(true);
  EXPECT_TRUE(out.isBinary());
  out.write(1);
  EXPECT_EQ(out.getBufferSize(), 4u);

  // A caller's buffer grows through its function.
  void* block = std::malloc(8);
  SoOutput grown;
  grown.setBuffer(block, 8, &std::realloc);
  grown.write("a fairly long text that needs more than eight bytes");
  void* result;
  grown.getBuffer(result, size);
  EXPECT_EQ(size, 51u);
  EXPECT_EQ(std::string(static_cast<char*>(result), 6), "a fair");
  std::free(result);
}

TEST_F(SceneFilesTest, UnknownNodesWithFieldDescriptionsRoundTrip) {
  const char* text =
      "#Orvex V1.0 ascii\n"
      "Separator {\n"
      "  DEF thing Gadget {\n"
      "    fields [ SFFloat size, MFVec3f spots, SFEnum mode, SFNode extra ]\n"
      "    size 2.5\n"
      "    spots [ 1 2 3, 4 5 6 ]\n"
      "    mode FAST\n"
      "    extra Cube { width 7 }\n"
      "    Sphere {}\n"
      "  }\n"
      "  USE thing\n"
      "}\n";
  auto root = readFromString(text);
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 2);
  SoNode* gadget = root->getChild(0);
  EXPECT_TRUE(gadget->isOfType(SoUnknownNode::getClassTypeId()));
  EXPECT_STREQ(gadget->getFileFormatName(), "Gadget");
  EXPECT_EQ(root->getChild(1), gadget);
  auto* size = dynamic_cast<SoSFFloat*>(gadget->getField("size"));
  ASSERT_NE(size, nullptr);
  EXPECT_EQ(size->getValue(), 2.5f);
  EXPECT_EQ(static_cast<SoGroup*>(gadget)->getNumChildren(), 1);
  // Written back as it was read.
  const std::string written = writeToString(root.get());
  EXPECT_NE(written.find("DEF thing Gadget {"), std::string::npos) << written;
  EXPECT_NE(written.find("fields [ SFFloat size, MFVec3f spots, SFEnum mode, SFNode extra ]"), std::string::npos);
  EXPECT_NE(written.find("mode FAST"), std::string::npos);
  auto again = readFromString(written);
  ASSERT_TRUE(again);
  EXPECT_EQ(writeToString(again.get()), written);
  EXPECT_EQ(writeToString(readFromString(writeToString(root.get(), true)).get()), written);
}

namespace {
// A type the "application" knows by another name, supplied on demand.
intptr_t supplyWidget(const SbName& name) {
  if (name == "Widget") return SoCube::getClassTypeId().getKey();
  return 0;
}
}  // namespace

TEST_F(SceneFilesTest, UnknownTypesGoThroughTheUnknownNameCallback) {
  const char* text = "#Orvex V1.0 ascii\nWidget { width 9 }\n";
  {
    ErrorCapture<SoReadError> errors;
    EXPECT_FALSE(readFromString(text));
    EXPECT_NE(errors.last().find("Unknown node type \"Widget\""), std::string::npos) << errors.last();
    EXPECT_NE(errors.last().find("line 2"), std::string::npos) << errors.last();
  }
  SoType::UnknownNameCB* previous = SoType::setUnknownNameCB(&supplyWidget);
  auto root = readFromString(text);
  SoType::setUnknownNameCB(previous);
  ASSERT_TRUE(root);
  auto* cube = dynamic_cast<SoCube*>(root->getChild(0));
  ASSERT_NE(cube, nullptr);
  EXPECT_EQ(cube->width.getValue(), 9.0f);
}
