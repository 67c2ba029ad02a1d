// The exported functions and the operations of the class library, with each of their allocations
// failing: alone, with all later ones, and beside a failing server call.
//
// The operation then throws std::bad_alloc, or reports a failure, or ends as if one more server
// call had failed. What it does then, the row predicts; a row without a list of calls is run with
// these failing calls and all its memory. A sliding or letter view must throw. Every entry in
// memory is one that was there before, or that such a run leaves. After that, the same objects can
// be loaded and released. They then hold what new ones hold, and no memory leaks.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "capi/call_frame.h"
#include "simulator/simulator.h"
#include "tests/books/book_operations.h"
#include "tests/memory/class_operations.h"
#include "tests/memory/failing_allocations.h"
#include "tests/platform/pumping.h"
#include "tests/support/combination_count.h"
#include "tests/support/scratch_folder.h"
#include "tests/toolkit/export_operations.h"

namespace quillkit {
namespace {

CombinationCount operations("failed allocations, operations that allocate memory");
CombinationCount allocations("failed allocations, combinations of operation and allocation");
CombinationCount pairs("failed allocations, each beside a failing call and its code");

constexpr Status kOther = 6;  // a code without a special meaning

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

// Begins the names of operations on a stage with small blocks. The failure sweep has them with
// large blocks, where few of them need memory.
const std::string kSmallBlocks = "small blocks: ";

// Those of the failure sweep, those that it does not have, and exported functions with texts that
// need an allocation.
Operations AllOperations() {
  const std::string import = "IOCtl 2, IOCtl 1, BatchConfiguration, IOCtl 2, IOCtl 1";
  Operations all = {
      CALL(WithKey(on, GetItemCount) != 0, kFlag, ""),
      CALL(MakeItem(), kFlag, ""),
      CALL(
          AddKey(on.book, kLongName, 1), kStatus,
          "CreateEntry, ListABEntries (loses key/; 4: ends, loses key/), "
          "ReadAB 512:Scan (ignored, loses key/Scan/), ReadAB 512:Send (ignored, loses key/Send/), "
          "ReadAB (ignored)"),
      CALL(WithKey(on, [&](CSoftKey* made) { return FastKeyAdd(on.book, made); }), Count(3),
           "CreateEntry"),
      CALL(WithKey(on, [&](CSoftKey* made) { return FastKeyRename(on.book, "Scan", made); }), kFlag,
           "ModifyEntry"),
      CALL(FindSoftKeyIndex(on.book, kLongName), Count(-1), ""),
      CALL(FindFirstItem(on.key, kLongName, 1), Count(-1), ""),
      CALL(SetName(&on.item, kLongName), kFlag, ""),
      CALL(Import(on, ImportFormatDelimited), kStatus, import),
      CALL(Import(on, ImportFormatDirectory), kStatus, import),
      CALL(Import(on, ImportFormatMailServer), kStatus, import),
      CALL(Import(on, ImportFormatScript), kStatus, import),
      CALL(GrowAccounts(), kFlag, ""),
  };
  std::ranges::copy(ExportOperations(), std::back_inserter(all));
  std::ranges::copy(BookOperations(), std::back_inserter(all));
  std::ranges::copy(ClassOperations(), std::back_inserter(all));
  for (const Operations& table : {ExportOperations(), BookOperations()}) {
    for (Operation each : table) {
      if (each.throughOwner) continue;  // in the same blocks
      each.name.insert(0, kSmallBlocks);
      each.calls.clear();
      all.push_back(each);
    }
  }
  return all;
}

// Returns whether two runs differ in the reported code at most.
bool EndsAlike(const Trial& a, const Trial& b, const Result& result) {
  return (a.result == result.success) == (b.result == result.success) && a.calls == b.calls &&
         a.after == b.after;
}

// The names of the entries from the first one on, at most five.
Lines Walk(CEmailAB& book) {
  Lines names;
  for (const CEmailEntry* each = book.First(); each != nullptr && names.size() < 5;
       each = book.Next()) {
    names.emplace_back(each->Name());
  }
  return names;
}

class AllocationFailure : public ApplianceTest, public testing::WithParamInterface<Operation> {
 protected:
  // The first exception of a thread allocates memory for all of them.
  static void SetUpTestSuite() {
    try {
      throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
    }
    folder = std::make_unique<ScratchFolder>();
    importedFile = folder->Write("file", "SE emailab \"Ann\" \"a\"\n");
  }
  static void TearDownTestSuite() { folder.reset(); }

  struct Attempt {
    Trial trial;
    bool hasThrown = false;
  };

