// Passwords are wiped from memory after use. The tests search all writable memory, including the
// stacks and the freed part of the heap.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "base/secret.h"
#include "books/user_ab.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "capi/quillkit_c.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/scratch_folder.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

// The characters are in read-only memory, which is not searched. The pointers are volatile so that
// the compiler does not copy the characters to the stack as immediate values.
const char* const volatile kMarker = "Gk7#tzW2!qLx9@e";
const char* const volatile kLongMarker = "Too long for a password of an account: Gk7#tzW2!qLx9@e";
constexpr std::size_t kHalf = 8;

const std::string kUser = "Ann";
const std::string kNone;

int CopiesIn(std::string_view bytes) {
  int copies = 0;
  for (const char* marker = kMarker; const char* begin : {marker, marker + kHalf - 1}) {
    const std::string_view half(begin, kHalf);
    for (std::size_t at = 0; (at = bytes.find(half, at)) != bytes.npos; ++at) ++copies;
  }
  return copies;
}

// Returns the number of halves of the marker in memory.
int CopiesInMemory() {
  static char block[1 << 20];                      // wiped after each search
  constexpr std::size_t kOverlap = kHalf - 1;      // a half may be in two blocks
  constexpr std::uint64_t kLargest = 1ULL << 28U;  // larger regions belong to a sanitizer
  std::ifstream regions("/proc/self/maps");
  std::ifstream memory;
  memory.rdbuf()->pubsetbuf(nullptr, 0);
  memory.open("/proc/self/mem", std::ios::binary);
  EXPECT_TRUE(regions.is_open() && memory.is_open());
  int copies = 0;
  for (std::string line; std::getline(regions, line);) {
    std::size_t digits = 0;
    std::uint64_t at = std::stoull(line, &digits, 16);
    const std::uint64_t end = std::stoull(line.substr(digits + 1), nullptr, 16);
    if (line.find(" rw") == line.npos || end - at > kLargest) continue;
    for (; at + kOverlap < end; at += sizeof block - kOverlap) {
      memory.clear();
      memory.seekg(static_cast<std::streamoff>(at));
      memory.read(block,
                  static_cast<std::streamsize>(std::min<std::uint64_t>(end - at, sizeof block)));
      copies += CopiesIn({block, static_cast<std::size_t>(memory.gcount())});
      WipeBytes(block, sizeof block);
    }
  }
  return copies;
}

// Runs `work` deep in the stack, so that later calls do not overwrite its frames before the search.
template <class Work>
[[gnu::noinline]] void FarDown(Work work) {
  char room[1 << 17];
  WipeBytes(room, sizeof room);
  work();
  WipeBytes(room, sizeof room);
}

class PasswordTest : public ApplianceTest {
 protected:
  // Runs `work` and expects this number of halves in memory after it.
  template <class Work>
  static void Expect(int halves, const char* name, Work work) {
    FarDown(work);
    EXPECT_EQ(CopiesInMemory(), halves) << "after " << name;
  }

  // Makes every server call succeed without effect, so that the server stores no password.
  static void LetServerNod() { SimulatorFail(nullptr, 0, kNoError); }

  static int IsMarked(const CUserEntry& account) { return account.password == kMarker ? 1 : 0; }

  // Replaces the accounts on the server by accounts with this password.
  static void PutAccounts(const char* password) {
    for (const char* name : {"ADMINISTRATOR", "Ann", "Bob", "TOOLKIT"}) {
      Wiped<CUserEntry> account;
      account.SetName(name);
      account.SetPassword(password);
      SimulatorPutEntry(BookKind::kUsers, "", nullptr, &account);
    }
  }
};

TEST_F(PasswordTest, IsOnlyInTheUserRecordAndOnlyDuringASession) {
  const SecretText held(kMarker);
  const SecretText heldLong(kLongMarker);
  const std::string& password = held;
  const std::string& tooLong = heldLong;
  quill_handle box = 0;
  const auto logIn = [&] { LogToQuillbox(kHost, kUser, password, kNone, 0); };
  LetServerNod();
  Expect(6, "login", logIn);  // two in each of the two texts here, and two in the user record
  Expect(4, "Logout", Logout);
  Expect(6, "login before Exit", logIn);
  Expect(4, "Exit", [] { Exit(), TheAgent.LoadServerLibrary(); });
  Expect(6, "login before another", logIn);
  Expect(4, "another login", [] { LogToQuillbox(kHost, kUser, kNone, kNone, 0); });
  Expect(6, "quill_log_to_quillbox", [&] {
    quill_log_to_quillbox("127.0.0.1", "Ann", password.c_str(), "", 0, &box, nullptr);
  });
  Expect(4, "quill_logout", [] { quill_logout(); });
  SimulatorClearFaults();
  Expect(4, "refused login", logIn);
  Expect(4, "too long password", [&] { LogToQuillbox(kHost, kUser, tooLong, kNone, 0); });
  Expect(4, "too long password of quill_log_to_quillbox",
         [&] { quill_log_to_quillbox("127.0.0.1", "Ann", tooLong.c_str(), "", 0, &box, nullptr); });
}

