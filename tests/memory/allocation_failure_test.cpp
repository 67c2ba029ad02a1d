// The exported functions that allocate memory, with each of their allocations failing in turn: the
// result, that every object stays usable, and that no memory leaks.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include "capi/call_frame.h"
#include "platform/posix/event_loop.h"
#include "simulator/simulator.h"
#include "tests/memory/failing_allocations.h"
#include "tests/support/combination_count.h"
#include "tests/support/scratch_folder.h"
#include "tests/toolkit/export_operations.h"

namespace quillkit {
namespace {

CombinationCount combinations("failed allocations, combinations of function and allocation");

// Too long to be stored in a std::string without an allocation.
const std::string kLongName(31, 'n');

struct Destroy {
  void operator()(CSoftKey* key) const { DestroySoftKey(key); }
};

// Creates a key with a long name and passes it to `use`.
template <class Use>
std::int64_t WithKey(const Stage& on, Use use) {
  CSoftKey* made = nullptr;
  const std::int32_t result = CreateSoftKey(kLongName, on.book, &made);
  const std::unique_ptr<CSoftKey, Destroy> key(made);
  EXPECT_EQ(result != 0, GetItemCount(made) != 0);
  return use(made);
}

std::int64_t MakeItem() {
  CMenuItem* item = nullptr;
  const std::int64_t made = CreateMenuItem(&item);
  EXPECT_EQ(made != 0, item != nullptr);
  DestroyMenuItem(item);
  return made;
}

// Grows a block whose records are wiped where they were.
bool GrowAccounts() {
  CUserList accounts;
  return accounts.Allocate(1) && accounts.Grow(2);
}

// The path of the file that the imports read.
std::string importedFile;

std::int64_t Import(const Stage& on, std::uint32_t format) {
  ImportOptions options{};
  options.format = format;
  options.targetBook = TargetEmail;
  options.columnCount = 1;
  return ImportAddressBook(on.box, importedFile.c_str(), &options);
}

// The exported functions that allocate memory, and the growth of a block. The server calls are not
// checked.
Operations AllOperations() {
  Operations all = {
      CALL(WithKey(on, GetItemCount) != 0, kFlag, ""),
      CALL(MakeItem(), kFlag, ""),
      CALL(AddKey(on.book, kLongName, 1), kStatus, ""),
      CALL(WithKey(on, [&](CSoftKey* made) { return FastKeyAdd(on.book, made); }), Count(3), ""),
      CALL(WithKey(on, [&](CSoftKey* made) { return FastKeyRename(on.book, "Scan", made); }), kFlag,
           ""),
      CALL(FindSoftKeyIndex(on.book, kLongName), Count(-1), ""),
      CALL(FindFirstItem(on.key, kLongName, 1), Count(-1), ""),
      CALL(SetName(&on.item, kLongName), kFlag, ""),
      CALL(Import(on, ImportFormatDelimited), kStatus, ""),
      CALL(Import(on, ImportFormatDirectory), kStatus, ""),
      CALL(Import(on, ImportFormatMailServer), kStatus, ""),
      CALL(Import(on, ImportFormatScript), kStatus, ""),
      CALL(GrowAccounts(), kFlag, ""),
  };
  std::ranges::copy(ExportOperations(), std::back_inserter(all));
  return all;
}

// The result of a run.
struct Trial {
  std::optional<std::int64_t> result;  // none if std::bad_alloc was thrown
  Lines keys;                          // in memory
};

class AllocationFailure : public ApplianceTest, public testing::WithParamInterface<Operation> {
 protected:
  AllocationFailure() { importedFile = folder.Write("file", "SE emailab \"Ann\" \"a\"\n"); }

  // Sets up the stage and runs the operation; its allocation number `failing` fails (0: none).
  // Every object must be usable afterwards, and is released.
  static Trial Try(int failing);

  // A run may also report failure in its own way, or lack the items of a key: they could not be
  // allocated.
  static void Compare(const Trial& trial, const Trial& undisturbed);