  // Sets up the stage and runs the operation with these failing calls; its allocation number
  // `failing` fails. Every object must be usable after that, and is released.
  static Attempt Try(const Failures& calls, int failing = kNone, Refusal refusal = Refusal::kOnce);

  // Returns what the operation does if these calls fail and no allocation does: predicted from the
  // undisturbed run, or measured if the row lists no calls. Valid until the end of the test.
  const Trial& Expected(const Failures& calls);

  // Runs the operation with these failing calls and each of its `count` allocations failing: alone,
  // and with kForEver also with all later ones.
  void RefuseEach(const Failures& calls, int count, Refusal refusal);

  Trial undisturbed;

 private:
  static constexpr int kNone = INT_MAX;

  // Returns whether a failed allocation makes the operation throw: null would mean the end of the
  // book.
  static bool MustThrow() {
    const std::string& name = GetParam().name;
    return name.starts_with("sliding view ") || name.starts_with("letter view ");
  }

  static void ExpectUsable(std::unique_ptr<Stage> stage);
  std::vector<Trial> Possible(const Failures& failures);
  static void Refuse(const Failures& calls, int failing, Refusal refusal,
                     const std::vector<Trial>& possible);
  static void Compare(const Attempt& attempt, const std::vector<Trial>& possible);

  std::map<Failures, Trial> expected;

  static inline std::unique_ptr<ScratchFolder> folder;

  const TemporaryFolder temporary{folder->Path().string()};
  const EnvironmentVariable settings{"XDG_CONFIG_HOME", folder->Path().string()};
};

AllocationFailure::Attempt AllocationFailure::Try(const Failures& calls, int failing,
                                                  Refusal refusal) {
  SimulatorReset();
  auto stage = std::make_unique<Stage>(LogIn(), GetParam().throughOwner, Stage::kFurnished,
                                       GetParam().UsesAccounts());
  if (GetParam().name.starts_with(kSmallBlocks)) stage->ShrinkBlocks();
  Attempt attempt;
  attempt.trial = RunOn(*stage, GetParam(), calls, [&](Stage& on) {
    std::int64_t result = 0;
    FailAllocation(failing, refusal);
    try {
      result = GetParam().run(on);
    } catch (const std::bad_alloc&) {
      attempt.hasThrown = true;
    }
    FailAllocation(0);
    return result;
  });
  if (failing <= AllocationCount()) ExpectUsable(std::move(stage));
  stage.reset();
  Logout();
  SimulatorReset();
  LogIn();
  Logout();
  return attempt;
}

void AllocationFailure::ExpectUsable(std::unique_ptr<Stage> stage) {
  EXPECT_STREQ(GetKeyName(stage->newKey), "Copy");
  if (GetParam().name.find(" view ") != std::string::npos) {
    EXPECT_THAT(Walk(stage->email), testing::IsSubsetOf({"Ann", "Bea", "Ben", "Bob", "Zoe"}));
  }
  if (GetTopLevelAbook(stage->box) == nullptr) stage->box = LogIn();
  stage->Load();
  const Lines memory = stage->Memory();
  const Lines entries = Walk(stage->email);
  CScanner* const box = stage->box;
  stage.reset();
  Stage reopened(box, GetParam().throughOwner, Stage::kAsFound, GetParam().UsesAccounts());
  EXPECT_EQ(memory, reopened.Memory());
  EXPECT_EQ(entries, Walk(reopened.email));
}

const Trial& AllocationFailure::Expected(const Failures& calls) {
  const auto [found, isNew] = expected.try_emplace(calls);
  if (isNew) {
    found->second = GetParam().calls.empty() ? Try(calls).trial
                                             : Prediction(GetParam(), undisturbed).With(calls);
  }
  return found->second;
}

// Returns the runs that an operation may make if it reports no failed allocation: as without one,
// or as if one more server call had failed. That call may also not be made; the failing calls are
// then later ones.
std::vector<Trial> AllocationFailure::Possible(const Failures& failures) {
  std::vector<Trial> possible = {Expected(failures)};
  const std::size_t calls = Expected({}).calls.size();
  for (std::size_t call = 1; call <= calls; ++call) {
    Failures more = failures;
    if (more.try_emplace(call, kOther).second) possible.push_back(Expected(more));
    Failures later = {{call, kOther}};
    for (const auto& [failing, code] : failures) later[failing + (failing < call ? 0 : 1)] = code;
    Trial& without = possible.emplace_back(Expected(later));
    if (without.calls.size() < call) continue;
    without.calls.erase(without.calls.begin() + static_cast<std::ptrdiff_t>(call) - 1);
  }
  return possible;
}

// A read without memory leaves no record, instead of blank ones.
void AllocationFailure::Compare(const Attempt& attempt, const std::vector<Trial>& possible) {
  const Trial& trial = attempt.trial;
  if (attempt.hasThrown || (!MustThrow() && trial.result == GetParam().result.Failure(kRefused))) {
    for (const std::string& each : trial.after) {
      EXPECT_TRUE(
          std::ranges::count(trial.before, each) != 0 ||
          std::ranges::any_of(
              possible, [&](const Trial& run) { return std::ranges::count(run.after, each) != 0; }))
          << each;
    }
    return;
  }
  const auto matches = [&](const Trial& each) {
    Lines calls = trial.calls;
    CutAsPredicted(calls, each.calls);
    Lines withoutBlanks = each.after;
    std::erase_if(withoutBlanks, [](const std::string& line) { return line.ends_with("/="); });
    return trial.result == each.result && calls == each.calls &&
           (trial.after == each.after || trial.after == withoutBlanks ||
            GetParam().notes.starts_with("unchecked"));
  };
  EXPECT_TRUE(std::ranges::any_of(possible, matches))
      << trial.result << testing::PrintToString(trial.calls) << testing::PrintToString(trial.after);
}

void AllocationFailure::RefuseEach(const Failures& calls, int count, Refusal refusal) {
  if (count == 0) return;
  const std::vector<Trial> possible =
      MustThrow() ? std::vector<Trial>{Expected(calls)} : Possible(calls);
  for (int failing = 1; failing <= count; ++failing) {
    Refuse(calls, failing, Refusal::kOnce, possible);
    const bool isLast = AllocationCount() == failing;  // with all later ones, it would be the same
    if (refusal == Refusal::kForEver && !isLast) Refuse(calls, failing, refusal, possible);
  }
}

void AllocationFailure::Refuse(const Failures& calls, int failing, Refusal refusal,
                               const std::vector<Trial>& possible) {
  SCOPED_TRACE(testing::Message() << "calls " << testing::PrintToString(calls) << ", allocation "
                                  << failing
                                  << (refusal == Refusal::kOnce ? "" : " and all later"));
  const long before = LiveBlocks();
  Compare(Try(calls, failing, refusal), possible);
  EXPECT_EQ(LiveBlocks(), before) << "memory leaked";
}

TEST_P(AllocationFailure, LeavesEverythingUsableAndLeaksNothing) {
  undisturbed = Try({}).trial;
  const int count = AllocationCount();
  EXPECT_EQ(undisturbed.result, GetParam().result.success);
  RefuseEach({}, count, Refusal::kForEver);
  RecordProperty("allocations", count);
  operations.Add(count != 0 ? 1 : 0);
  allocations.Add(count);
}

TEST_P(AllocationFailure, BesideAFailingCallIsNoSuccess) {
  undisturbed = Try({}).trial;
  if (AllocationCount() == 0) return;
  const std::size_t calls = Expected({}).calls.size();
  for (std::size_t call = 1; call <= calls; ++call) {
    const Trial& other = Expected({{call, kOther}});
    for (const Status code : {kOther, kDataNotFound, kMoreData}) {
      if (code != kOther && EndsAlike(Expected({{call, code}}), other, GetParam().result)) continue;
      Try({{call, code}});
      const int count = AllocationCount();
      RefuseEach({{call, code}}, count, Refusal::kOnce);
      pairs.Add(count);
    }
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
    SimulatorRecordCalls(1);
    SimulatorSetWakeupPeriod(20);
    FailAllocation(failing);
    try {
      LogToQuillbox(kHost, kAdministrator, kPassword, "", 0);
    } catch (const std::bad_alloc&) {
    }
    FailAllocation(0);
    LogIn();
    EXPECT_TRUE(PumpUntil([] { return SimulatorCallCount() != 0; }));
    EXPECT_THAT(TakeCalls(), testing::ElementsAre("IMSPWakeup"));
    Logout();
  } while (failing <= AllocationCount());
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
      EXPECT_EQ(result < 0, failing <= AllocationCount()) << failing;
      EXPECT_EQ(LiveBlocks(), before) << "memory leaked";
    } while (failing <= AllocationCount());
  }
  quill_close_entries(users);
}

INSTANTIATE_TEST_SUITE_P(Functions, AllocationFailure, testing::ValuesIn(AllOperations()),
                         OperationName);

}  // namespace
}  // namespace quillkit
