// Measures, in one run and one OpenGL context, the render action drawing a
// mesh of 1,000,000 triangles (an SoIndexedFaceSet with its SoCoordinate3,
// lit by one directional light) into an 800 x 600 framebuffer object,
// against the same triangles drawn with raw OpenGL from one vertex buffer
// (positions and normals, fixed-function lighting, one material colour).
// Prints the first frame (arrays built), the later frames (caches warm),
// the floor, and their ratio; also how many pixels the two pictures
// share, so that a fast wrong picture shows, and how long the shape takes
// to hand its triangles to a callback action (the part of the first frame
// that is primitive generation). Nothing is asserted.

#include <Orvex/SbViewportRegion.h>
#include <Orvex/SoDB.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/devices/SoGLContext.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShape.h>
#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point a, Clock::time_point b) { return std::chrono::duration<double>(b - a).count(); }

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

constexpr int kWidth = 800, kHeight = 600;
constexpr int kQuadsX = 1000, kQuadsY = 500;  // 2 triangles per quad: 1,000,000

struct Mesh {
  std::vector<SbVec3f> points;
  std::vector<int32_t> index;  // three per triangle, then -1
};

// A gently waved sheet 10 x 5 units.
Mesh makeMesh() {
  Mesh m;
  const int row = kQuadsX + 1;
  for (int y = 0; y <= kQuadsY; ++y)
    for (int x = 0; x <= kQuadsX; ++x)
      m.points.emplace_back(x * 0.01f - 5.0f, y * 0.01f - 2.5f, 0.2f * std::sin(x * 0.05f) * std::cos(y * 0.07f));
  m.index.reserve(static_cast<size_t>(kQuadsX) * kQuadsY * 8);
  for (int y = 0; y < kQuadsY; ++y)
    for (int x = 0; x < kQuadsX; ++x) {
      const int a = y * row + x;
      m.index.insert(m.index.end(), {a, a + 1, a + row + 1, -1, a, a + row + 1, a + row, -1});
    }
  return m;
}

// The floor's vertex buffer: each triangle's three vertices, position and
// face normal, as the faces are flat (no smoothing) in the scene too.
std::vector<float> floorVertices(const Mesh& m) {
  std::vector<float> out;
  out.reserve(m.index.size() / 4 * 18);
  for (size_t i = 0; i + 3 < m.index.size(); i += 4) {
    const SbVec3f& a = m.points[static_cast<size_t>(m.index[i])];
    const SbVec3f& b = m.points[static_cast<size_t>(m.index[i + 1])];
    const SbVec3f& c = m.points[static_cast<size_t>(m.index[i + 2])];
    SbVec3f n = (b - a).cross(c - a);
    n.normalize();
    for (const SbVec3f* p : {&a, &b, &c}) out.insert(out.end(), {(*p)[0], (*p)[1], (*p)[2], n[0], n[1], n[2]});
  }
  return out;
}

// An 800 x 600 colour and depth framebuffer object, bound while it lives.
class Target {
 public:
  Target() {
    glGenFramebuffers(1, &m_fbo);
    glGenRenderbuffers(2, m_rb);
    glBindRenderbuffer(GL_RENDERBUFFER, m_rb[0]);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, kWidth, kHeight);
    glBindRenderbuffer(GL_RENDERBUFFER, m_rb[1]);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, kWidth, kHeight);
    glBindFramebuffer(GL_FRAMEBUFFER, m_fbo);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_rb[0]);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, m_rb[1]);
  }
  ~Target() {
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDeleteFramebuffers(1, &m_fbo);
    glDeleteRenderbuffers(2, m_rb);
  }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;
  bool complete() const { return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE; }
  static void clear() {
    glViewport(0, 0, kWidth, kHeight);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
  static std::vector<unsigned char> read() {
    std::vector<unsigned char> pixels(static_cast<size_t>(kWidth) * kHeight * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
  }

 private:
  GLuint m_fbo = 0;
  GLuint m_rb[2] = {0, 0};
};

const SbColor kDiffuse(0.8f, 0.6f, 0.3f);
const SbVec3f kLightDirection(-0.3f, -0.4f, -1.0f);

// The floor: one buffer, the camera's matrices, the same light and
// material through the fixed-function pipeline.
class Floor {
 public:
  explicit Floor(const std::vector<float>& vertices) : m_count(static_cast<GLsizei>(vertices.size() / 6)) {
    glGenBuffers(1, &m_buffer);
    glBindBuffer(GL_ARRAY_BUFFER, m_buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(float)), vertices.data(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
  }
  ~Floor() { glDeleteBuffers(1, &m_buffer); }
  Floor(const Floor&) = delete;
  Floor& operator=(const Floor&) = delete;

  void draw(const SbMatrix& projection, const SbMatrix& viewing) const {
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(&projection[0][0]);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    // A directional light: the direction towards it, in eye coordinates.
    SbVec3f toLight;
    viewing.multDirMatrix(-kLightDirection, toLight);
    toLight.normalize();
    const GLfloat position[4] = {toLight[0], toLight[1], toLight[2], 0.0f};
    const GLfloat white[4] = {1, 1, 1, 1};
    glLightfv(GL_LIGHT0, GL_POSITION, position);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
    glEnable(GL_LIGHT0);
    glEnable(GL_LIGHTING);
    glDisable(GL_COLOR_MATERIAL);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_FALSE);
    const GLfloat diffuse[4] = {kDiffuse[0], kDiffuse[1], kDiffuse[2], 1.0f};
    const GLfloat ambient[4] = {0.2f, 0.2f, 0.2f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, diffuse);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, ambient);
    glLoadMatrixf(&viewing[0][0]);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glEnable(GL_NORMALIZE);
    glBindBuffer(GL_ARRAY_BUFFER, m_buffer);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glVertexPointer(3, GL_FLOAT, 6 * sizeof(float), nullptr);
    glNormalPointer(GL_FLOAT, 6 * sizeof(float), reinterpret_cast<const void*>(3 * sizeof(float)));
    glDrawArrays(GL_TRIANGLES, 0, m_count);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisable(GL_LIGHTING);
    glDisable(GL_LIGHT0);
  }

 private:
  GLuint m_buffer = 0;
  GLsizei m_count;
};

}  // namespace

