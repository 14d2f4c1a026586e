#pragma once
// The native callback objects, one class per Java callback kind of package
// com.orvexa.orvex.misc.callbacks (<Kind>CB): the static RealCallback has
// the toolkit's function-pointer signature and receives the object as user
// data; invoke calls the Java object's method with the toolkit's arguments
// wrapped as Java objects and hands the result back to the toolkit.

#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGLRenderAction.h>

#include "JCallback.h"

class SoAction;
class SoEventCallback;
class SoNode;
class SoPath;
class SoPickedPoint;
class SoPrimitiveVertex;
class SoInput;
class SoSelection;
class SoWWWAnchor;
class SoWWWInline;
class SbString;

class ORVEXJAVA_API SoCallbackActionCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static SoCallbackAction::Response RealCallback(void* data, SoCallbackAction* action, const SoNode* node);
  SoCallbackAction::Response invoke(SoCallbackAction* action, const SoNode* node) const;
};

class ORVEXJAVA_API SoTriangleCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoCallbackAction* action, const SoPrimitiveVertex* v1,
                           const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3);
  void invoke(SoCallbackAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
              const SoPrimitiveVertex* v3) const;
};

class ORVEXJAVA_API SoLineSegmentCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoCallbackAction* action, const SoPrimitiveVertex* v1,
                           const SoPrimitiveVertex* v2);
  void invoke(SoCallbackAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2) const;
};

class ORVEXJAVA_API SoPointCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoCallbackAction* action, const SoPrimitiveVertex* v);
  void invoke(SoCallbackAction* action, const SoPrimitiveVertex* v) const;
};

class ORVEXJAVA_API SoEventCallbackCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoEventCallback* node);
  void invoke(SoEventCallback* node) const;
};

class ORVEXJAVA_API SoCallbackCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoAction* action);
  void invoke(SoAction* action) const;
};

class ORVEXJAVA_API SoSensorManagerCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data);
  void invoke() const;
};

class ORVEXJAVA_API SoSelectionPathCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoPath* path);
  void invoke(SoPath* path) const;
};

class ORVEXJAVA_API SoSelectionClassCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, SoSelection* selection);
  void invoke(SoSelection* selection) const;
};

class ORVEXJAVA_API SoSelectionPickCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static SoPath* RealCallback(void* data, const SoPickedPoint* pick);
  SoPath* invoke(const SoPickedPoint* pick) const;
};

class ORVEXJAVA_API SoGLRenderPassCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data);
  void invoke() const;
};

class ORVEXJAVA_API SoGLRenderAbortCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static SoGLRenderAction::AbortCode RealCallback(void* data);
  SoGLRenderAction::AbortCode invoke() const;
};

class ORVEXJAVA_API SoWWWInlineFetchURLCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(const SbString& url, void* data, SoWWWInline* node);
  void invoke(const SbString& url, SoWWWInline* node) const;
};

class ORVEXJAVA_API SoWWWAnchorCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(const SbString& url, void* data, SoWWWAnchor* anchor);
  void invoke(const SbString& url, SoWWWAnchor* anchor) const;
};

class ORVEXJAVA_API SoCallbackListCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* data, void* callbackData);
  void invoke(void* callbackData) const;
};

// The pre and post functions of a registered header. The toolkit keeps one
// user-data pointer for both: a header record naming each function's native
// object, through which each trampoline finds its own.
class ORVEXJAVA_API SoDBHeaderPreCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* record, SoInput* in);
  void invoke(SoInput* in) const;
};

class ORVEXJAVA_API SoDBHeaderPostCallback : public JCallback {
 public:
  using JCallback::JCallback;
  static void RealCallback(void* record, SoInput* in);
  void invoke(SoInput* in) const;
};

namespace orvexjava {
// The user data of a header registered from Java.
struct HeaderRecord {
  SoDBHeaderPreCallback* pre;    // null: no pre function
  SoDBHeaderPostCallback* post;  // null: no post function
};
}  // namespace orvexjava
