// Changes of models and printers: what goes to the server, what changes in memory, and what a
// refusal leaves behind.

#include <cstring>
#include <functional>

#include "tests/books/printer_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const std::vector<std::string> kBefore = {"Attic", "Hall*", "Lab"};

// One change: its one server call, its result when that succeeds and when it is refused, and what
// stands on the server and in memory afterwards.
struct Change {
  const char* name;
  const char* printer;  // that the record names
  std::int32_t (*run)(CPrinterAB& book, PrinterRecord* record);
  const char* call;
  std::int32_t result;
  std::int32_t refused;
  std::vector<std::string> onServer;
  std::vector<std::string> inMemory;
};

const std::vector<std::string> kAdded = {"Attic", "Desk", "Hall*", "Lab"};
const std::vector<std::string> kAppended = {"Attic", "Hall*", "Lab", "Desk"};
const std::vector<std::string> kDeleted = {"Attic", "Lab"};
const std::vector<std::string> kModified = {"Attic", "Hall", "Lab"};
const std::vector<std::string> kRenamedOnServer = {"Attic", "Lab", "Yard"};
const std::vector<std::string> kRenamedInMemory = {"Attic", "Yard", "Lab"};

using Book = CPrinterAB;

constexpr const char* kAdd = "IMSPCreateEntry 8:PRINTERSAB Desk";
constexpr const char* kDelete = "IMSPDeleteEntry 8:PRINTERSAB Hall";
constexpr const char* kModify = "IMSPModifyEntry 8:PRINTERSAB Hall Hall";
constexpr const char* kRename = "IMSPModifyEntry 8:PRINTERSAB Hall Yard";

const Change kChanges[] = {
    {"AddPrinter", "Desk",
     [](Book& book, PrinterRecord* record) { return book.AddPrinter(record, false); }, kAdd, 3, -1,
     kAdded, kBefore},
    {"AddPrinterAndReload", "Desk",
     [](Book& book, PrinterRecord* record) { return book.AddPrinter(record, true); }, kAdd, 4, -1,
     kAdded, kAdded},
    {"FastAddPrinter", "Desk",
     [](Book& book, PrinterRecord* record) { return book.FastAddPrinter(record); }, kAdd, 4, -1,
     kAdded, kAppended},
    {"DeletePrinter", "Hall",
     [](Book& book, PrinterRecord*) { return book.DeletePrinter("Hall", false); }, kDelete, 1, 0,
     kDeleted, kBefore},
    {"DeletePrinterAndReload", "Hall",
     [](Book& book, PrinterRecord*) { return book.DeletePrinter("Hall", true); }, kDelete, 1, 0,
     kDeleted, kDeleted},
    {"FastDeletePrinterOfTheBook", "Hall",
     [](Book& book, PrinterRecord*) { return book.FastDeletePrinter(book.PrinterAt(1)); }, kDelete,
     2, -1, kDeleted, kDeleted},
    {"ModifyPrinter", "Hall",
     [](Book& book, PrinterRecord* record) { return book.ModifyPrinter(record, false); }, kModify,
     1, 0, kModified, kBefore},
    {"ModifyPrinterAndReload", "Hall",
     [](Book& book, PrinterRecord* record) { return book.ModifyPrinter(record, true); }, kModify, 1,
     0, kModified, kModified},
    {"FastModifyPrinter", "Hall",
     [](Book& book, PrinterRecord* record) { return book.FastModifyPrinter(record); }, kModify, 1,
     0, kModified, kModified},
    {"RenamePrinterAndReload", "Yard",
     [](Book& book, PrinterRecord* record) { return book.RenamePrinter("Hall", record, true); },
     kRename, 1, 0, kRenamedOnServer, kRenamedOnServer},
    {"FastRenamePrinter", "Yard",
     [](Book& book, PrinterRecord* record) { return book.FastRenamePrinter("Hall", record); },
     kRename, 1, 0, kRenamedOnServer, kRenamedInMemory},
};

class PrinterChangeTest : public PrinterBookTest, public testing::WithParamInterface<Change> {};

TEST_P(PrinterChangeTest, ServerFirst) {
  const Change& change = GetParam();
  PrinterRecord record = MakePrinter(change.printer, "Inky");
  SimulatorFail(nullptr, 1, kServerFault);
  EXPECT_EQ(change.run(book, &record), change.refused);
  EXPECT_THAT(TakeCalls(), ElementsAre(change.call));
  EXPECT_EQ(TheAgent.LastError(), kServerFault);
  EXPECT_THAT(OnServer(), ElementsAreArray(kBefore));
  EXPECT_THAT(InMemory(), ElementsAreArray(kBefore));

  EXPECT_EQ(change.run(book, &record), change.result);
  EXPECT_EQ(TakeCalls().front(), change.call);
  EXPECT_THAT(OnServer(), ElementsAreArray(change.onServer));
  EXPECT_THAT(InMemory(), ElementsAreArray(change.inMemory));
}

