#include <Orvex/SbThreadLocalStorage.h>

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

TEST(SbThreadLocalStorage, EachThreadHasItsOwnZeroedSlot) {
  const size_t slot = SbThreadLocalStorage::createStorage(sizeof(int) * 4);
  constexpr int kThreads = 6;
  std::vector<int> firstRead(kThreads, -1), finalRead(kThreads, -1);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      int* data = static_cast<int*>(SbThreadLocalStorage::getStorage(slot));
      firstRead[t] = data[0] | data[1] | data[2] | data[3];
      for (int i = 0; i < 1000; ++i) {
        data[0] = t;
        std::this_thread::yield();
      }
      finalRead[t] = static_cast<int*>(SbThreadLocalStorage::getStorage(slot))[0];
    });
  }
  for (auto& th : threads) th.join();
  for (int t = 0; t < kThreads; ++t) {
    EXPECT_EQ(firstRead[t], 0);
    EXPECT_EQ(finalRead[t], t);
  }
}

TEST(SbThreadLocalStorage, SlotsAreDistinctAndStable) {
  const size_t a = SbThreadLocalStorage::createStorage(8);
  const size_t b = SbThreadLocalStorage::createStorage(8);
  EXPECT_NE(a, b);
  void* pa = SbThreadLocalStorage::getStorage(a);
  void* pb = SbThreadLocalStorage::getStorage(b);
  EXPECT_NE(pa, pb);
  std::memset(pa, 0x5A, 8);
  EXPECT_EQ(SbThreadLocalStorage::getStorage(a), pa);
  EXPECT_EQ(static_cast<unsigned char*>(SbThreadLocalStorage::getStorage(a))[7], 0x5A);
  EXPECT_EQ(static_cast<unsigned char*>(pb)[0], 0);
  EXPECT_EQ(SbThreadLocalStorage::getStorage(b + 100000), nullptr);
}

TEST(SbThreadLocalStorage, InitialisationIsPerThread) {
  bool before = true, after = false;
  std::thread([&] {
    before = SbThreadLocalStorage::isInitialized();
    SbThreadLocalStorage::initThreadLocalStorage();
    SbThreadLocalStorage::initThreadLocalStorage();  // a second call is harmless
    after = SbThreadLocalStorage::isInitialized();
  }).join();
  EXPECT_FALSE(before);
  EXPECT_TRUE(after);
}