int main() {
  SoDB::init();
  std::printf("Rendering benchmark: %d triangles, %d x %d pixels\n", 2 * kQuadsX * kQuadsY, kWidth, kHeight);
  SoGLContext* context = new SoGLContext(SoGLFormat());
  context->ref();
  if (!context->bind()) {
    std::printf("no OpenGL context\n");
    return 1;
  }
  std::printf("OpenGL: %s, %s\n", reinterpret_cast<const char*>(glGetString(GL_RENDERER)),
              reinterpret_cast<const char*>(glGetString(GL_VERSION)));
  int status = 0;
  {
    Target target;
    if (!target.complete()) {
      std::printf("framebuffer incomplete\n");
      return 1;
    }
    const Mesh mesh = makeMesh();

    auto* root = new SoSeparator;
    root->ref();
    auto* camera = new SoPerspectiveCamera;
    camera->position.setValue(0.0f, 0.0f, 9.0f);
    camera->nearDistance = 4.0f;
    camera->farDistance = 14.0f;
    root->addChild(camera);
    auto* light = new SoDirectionalLight;
    light->direction.setValue(kLightDirection);
    root->addChild(light);
    auto* material = new SoMaterial;
    material->diffuseColor.setValue(kDiffuse);
    root->addChild(material);
    auto* coords = new SoCoordinate3;
    coords->point.setValues(0, static_cast<int>(mesh.points.size()), mesh.points.data());
    root->addChild(coords);
    auto* faces = new SoIndexedFaceSet;
    faces->coordIndex.setValues(0, static_cast<int>(mesh.index.size()), mesh.index.data());
    root->addChild(faces);

    const SbViewportRegion viewport(kWidth, kHeight);
    // The shape's primitive generation alone, for the first frame's sake.
    long triangles = 0;
    SoCallbackAction generation;
    generation.addTriangleCallback(
        SoShape::getClassTypeId(),
        [](void* data, SoCallbackAction*, const SoPrimitiveVertex*, const SoPrimitiveVertex*, const SoPrimitiveVertex*) {
          ++*static_cast<long*>(data);
        },
        &triangles);
    auto g0 = Clock::now();
    generation.apply(root);
    const double generationTime = seconds(g0, Clock::now());

    SoGLRenderAction action(viewport);

    // First frame: the shape's arrays are built.
    Target::clear();
    auto t0 = Clock::now();
    action.apply(root);
    glFinish();
    const double first = seconds(t0, Clock::now());
    const std::vector<unsigned char> ours = Target::read();

    const int runs = 5;
    const double warm = bestOf(runs, [&] {
      Target::clear();
      action.apply(root);
      glFinish();
    });

    // The floor sees the scene through the same camera.
    const SbViewVolume volume = camera->getViewVolume(static_cast<float>(kWidth) / kHeight);
    SbMatrix affine, projection;
    volume.getMatrices(affine, projection);
    const Floor floor(floorVertices(mesh));
    double floorTime = bestOf(runs, [&] {
      Target::clear();
      floor.draw(projection, affine);
      glFinish();
    });
    const std::vector<unsigned char> reference = Target::read();
    // Once more after ours, so that neither gains from going first.
    floorTime = std::min(floorTime, bestOf(runs, [&] {
                           Target::clear();
                           floor.draw(projection, affine);
                           glFinish();
                         }));

    long same = 0, covered = 0;
    for (size_t i = 0; i < ours.size(); i += 4) {
      const bool oursDrawn = ours[i + 3] != 0, floorDrawn = reference[i + 3] != 0;
      covered += floorDrawn;
      bool close = oursDrawn == floorDrawn;
      for (int c = 0; c < 3 && close; ++c) close = std::abs(ours[i + c] - reference[i + c]) <= 3;
      same += close;
    }
    if (std::getenv("ORVEX_BENCH_PIXELS")) {
      for (int y : {100, 300, 500})
        for (int x : {100, 400, 700}) {
          const size_t i = (static_cast<size_t>(y) * kWidth + x) * 4;
          std::printf("  (%3d,%3d) ours %3d %3d %3d %3d  floor %3d %3d %3d %3d\n", x, y, ours[i], ours[i + 1], ours[i + 2],
                      ours[i + 3], reference[i], reference[i + 1], reference[i + 2], reference[i + 3]);
        }
    }
    std::printf("\n  %-34s %10.2f ms\n", "first frame (arrays built)", first * 1e3);
    std::printf("  %-34s %10.2f ms   (%ld triangles)\n", "primitive generation alone", generationTime * 1e3,
                triangles);
    std::printf("  %-34s %10.2f ms\n", "later frames (best of 5)", warm * 1e3);
    std::printf("  %-34s %10.2f ms\n", "floor: one vertex buffer", floorTime * 1e3);
    std::printf("  %-34s %10.3f   (aim: within 1.3)\n", "ratio later frames / floor", warm / floorTime);
    std::printf("  %-34s %10.2f %%  (%ld of %d pixels; floor covers %ld)\n", "pixels equal to the floor's",
                100.0 * same / (kWidth * kHeight), same, kWidth * kHeight, covered);
    root->unref();
  }
  context->unbind();
  context->unref();
  return status;
}