// The exported functions continue after these calls and overwrite part of the stack.
TEST_F(PasswordTest, IsNotLeftOnTheStackByTheAgent) {
  LetServerNod();
  CUserRecord user;  // this record and the connected user contain two halves each
  user.SetName(kUser);
  user.SetPassword(kMarker);
  CScanner target;
  std::string third;
  target.SetAgent(&TheAgent);
  Expect(4, "Login", [&] { TheAgent.Login(&user, &target, third, 0); });
  Expect(4, "Relogin", [&] { TheAgent.Relogin(&user, &target, third, 0); });
  Expect(4, "ModifyUser", [&] { TheAgent.ModifyUser(&user); });
  Expect(4, "Create", [&] { target.UserEntries().Create(&user); });
  Expect(4, "Modify", [&] { target.UserEntries().Modify(&user); });
}

TEST_F(PasswordTest, IsOnlyInTheAccountsInMemory) {
  CScanner* const box = LogIn();
  PutAccounts(kMarker);
  for (const char* call : {"IMSPCreateEntry", "IMSPModifyEntry", "IMSPDeleteEntry"}) {
    SimulatorFail(call, 0, kNoError);
  }
  auto book = std::make_unique<CUserAB>();
  auto record = std::make_unique<CUserRecord>();
  CUserList list;
  std::uint32_t tag = 0;
// The text of a step, and the step.
#define STEP(...) std::pair(#__VA_ARGS__, [&] { __VA_ARGS__; })
  const std::pair<const char*, std::function<void()>> kSteps[] = {
    STEP(EXPECT_EQ(book->Attach(box, 0, 1), 1)),
    STEP(EXPECT_EQ(book->FindFirst("Bob", 1, record.get()), 2)),
    STEP(EXPECT_EQ(book->AddLocal(record.get()), 6)),
    STEP(EXPECT_EQ(book->DeleteLocal(record.get()), 5)),
    STEP(EXPECT_TRUE(book->RenameLocal("Ann", record.get()))),
    STEP(EXPECT_TRUE(book->ModifyLocal(record.get()))),
    STEP(EXPECT_TRUE(book->ReadUser(record.get(), 1))),
    STEP(EXPECT_EQ(book->SaveAll(), kNoError)),
    STEP(EXPECT_EQ(record->RestorePrivateBook(), 0)),
    STEP(std::string stored; Archive archive(&stored); book->Serialize(archive);
         WipeBytes(stored.data(), stored.size())),
    STEP(EXPECT_EQ(box->ReadAdminTag(&tag), kNoError)),
    STEP(EXPECT_EQ(box->WriteAdminTag(&tag), kNoError)),
    STEP(list.Init(6, book.get())),
    STEP(EXPECT_EQ(list.Load("ADMINISTRATOR", 1), kNoError)),
    STEP(EXPECT_TRUE(list.Shrink(3, 0))),
    STEP(EXPECT_TRUE(list.Grow(20))),
    STEP(EXPECT_EQ(list.RemoveAt(0), 1)),
    STEP(EXPECT_TRUE(list.Shrink(1, 1))),
    STEP(EXPECT_EQ(list.SetAt(0, *record), 1)),
    STEP(SimulatorFail("IMSPReadAB", 1, kBookFull)),
    STEP(EXPECT_EQ(list.Load({}, 1), kBookFull)),
    STEP(book.reset()),
    STEP(record.reset()),
  };
  for (const auto& [text, step] : kSteps) {
    SCOPED_TRACE(text);
    FarDown(step);
    int held = 4;  // on the server
    for (int i = 0; book != nullptr && i < book->Count(); ++i) {
      CUserRecord each;
      held += IsMarked(*book->GetAt(i, &each));
    }
    for (int i = 0; i < list.Count(); ++i) held += IsMarked(list.GetAt(i));
    if (record != nullptr) held += IsMarked(*record);
    EXPECT_EQ(CopiesInMemory(), 2 * held) << "only the accounts in memory may hold the password";
  }
  PutAccounts("");
  EXPECT_EQ(CopiesInMemory(), 0);
}

TEST_F(PasswordTest, IsNotInMemoryAfterAnImport) {
  const ScratchFolder folder;
  const TemporaryFolder temporary(folder.Path().string());
  const std::string path = folder.PathOf("accounts.csv");
  std::FILE* const file = std::fopen(path.c_str(), "w");
  ASSERT_NE(file, nullptr);
  std::setvbuf(file, nullptr, _IONBF, 0);
  for (const char* piece : {"Ann,", kMarker, ",3rd,4th\n"}) {
    EXPECT_EQ(std::fwrite(piece, 1, std::string_view(piece).size(), file),
              std::string_view(piece).size());
  }
  ASSERT_EQ(std::fclose(file), 0);
  CScanner* const box = LogIn();
  LetServerNod();
  Expect(0, "import", [&] {
    const std::int32_t options[] = {0, 0, ImportFormatDelimited, 0, TargetUsers, 4, 0, 1, 2, 3};
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), reinterpret_cast<const ImportOptions*>(options)),
              0);
  });
}

}  // namespace
}  // namespace quillkit
