#pragma once
#include <Orvex/SbName.h>
#include <Orvex/details/SoSubDetail.h>

class SoBaseKit;
class SoNode;

// The node kit a pick went through, and the part of it that was picked.
// The detail refers to the kit and the part without owning them.
class SoNodeKitDetail : public SoDetail {
  SO_DETAIL_HEADER(SoNodeKitDetail);

 public:
  SoNodeKitDetail();
  ~SoNodeKitDetail() override;

  SoBaseKit* getNodeKit() const { return m_kit; }
  SoNode* getPart() const { return m_part; }
  const SbName& getPartName() const { return m_partName; }
  void setNodeKit(SoBaseKit* kit) { m_kit = kit; }
  void setPart(SoNode* part) { m_part = part; }
  void setPartName(const SbName& name) { m_partName = name; }

 private:
  SoBaseKit* m_kit = nullptr;
  SoNode* m_part = nullptr;
  SbName m_partName;
};
