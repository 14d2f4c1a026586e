#include <Orvex/SoPickedPointList.h>

#include <Orvex/SoPickedPoint.h>

SoPickedPointList::SoPickedPointList(const SoPickedPointList& other) {
  m_points.reserve(other.m_points.size());
  for (SoPickedPoint* p : other.m_points) m_points.push_back(p->copy());
}

SoPickedPointList& SoPickedPointList::operator=(const SoPickedPointList& other) {
  if (this == &other) return *this;
  truncate(0);
  for (SoPickedPoint* p : other.m_points) m_points.push_back(p->copy());
  return *this;
}

SoPickedPointList::~SoPickedPointList() { truncate(0); }

void SoPickedPointList::append(SoPickedPoint* point) { m_points.push_back(point); }

void SoPickedPointList::insert(SoPickedPoint* point, int before) {
  if (before < 0) before = 0;
  if (before > getLength()) before = getLength();
  m_points.insert(m_points.begin() + before, point);
}

void SoPickedPointList::set(int index, SoPickedPoint* point) {
  SoPickedPoint*& slot = m_points[static_cast<size_t>(index)];
  if (slot != point) delete slot;
  slot = point;
}

void SoPickedPointList::truncate(int start) {
  if (start < 0) start = 0;
  for (size_t i = static_cast<size_t>(start); i < m_points.size(); ++i) delete m_points[i];
  if (static_cast<size_t>(start) < m_points.size()) m_points.resize(static_cast<size_t>(start));
}
