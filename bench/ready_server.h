// A server library that costs almost nothing, as the baseline of the benchmarks. It implements the
// entry points of bridge/imsp_api.h that the benchmarks need. It holds tables of ready records and
// answers a read with one copy. Its contents:
//
//   soft keys   kReadyKeys keys of kReadyItems items
//   lists       kReadyLists public e-mail lists of kReadyMembers members
//   accounts    kReadyUsers accounts
//   e-mail      kReadyEntries entries; as many names begin with each letter, or one more
//
// These numbers can be changed.
//
// All keys deliver the same items, and all lists the same members: small tables stay in the cache
// of the processor, so that a read costs the least.

#ifndef QUILLKIT_BENCH_READY_SERVER_H_
#define QUILLKIT_BENCH_READY_SERVER_H_

#include <cstdint>

namespace quillkit {

inline constexpr std::uint32_t kReadyKeys = 11;
inline constexpr std::uint32_t kReadyItems = 512;
inline constexpr std::uint32_t kReadyLists = 512;
inline constexpr std::uint32_t kReadyMembers = 512;
inline constexpr std::uint32_t kReadyUsers = 4096;
inline constexpr std::uint32_t kReadyEntries = 200'000;

extern "C" {

// Set the number of entries in the e-mail book, of items in each key, of members in each list, and
// of accounts. The most are kReadyEntries, kReadyItems, kReadyEntries and kReadyUsers.
void ReadyServerSetEntries(std::uint32_t count);
void ReadyServerSetItems(std::uint32_t count);
void ReadyServerSetMembers(std::uint32_t count);
void ReadyServerSetUsers(std::uint32_t count);

// The number of calls of all entry points, and of IMSPReadAB, since the start of the process.
std::uint64_t ReadyServerCalls();
std::uint64_t ReadyServerReads();

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_BENCH_READY_SERVER_H_
