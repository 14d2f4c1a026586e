#pragma once
#include <Orvex/SbString.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/nodes/SoSeparator.h>

class SoWWWAnchor;

// Called for an anchor: the URL (the anchor's full URL name, with the
// picked point appended when the anchor maps it), the data given with the
// function, and the anchor.
typedef void SoWWWAnchorCB(const SbString& url, void* userData, SoWWWAnchor* node);

// A separator whose children are a link: clicking them (first mouse button
// pressed over them, in a handle-event action) calls the process-wide fetch
// function with the anchor's URL and marks the event handled; moving the
// cursor onto them calls the highlight function with the URL, and moving it
// off again calls it with an empty URL. The children see the events first;
// an event they handle is not the anchor's.
class SoWWWAnchor : public SoSeparator {
  SO_NODE_HEADER(SoWWWAnchor);

 public:
  // POINT appends the picked point, in the anchor's own coordinates, to the
  // URL given to the fetch function: "url?x,y,z".
  enum Mapping { NONE, POINT };

  // The URL of the link (default "<Undefined URL>").
  SoSFString name;
  // What the link is, for the user (default empty).
  SoSFString description;
  SoSFEnum map;

  SoWWWAnchor();
  explicit SoWWWAnchor(int nChildren);

  // The URL the functions are given; when never set it is the value of `name`.
  void setFullURLName(const SbString& url);
  SbString getFullURLName() const;

  // The process-wide functions and their data; null removes one.
  static void setFetchURLCallBack(SoWWWAnchorCB* f, void* userData);
  static void setHighlightURLCallBack(SoWWWAnchorCB* f, void* userData);

  void handleEvent(SoHandleEventAction* action) override;
  void copyContents(const SoFieldContainer* from, bool copyConnections) override;

 protected:
  ~SoWWWAnchor() override;

 private:
  void setUpFields();
  // True when the action's pick runs through this anchor.
  bool isUnderCursor(SoHandleEventAction* action) const;

  SbString m_fullURLName;
  bool m_hasFullURLName = false;
  bool m_highlighted = false;  // the cursor was over the anchor at the last move
};