 private:
  const ScratchFolder folder;
  const TemporaryFolder temporary{folder.Path().string()};
};

Trial AllocationFailure::Try(int failing) {
  SimulatorReset();
  Stage stage(LogIn());
  if (GetParam().prepare != nullptr) GetParam().prepare(stage);
  Trial trial;
  FailAllocation(failing);
  try {
    trial.result = GetParam().run(stage);
  } catch (const std::bad_alloc&) {
  }
  FailAllocation(0);
  CTopLevelAB* const book = stage.box != nullptr ? GetTopLevelAbook(stage.box) : nullptr;
  trial.keys = Stage::Keys(book);
  EXPECT_EQ(book != nullptr ? LoadTopLevelAbook(book, 1) : 0, 0);
  const Lines reloaded = Stage::Keys(book);
  EXPECT_STREQ(GetKeyName(stage.newKey), "Copy");
  Logout();
  CScanner* const box = LogToQuillbox(kHost, kAdministrator, kPassword, "", 1);
  const Lines loaded = Stage::Keys(GetTopLevelAbook(box));
  EXPECT_FALSE(loaded.empty());
  EXPECT_EQ(book != nullptr ? reloaded : loaded, loaded);
  SimulatorReset();
  LogIn();
  Logout();
  return trial;
}

void AllocationFailure::Compare(const Trial& trial, const Trial& undisturbed) {
  if (!trial.result || trial.result == GetParam().result.Failure(kRefused)) return;
  EXPECT_EQ(trial.result, undisturbed.result);
  Lines expected = undisturbed.keys;
  std::erase_if(expected, [&](const std::string& each) {
    const std::string key = each.substr(0, each.rfind('/') + 1);
    return key != "key/" && std::ranges::none_of(trial.keys, [&](const std::string& item) {
             return item.starts_with(key);
           });
  });
  EXPECT_EQ(trial.keys, expected);
}

TEST_P(AllocationFailure, LeavesEverythingUsableAndLeaksNothing) {
  const Trial undisturbed = Try(0);
  EXPECT_EQ(undisturbed.result, GetParam().result.success);
  for (int failing = 1;; ++failing) {
    SCOPED_TRACE(testing::Message() << "allocation " << failing);
    const long before = LiveBlocks();
    Compare(Try(failing), undisturbed);
    EXPECT_EQ(LiveBlocks(), before) << "memory leaked";
    if (!HasAllocationFailed()) break;
    combinations.Add();
  }
}

TEST(CallFrame, ReportsExceptionsOtherThanFailedAllocationsAsInternalErrors) {
  EXPECT_EQ(capi::InTurn([] { throw std::length_error("too long"); }), QUILL_E_INTERNAL);
}

class Login : public ApplianceTest {};

// A login that failed to allocate may leave a session open. The next login must send keep-alives.
TEST_F(Login, SendsKeepAlivesAfterALoginThatFailedToAllocate) {
  int failing = 0;
  do {
    SCOPED_TRACE(testing::Message() << "allocation " << ++failing);
    SimulatorReset();
    SimulatorSetWakeupPeriod(20);
    FailAllocation(failing);
    try {
      LogToQuillbox(kHost, kAdministrator, kPassword, "", 0);
    } catch (const std::bad_alloc&) {
    }
    FailAllocation(0);
    LogIn();
    std::this_thread::sleep_for(std::chrono::milliseconds(12));
    EXPECT_EQ(QuillkitDispatchEvents(), 1);
    Logout();
  } while (HasAllocationFailed());
}

// The calls of quillkit_c for entries. Each fails with an error if an allocation fails.
TEST_F(Login, EntryCallsReportAFailedAllocation) {
  quill_handle box = 0;
  quill_handle users = 0;
  quill_entry page[2] = {};
  std::uint32_t count = 0;
  quill_log_to_quillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0, &box, nullptr);
  ASSERT_EQ(quill_open_entries(box, QUILL_BOOK_USERS, "", &users), 0);
  SimulatorRecordCalls(0);  // the journal would allocate
  const std::function<std::int32_t()> calls[] = {
      [&] {
        quill_handle list = 0;
        const std::int32_t result = quill_open_entries(box, 768, kLongName.c_str(), &list);
        quill_close_entries(list);
        return result;
      },
      [&] {
        quill_handle view = 0;
        const std::int32_t result = quill_open_view(box, QUILL_VIEW_FULL, &view);
        quill_close_view(view);
        return result;
      },
      [&] { return quill_read_entries(users, "", "*", 0, 1, page, &count); },
      [&] { return quill_enumerate_lists(box, 768, page, &count); },
  };
  for (const auto& call : calls) {
    count = 2;
    EXPECT_GE(call(), 0);
    int failing = 0;
    do {
      const long before = LiveBlocks();
      count = 2;
      FailAllocation(++failing);
      const std::int32_t result = call();
      FailAllocation(0);
      EXPECT_EQ(result < 0, HasAllocationFailed()) << failing;
      EXPECT_EQ(LiveBlocks(), before) << "memory leaked";
    } while (HasAllocationFailed());
  }
  quill_close_entries(users);
}

INSTANTIATE_TEST_SUITE_P(Functions, AllocationFailure, testing::ValuesIn(AllOperations()),
                         OperationName);

}  // namespace
}  // namespace quillkit
