// The exported functions that take memory, with each of their allocations refused in turn: what the
// application gets, that everything is usable afterwards, and that nothing is lost.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "platform/posix/event_loop.h"
#include "simulator/simulator.h"
#include "tests/memory/refused_memory.h"
#include "tests/support/combination_count.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/toolkit/server_operation.h"

namespace quillkit {
namespace {

CombinationCount& combinations =
    CombinationCount::Of("refused memory, combinations of function and allocation");

// Too long for what a std::string holds without memory.
const std::string kLongName(31, 'n');

struct Destroy {
  void operator()(CSoftKey* key) const { DestroySoftKey(key); }
};

// Makes a key of a long name and hands it to `use`.
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

// Where imports find their file and put their scripts.
std::string importedFile;

std::int64_t Import(const Stage& on, std::uint32_t format) {
  ImportOptions options{};
  options.format = format;
  options.targetBook = TargetEmail;
  options.columnCount = 1;
  return ImportAddressBook(on.box, importedFile.c_str(), &options);
}

#define RUN(expression) []([[maybe_unused]] Stage& on) -> std::int64_t { return expression; }

// Those that take memory and are in no other table.
std::vector<Operation> OtherOperations() {
  using enum Style;
  return {
      {"LoadItems", kFlag, 1, {}, RUN(LoadItems(on.book, "Scan") != nullptr)},
      {"CreateSoftKey", kFlag, 1, {}, RUN(WithKey(on, GetItemCount) != 0)},
      {"CreateMenuItem", kFlag, 1, {}, RUN(MakeItem())},
      {"AddKeyOfALongName", kStatus, 0, {}, RUN(AddKey(on.book, kLongName, 1))},
      {"FastKeyAddOfALongName",
       kCount,
       3,
       {},
       RUN(WithKey(on, [&](CSoftKey* key) { return FastKeyAdd(on.book, key); }))},
      {"FastKeyRenameToALongName",
       kFlag,
       1,
       {},
       RUN(WithKey(on, [&](CSoftKey* key) { return FastKeyRename(on.book, "Scan", key); }))},
      {"FindSoftKeyIndex", kCount, -1, {}, RUN(FindSoftKeyIndex(on.book, kLongName))},
      {"FindFirstItem", kCount, -1, {}, RUN(FindFirstItem(on.key, kLongName, 1))},
      {"SetName", kFlag, 1, {}, RUN(SetName(&on.item, kLongName))},
      {"ImportDelimited", kStatus, 0, {}, RUN(Import(on, ImportFormatDelimited))},
      {"ImportDirectory", kStatus, 0, {}, RUN(Import(on, ImportFormatDirectory))},
      {"ImportMailServer", kStatus, 0, {}, RUN(Import(on, ImportFormatMailServer))},
      {"ImportScript", kStatus, 0, {}, RUN(Import(on, ImportFormatScript))},
  };
}

std::vector<Operation> Operations() {
  std::vector<Operation> all = ServerOperations();
  for (Operation& each : OtherOperations()) all.push_back(std::move(each));
  return all;
}

std::string NameAt(BookKind kind, const char* book, std::int32_t index) {
  CMenuItem record;
  SimulatorEntryAt(kind, book, nullptr, index, &record);
  return std::string(record.name.View());
}

// The keys on the server.
Panel OnServer() {
  Panel panel;
  for (std::int32_t i = 0; i < SimulatorBookSize(BookKind::kTop, "", nullptr); ++i) {
    auto& [key, items] = panel.emplace_back(NameAt(BookKind::kTop, "", i), Names());
    for (std::int32_t at = 0; at < SimulatorBookSize(BookKind::kKeyItems, key.c_str(), nullptr);
         ++at) {
      items.push_back(NameAt(BookKind::kKeyItems, key.c_str(), at));
    }
  }
  return panel;
}

// Whether `panel` is `whole`, but for keys that have no items.
bool IsWholeButForItems(const Panel& panel, const Panel& whole) {
  return std::equal(panel.begin(), panel.end(), whole.begin(), whole.end(),
                    [](const auto& key, const auto& wholeKey) {
                      return key == wholeKey || (key.first == wholeKey.first && key.second.empty());
                    });
}

// What a run came to.
struct Trial {
  std::optional<std::int64_t> result;  // none when std::bad_alloc came
  Panel panel;                         // in memory
};

class Refusal : public OperationTest, public testing::WithParamInterface<Operation> {
 protected:
  Refusal() { importedFile = folder.Write("file", "SE emailab \"Ann\" \"a\"\n"); }