INSTANTIATE_TEST_SUITE_P(, PrinterChangeTest, testing::ValuesIn(kChanges),
                         [](const auto& change) { return std::string(change.param.name); });

TEST_F(PrinterBookTest, PlainChangesAnswerForTheServerAlone) {
  SimulatorFail("IMSPListABEntries", 0, kServerFault);
  EXPECT_EQ(book.DeletePrinter("Hall", true), 1);
  EXPECT_EQ(book.PrinterCount(), 0);
  PrinterRecord desk = MakePrinter("Desk", "Inky");
  EXPECT_EQ(book.AddPrinter(&desk, true), 0);  // the count after the failed load
}

TEST_F(PrinterBookTest, FastChangesOfPrintersThatAreNotInMemory) {
  Put(MakePrinter("Cellar", "Inky"));
  PrinterRecord cellar = MakePrinter("Cellar", "Laser");
  PrinterRecord den = MakePrinter("Den", "Laser");
  EXPECT_EQ(book.FastModifyPrinter(&cellar), 0);
  EXPECT_EQ(book.FastRenamePrinter("Cellar", &den), 0);
  EXPECT_EQ(book.FastDeletePrinter(&den), -1);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 8:PRINTERSAB Cellar Cellar",
                                       "IMSPModifyEntry 8:PRINTERSAB Cellar Den",
                                       "IMSPDeleteEntry 8:PRINTERSAB Den"));
  EXPECT_THAT(OnServer(), ElementsAreArray(kBefore));
  EXPECT_THAT(InMemory(), ElementsAreArray(kBefore));
}

TEST_F(PrinterBookTest, FastAddKeepsABoundCopy) {
  PrinterRecord desk = MakePrinter("Desk", "Laser", 1);
  ASSERT_EQ(book.FastAddPrinter(&desk), 4);
  const PrinterRecord* kept = book.PrinterAt(3);
  EXPECT_EQ(book.ModelOf(*kept), book.FindModel("Laser"));
  EXPECT_TRUE(book.Owns(*kept));
  EXPECT_FALSE(book.Owns(desk));
  PrinterRecord stored;
  ASSERT_EQ(SimulatorFindEntry(BookKind::kPrinters, "", nullptr, "Desk", &stored), 1);
  EXPECT_EQ(std::memcmp(&stored, kept, sizeof stored), 0);
}

TEST_F(PrinterBookTest, FastModifyCopiesTheLocalFieldsToo) {
  PrinterRecord attic = MakePrinter("Attic", "Laser");
  ASSERT_EQ(book.FastModifyPrinter(&attic), 1);
  EXPECT_FALSE(book.Owns(*book.PrinterAt(0)));
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), nullptr);
}

TEST_F(PrinterBookTest, LimitsAreReachedInMemory) {
  PutPrinters(253);
  PutModels(14);
  ASSERT_EQ(book.LoadBook(), 256);
  PrinterRecord printer = MakePrinter("Z", "Inky");
  PrinterModelRecord model = MakeModel("Z");
  TakeCalls();
  const std::function<std::int32_t()> additions[] = {
      [&] { return book.AddPrinter(&printer, true); },
      [&] { return book.FastAddPrinter(&printer); },
      [&] { return book.AddModel(&model, true); },
  };
  for (const auto& add : additions) {
    TheAgent.SetError(kNoError);
    EXPECT_EQ(add(), -1);
    EXPECT_EQ(TheAgent.LastError(), kBookFull);
  }
  EXPECT_THAT(TakeCalls(), ElementsAre());
  ASSERT_EQ(book.FastDeletePrinter(book.PrinterAt(255)), 255);
  EXPECT_EQ(book.FastAddPrinter(&printer), 256);
}

TEST_F(PrinterBookTest, ModelChanges) {
  PrinterModelRecord aqua = MakeModel("Aqua");
  EXPECT_EQ(book.AddModel(&aqua, false), 2);
  EXPECT_EQ(book.AddModel(&aqua, true), -1);  // the server has it already
  aqua.modelWord1 = 9;
  EXPECT_EQ(book.ModifyModel(&aqua, false), 1);
  EXPECT_EQ(book.DeleteModel("Laser", false), 1);
  EXPECT_EQ(book.DeleteModel("Laser", true), 0);
  EXPECT_THAT(
      TakeCalls(),
      ElementsAre("IMSPCreateEntry 2048:MODELAB Aqua", "IMSPCreateEntry 2048:MODELAB Aqua",
                  "IMSPModifyEntry 2048:MODELAB Aqua Aqua", "IMSPDeleteEntry 2048:MODELAB Laser",
                  "IMSPDeleteEntry 2048:MODELAB Laser"));
  EXPECT_NE(book.FindModel("Laser"), nullptr);
  EXPECT_EQ(book.ModifyModel(&aqua, true), 1);
  EXPECT_EQ(book.FindModel("Laser"), nullptr);
  ASSERT_NE(book.FindModel("Aqua"), nullptr);
  EXPECT_EQ(book.FindModel("Aqua")->modelWord1, 9U);
}

