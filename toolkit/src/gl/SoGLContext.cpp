#include <Orvex/devices/SoGLContext.h>

#include <algorithm>
#include <vector>

#include "GLShareGroup.h"
#include "platform/GLPlatformContext.h"

namespace {
// The contexts bound on this thread, innermost last; the last is current.
thread_local std::vector<SoGLContext*> t_bound;
}  // namespace

SoGLContext::SoGLContext(const SoGLFormat& format) : SoGLContext(format, nullptr) {}

SoGLContext::SoGLContext(const SoGLFormat& format, const SoGLContext* shareWith) : m_format(format) {
  const bool share = shareWith && shareWith->isValid();
  m_platform = orvex::createPlatformContext(format, share ? shareWith->m_platform.get() : nullptr);
  if (!m_platform->isValid()) return;
  m_shareGroup = share ? shareWith->m_shareGroup : std::make_shared<orvex::GLShareGroup>();
}

SoGLContext::~SoGLContext() {
  // A context destroyed while bound on this thread leaves the stack; the
  // context beneath it becomes current again.
  const bool wasCurrent = !t_bound.empty() && t_bound.back() == this;
  t_bound.erase(std::remove(t_bound.begin(), t_bound.end(), this), t_bound.end());
  if (wasCurrent) {
    if (!t_bound.empty())
      t_bound.back()->m_platform->makeCurrent();
    else
      m_platform->doneCurrent();
  }
}

bool SoGLContext::isValid() const { return m_platform && m_platform->isValid(); }

bool SoGLContext::bind() {
  if (!isValid() || !m_platform->makeCurrent()) return false;
  t_bound.push_back(this);
  return true;
}

void SoGLContext::unbind() {
  if (t_bound.empty() || t_bound.back() != this) return;
  t_bound.pop_back();
  if (!t_bound.empty())
    t_bound.back()->m_platform->makeCurrent();
  else
    m_platform->doneCurrent();
}

void SoGLContext::swapBuffers() {
  if (!isValid()) return;
  m_platform->swapBuffers();
  m_displayValid = true;
}

bool SoGLContext::isSharedWith(const SoGLContext* other) const {
  return other && m_shareGroup && m_shareGroup == other->m_shareGroup;
}

void SoGLContext::invalidateDisplay() { m_displayValid = false; }

SoGLContext* SoGLContext::getCurrent() { return t_bound.empty() ? nullptr : t_bound.back(); }

orvex::GLShareGroup* orvex::currentShareGroup() {
  return t_bound.empty() ? nullptr : t_bound.back()->m_shareGroup.get();
}
