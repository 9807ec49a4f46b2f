// The memory that programs can still have, on every back end.
#include "tests/platform/contract/host/ContractHost.h"

namespace pixorra {
namespace {

using MemoryContract = HostContract;

TEST_F(MemoryContract, WhatIsLeftIsToldInBytesAndAnewEachTime) {
  Memory& memory = host->GetMemory();
  for (const std::int64_t bytes : {std::int64_t{0}, std::int64_t{1024}, std::int64_t{64} << 30}) {
    host->SetAvailableMemory(bytes);
    EXPECT_EQ(memory.Available(), bytes);
  }
}

TEST_F(MemoryContract, AHostThatDoesNotSayGivesNothing) {
  host->SetAvailableMemory(1 << 20);
  host->SetAvailableMemory(std::nullopt);
  EXPECT_EQ(host->GetMemory().Available(), std::nullopt);
}

}  // namespace
}  // namespace pixorra