// --- The default printer ---

const std::vector<std::string> kMoveDefaultToLab = {
    "IMSPReadEntryProperties 8:PRINTERSAB Lab", "IMSPModifyEntry 8:PRINTERSAB Lab Lab",
    "IMSPModifyEntry 8:PRINTERSAB Hall Hall", kListPrinters};

TEST_F(PrinterBookTest, DefaultMoves) {
  EXPECT_EQ(book.FindDefaultPrinter(), 1);
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  std::vector<std::string> calls = TakeCalls();
  ASSERT_EQ(calls.size(), 7U);
  calls.resize(4);
  EXPECT_THAT(calls, ElementsAreArray(kMoveDefaultToLab));
  EXPECT_THAT(InMemory(), ElementsAre("Attic", "Hall", "Lab*"));
  EXPECT_THAT(OnServer(), ElementsAre("Attic", "Hall", "Lab*"));
}

TEST_F(PrinterBookTest, FaultsOfSetDefault) {
  struct Fault {
    std::int32_t call;
    std::vector<std::string> onServer;
    std::vector<std::string> inMemory;
  };
  const Fault kFaults[] = {
      {1, {"Attic", "Hall*", "Lab"}, {"Attic", "Hall*", "Lab"}},
      {2, {"Attic", "Hall*", "Lab"}, {"Attic", "Hall*", "Lab"}},
      {3, {"Attic", "Hall*", "Lab*"}, {"Attic", "Hall", "Lab"}},
      {4, {"Attic", "Hall", "Lab*"}, {}},
  };
  for (const Fault& each : kFaults) {
    SCOPED_TRACE(kMoveDefaultToLab[static_cast<std::size_t>(each.call) - 1]);
    Put(MakePrinter("Hall", "Inky", 1));
    Put(MakePrinter("Lab", "Plotter"));
    ASSERT_EQ(book.LoadPrinters(), 3);
    TakeCalls();
    SimulatorFail(nullptr, each.call, kServerFault);
    EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
    EXPECT_EQ(TheAgent.LastError(), kServerFault);
    EXPECT_THAT(TakeCalls(), testing::SizeIs(static_cast<std::size_t>(each.call)));
    EXPECT_THAT(OnServer(), ElementsAreArray(each.onServer));
    EXPECT_THAT(InMemory(), ElementsAreArray(each.inMemory));
    SimulatorClearFaults();
  }
}

TEST_F(PrinterBookTest, DefaultThatIsNamedAnewIsLost) {
  EXPECT_EQ(book.SetDefaultPrinter("Hall"), -1);
  EXPECT_THAT(OnServer(), ElementsAre("Attic", "Hall", "Lab"));
  EXPECT_EQ(book.FindDefaultPrinter(), -1);
}

TEST_F(PrinterBookTest, WithoutADefaultInMemoryTheListStaysStale) {
  book.PrinterAt(1)->isDefault = 2;
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_THAT(TakeCalls(), testing::SizeIs(2));
  EXPECT_THAT(OnServer(), ElementsAre("Attic", "Hall*", "Lab*"));
  EXPECT_EQ(book.FindDefaultPrinter(), -1);
}

// --- Searches ---

TEST_F(PrinterBookTest, Searches) {
  Put(MakePrinter("Hallway", "Inky"));
  EXPECT_EQ(book.FindNextPrinter(false), 1);  // before any First: behind index 0, every name
  ASSERT_EQ(book.LoadPrinters(), 4);
  EXPECT_EQ(book.FindFirstPrinter("Hall", false), 1);
  EXPECT_EQ(book.FindNextPrinter(false), 2);
  EXPECT_EQ(book.FindNextPrinter(false), 2);  // nothing more: the last hit again
  EXPECT_EQ(book.FindFirstPrinter("Hall", true), 1);
  EXPECT_EQ(book.FindNextPrinter(true), 1);
  EXPECT_EQ(book.FindFirstPrinter("hall", false), -1);
  EXPECT_EQ(book.FindNextPrinter(false), 1);  // from the front, with the old pattern
  EXPECT_EQ(book.PrinterIndex("Hallway"), 2);
  EXPECT_EQ(book.PrinterIndex("Hal"), -1);
  book.Clear();
  EXPECT_EQ(book.FindNextPrinter(false), 1);
  EXPECT_EQ(book.FindFirstPrinter("", false), -1);
}

}  // namespace
}  // namespace quillkit