  // Sets the stage and runs the operation, with its allocation number `refused` refused; 0: none.
  // Everything has to be usable afterwards, and is given back.
  static Trial Try(int refused);

  // A run may fail in its own style, too, or go without items that there was no memory for.
  static void Compare(const Trial& trial, const Trial& undisturbed);

 private:
  const ScratchFolder folder;
  const TemporaryFolder temporary{folder.Path().string()};
};

Trial Refusal::Try(int refused) {
  Stage stage = SetStage();
  Trial trial;
  RefuseAllocation(refused);
  try {
    trial.result = GetParam().run(stage);
  } catch (const std::bad_alloc&) {
  }
  RefuseAllocation(0);
  trial.panel = Look(GetTopLevelAbook(stage.box));
  if (CTopLevelAB* const book = GetTopLevelAbook(stage.box)) {
    EXPECT_EQ(LoadTopLevelAbook(book, 1), 0);
    EXPECT_EQ(Look(book), OnServer());
  }
  EXPECT_STREQ(GetKeyName(stage.newKey), "Copy");
  DestroySoftKey(stage.newKey);
  Logout();
  CScanner* const box = LogToQuillbox(kHost, kAdministrator, kPassword, "", 1);
  EXPECT_EQ(Look(GetTopLevelAbook(box)), OnServer());
  SimulatorReset();
  LogIn();
  Logout();
  return trial;
}

void Refusal::Compare(const Trial& trial, const Trial& undisturbed) {
  if (!trial.result || trial.result == FailureOf(GetParam().style, kRefused)) return;
  EXPECT_EQ(trial.result, undisturbed.result);
  EXPECT_TRUE(IsWholeButForItems(trial.panel, undisturbed.panel));
}

TEST_P(Refusal, LeavesEverythingUsableAndLosesNothing) {
  const Trial undisturbed = Try(0);
  EXPECT_EQ(undisturbed.result, GetParam().success);
  for (int refused = 1;; ++refused) {
    SCOPED_TRACE(testing::Message() << "allocation " << refused);
    const long before = LiveBlocks();
    Compare(Try(refused), undisturbed);
    const long kept = LiveBlocks() - before;
    EXPECT_EQ(kept, 0);
    if (!WasAllocationRefused()) break;
    combinations.Add();
  }
}

// A login that was refused memory may leave a session behind. The next one keeps its own alive.
TEST_F(OperationTest, ALoginAfterARefusedOneHasItsSignOfLife) {
  int refused = 0;
  do {
    SCOPED_TRACE(testing::Message() << "allocation " << ++refused);
    SimulatorReset();
    SimulatorSetWakeupPeriod(20);
    RefuseAllocation(refused);
    try {
      LogToQuillbox(kHost, kAdministrator, kPassword, "", 0);
    } catch (const std::bad_alloc&) {
    }
    RefuseAllocation(0);
    LogIn();
    std::this_thread::sleep_for(std::chrono::milliseconds(12));
    EXPECT_EQ(QuillkitDispatchEvents(), 1);
    Logout();
  } while (WasAllocationRefused());
}

INSTANTIATE_TEST_SUITE_P(Functions, Refusal, testing::ValuesIn(Operations()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillkit
