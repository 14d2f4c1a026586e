#pragma once
#include <Orvex/SbBox3f.h>
#include <Orvex/SbColor.h>
#include <Orvex/SbString.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/misc/SoChildList.h>
#include <Orvex/nodes/SoSubNode.h>

class SoWWWInline;

// Asked to fetch the data of an inline node: the URL to fetch (the node's
// full URL name), the data given with the function, and the node, whose
// setChildData() receives what was fetched (at once or later).
typedef void SoWWWInlineFetchURLCB(const SbString& url, void* userData, SoWWWInline* node);

// A node whose children live elsewhere, named by a URL. The application
// fetches them: the process-wide fetch function is asked for the URL when
// the node is read from a scene file and whenever requestURLData() is
// called, and hands the fetched graph to setChildData(). Until then the
// node stands for its declared box (bboxCenter, bboxSize) in bounding-box
// computations; once the data is here it traverses it like a separator
// (what the data changes in the traversal state stays inside). Scene files
// hold the fields only, never the fetched data.
class SoWWWInline : public SoNode {
  SO_NODE_HEADER(SoWWWInline);

 public:
  // When the declared box is meant to be shown: never, while the data is not
  // here, or always.
  enum BboxVisibility { NEVER, UNTIL_LOADED, ALWAYS };

  // The URL of the data (default "<Undefined file>").
  SoSFString name;
  // The declared box of the data, for use before it is here. A size with a
  // negative component, or all zero (the default), declares no box.
  SoSFVec3f bboxCenter;
  SoSFVec3f bboxSize;

  SoWWWInline();

  // The URL the fetch function is given. Reading sets it to the name
  // resolved against the directory of the file being read (names with a
  // scheme, such as "http://", and absolute paths stay as they are); when
  // never set it is the value of `name`.
  void setFullURLName(const SbString& url);
  SbString getFullURLName() const;

  // The fetched graph: the node keeps a reference to it. Null removes it.
  void setChildData(SoNode* data);
  SoNode* getChildData() const;
  // A copy of the fetched graph (unreferenced), or null when there is none.
  SoNode* copyChildren() const;

  // Asks the fetch function for the data, once until the request is
  // cancelled or the data arrives; nothing happens without a fetch function.
  void requestURLData();
  bool isURLDataRequested() const { return m_requested; }
  bool isURLDataHere() const { return getChildData() != nullptr; }
  // Forgets the pending request, so that the next requestURLData() asks again.
  void cancelURLDataRequest() { m_requested = false; }

  // The process-wide fetch function and its data; null removes it.
  static void setFetchURLCallBack(SoWWWInlineFetchURLCB* f, void* userData);

  // How renderers show the declared box (process-wide; default
  // UNTIL_LOADED, white).
  static void setBoundingBoxVisibility(BboxVisibility v);
  static BboxVisibility getBoundingBoxVisibility();
  static void setBoundingBoxColor(const SbColor& color);
  static SbColor getBoundingBoxColor();

  // The declared box, or an empty box when none is declared.
  SbBox3f getDeclaredBox() const;

  SoChildList* getChildren() const override;
  bool affectsState() const override { return false; }
  void doAction(SoAction* action) override;
  void search(SoSearchAction* action) override;
  // The fetched data's box when it is here, the declared box otherwise.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  // Only along a path into the data: the node keeps the data's changes to itself.
  void getMatrix(SoGetMatrixAction* action) override;
  // Reads the fields, then asks for the data.
  bool readInstance(SoInput* in, unsigned short flags) override;
  void copyContents(const SoFieldContainer* from, bool copyConnections) override;

 protected:
  ~SoWWWInline() override;

 private:
  // Holds the fetched graph as the only child, so that actions, paths and
  // notification treat it like a group's child.
  mutable SoChildList m_children;
  SbString m_fullURLName;
  bool m_hasFullURLName = false;
  bool m_requested = false;
};
