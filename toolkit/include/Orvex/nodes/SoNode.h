#pragma once
#include <Orvex/fields/SoFieldContainer.h>

class SoAction;
class SoCallbackAction;
class SoChildList;
class SoGetBoundingBoxAction;
class SoGLRenderAction;
class SoGetMatrixAction;
class SoGetPrimitiveCountAction;
class SoHandleEventAction;
class SoPickAction;
class SoRayPickAction;
class SoFieldData;
class SoNodeList;
class SoSearchAction;
class SoWriteAction;

// Base of the scene-graph nodes. A node holds its state in fields; actions
// traverse it through the functions they register per node class, indexed by
// the class's action-method index. Nodes are reference counted and may be
// shared by several parents.
class SoNode : public SoFieldContainer {
 public:
  static SoType getClassTypeId();
  static void initClass();
  // Every node class of the toolkit.
  static void initClasses();

  // Action-method indices: each node class takes the next free index when it
  // registers its type (the type's data holds it).
  static int getNextActionMethodIndex();
  static void incNextActionMethodIndex();
  static void setNextActionMethodIndex(int index);
  static int getActionMethodIndex(SoType type) { return type.getData(); }
  // The index of this node's class (kept by each class, so traversals need
  // not look the type up).
  virtual int getTypeActionMethodIndex() const;

  // The field data of a node class (nodes of this base class have no fields).
  const SoFieldData* getFieldData() const override;
  static const SoFieldData** getFieldDataPtr();

  // An override node's values win over those of later nodes of the same
  // kind (that property nodes obey).
  virtual void setOverride(bool state);
  virtual bool isOverride() const;

  // A copy of the node and everything under it; nodes shared inside the
  // graph are shared in the copy. With copyConnections, connected fields of
  // the copy are connected from the same (or the copied) masters.
  virtual SoNode* copy(bool copyConnections = false) const;
  // Whether traversing the node can change the traversal state.
  virtual bool affectsState() const;
  // Nodes that a bounding box computation should skip (none by default).
  virtual bool isBoundingBoxIgnoring() const { return false; }
  // Notifies as if the node had changed.
  void touch() override;
  // A number that changes whenever the node or anything under it changes.
  uint64_t getNodeId() const { return m_nodeId; }

  static SoNode* getByName(const SbName& name);
  static int getByName(const SbName& name, SoNodeList& list);

  // Action behaviour. doAction is the generic traversal (nothing for leaf
  // nodes, the children for groups); the others default to it.
  virtual void doAction(SoAction* action);
  virtual void search(SoSearchAction* action);
  virtual void write(SoWriteAction* action);
  static void doActionS(SoAction* action, SoNode* node);
  static void searchS(SoAction* action, SoNode* node);
  static void writeS(SoAction* action, SoNode* node);

  // The traversal actions. Each defaults to doAction, except rayPick (pick)
  // and getMatrix (doAction too, which groups use to follow the path).
  virtual void callback(SoCallbackAction* action);
  virtual void getBoundingBox(SoGetBoundingBoxAction* action);
  virtual void getMatrix(SoGetMatrixAction* action);
  virtual void handleEvent(SoHandleEventAction* action);
  virtual void pick(SoPickAction* action);
  virtual void rayPick(SoRayPickAction* action);
  virtual void getPrimitiveCount(SoGetPrimitiveCountAction* action);
  static void callbackS(SoAction* action, SoNode* node);
  static void getBoundingBoxS(SoAction* action, SoNode* node);
  static void getMatrixS(SoAction* action, SoNode* node);
  static void handleEventS(SoAction* action, SoNode* node);
  static void pickS(SoAction* action, SoNode* node);
  static void rayPickS(SoAction* action, SoNode* node);
  static void getPrimitiveCountS(SoAction* action, SoNode* node);
  // Drawing with OpenGL (the render action lives in the orvexgl library).
  // GLRender defaults to doAction; the path forms are called instead of it
  // while a path is rendered, for a node below the path's tail, on the path
  // or off it, and default to GLRender. GLRenderS picks the form that the
  // action's current path code calls for.
  virtual void GLRender(SoGLRenderAction* action);
  virtual void GLRenderBelowPath(SoGLRenderAction* action);
  virtual void GLRenderInPath(SoGLRenderAction* action);
  virtual void GLRenderOffPath(SoGLRenderAction* action);
  static void GLRenderS(SoAction* action, SoNode* node);
  // Called when the node starts and stops grabbing the events of a
  // handle-event action.
  virtual void grabEventsSetup();
  virtual void grabEventsCleanup();

  // The children of a group; nullptr for other nodes.
  virtual SoChildList* getChildren() const;

  void notify(SoNotList* list) override;
  void copyContents(const SoFieldContainer* from, bool copyConnections) override;
  SoFieldContainer* copyThroughConnection() const override;
  // Reads fields, and children for groups.
  bool readInstance(SoInput* in, unsigned short flags) override;
  void writeInstance(SoOutput* out) override;

 protected:
  SoNode();
  ~SoNode() override;

 private:
  static SoType s_classTypeId;
  static int s_nextActionMethodIndex;
  uint64_t m_nodeId;
  bool m_override = false;
};
