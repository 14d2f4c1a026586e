#include <Orvex/SbPList.h>

#include <gtest/gtest.h>

namespace {
void* p(intptr_t v) { return reinterpret_cast<void*>(v); }
}

TEST(SbPList, AppendFindInsertRemove) {
  SbPList list;
  for (intptr_t i = 1; i <= 20; ++i) list.append(p(i));
  EXPECT_EQ(list.getLength(), 20);
  EXPECT_EQ(list.find(p(7)), 6);
  EXPECT_EQ(list.find(p(99)), -1);
  list.insert(p(100), 0);
  EXPECT_EQ(list.get(0), p(100));
  EXPECT_EQ(list.get(1), p(1));
  list.insert(p(200), 1000);  // past the end: appended
  EXPECT_EQ(list.get(list.getLength() - 1), p(200));
  list.remove(0);
  EXPECT_EQ(list.get(0), p(1));
  list.removeFast(0);  // last element moves into the hole
  EXPECT_EQ(list.get(0), p(200));
  EXPECT_EQ(list.getLength(), 20);
  list.truncate(5);
  EXPECT_EQ(list.getLength(), 5);
  list.remove(17);  // out of range: ignored
  EXPECT_EQ(list.getLength(), 5);
}

TEST(SbPList, IndexingPastTheEndGrows) {
  SbPList list;
  list[3] = p(4);
  EXPECT_EQ(list.getLength(), 4);
  EXPECT_EQ(list.get(0), nullptr);
  EXPECT_EQ(list.get(3), p(4));
}

TEST(SbPList, CopiesAreIndependent) {
  SbPList a(2);
  a.append(p(1));
  a.append(p(2));
  SbPList b(a);
  EXPECT_TRUE(a == b);
  b.set(0, p(9));
  EXPECT_TRUE(a != b);
  EXPECT_EQ(a.get(0), p(1));
  SbPList c;
  c.copy(b);
  EXPECT_TRUE(c == b);
  c = c;
  EXPECT_EQ(c.getLength(), 2);
}

TEST(SbIntList, StoresNegativeValues) {
  SbIntList list;
  list.append(-5);
  list.append(7);
  list.insert(-1, 0);
  EXPECT_EQ(list[0], -1);
  EXPECT_EQ(list[1], -5);
  EXPECT_EQ(list.find(7), 2);
}
