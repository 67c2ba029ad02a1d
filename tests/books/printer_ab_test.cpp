// The printers' book: how it is opened, loaded and emptied, its changes, the default printer.

#include "books/printer_ab.h"

#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

constexpr Status kServerFault = 6;

PrinterRecord MakePrinter(std::string_view name, std::string_view model,
                          std::int32_t isDefault = 0) {
  PrinterRecord printer;
  printer.SetAll(nullptr, name, "by the window", model, isDefault);
  return printer;
}

PrinterModelRecord MakeModel(std::string_view name) {
  PrinterModelRecord model;
  model.SetModelName(name);
  return model;
}

class PrinterBookTest : public ApplianceTest {
 protected:
  PrinterBookTest() : box(LogIn()) {
    for (const char* name : {"Inky", "Laser"}) Put(MakeModel(name));
    Put(MakePrinter("Attic", "Laser"));
    Put(MakePrinter("Hall", "Inky", 1));
    Put(MakePrinter("Lab", "Plotter"));
    book.Attach(box, 1);
    SimulatorClearJournal();
  }

  // Store behind the library's back.
  static void Put(const PrinterRecord& printer) {
    SimulatorPutEntry(BookKind::kPrinters, "", nullptr, &printer);
  }
  static void Put(const PrinterModelRecord& model) {
    SimulatorPutEntry(BookKind::kModels, "", nullptr, &model);
  }

  // What the appliance holds, and what the book does: the names, with a "*" behind a default's.
  static std::string OnServer() {
    std::string shown;
    PrinterRecord each;
    for (int i = 0; SimulatorEntryAt(BookKind::kPrinters, "", nullptr, i, &each) != 0; ++i) {
      shown += Shown(each);
    }
    return shown;
  }
  std::string InMemory() const {
    std::string shown;
    for (int i = 0; i < book.PrinterCount(); ++i) shown += Shown(*book.PrinterAt(i));
    return shown;
  }
  static std::string Shown(const PrinterRecord& printer) {
    return std::string(printer.printerName.View()) + (printer.isDefault == 1 ? "* " : " ");
  }

  CScanner* const box;
  CPrinterAB book;
};

TEST_F(PrinterBookTest, ALoadReadsEveryEntryByItself) {
  CPrinterAB other;
  EXPECT_EQ(other.Attach(nullptr, 1), 0);
  EXPECT_EQ(other.Attach(box, 0), 1);
  EXPECT_EQ(other.Attach(box, 1), 3);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPListABEntries 2048:MODELAB [|*|0] 16 1",
                                       "IMSPReadEntryProperties 2048:MODELAB Inky",
                                       "IMSPReadEntryProperties 2048:MODELAB Laser",
                                       "IMSPListABEntries 8:PRINTERSAB [|*|0] 256 1",
                                       "IMSPReadEntryProperties 8:PRINTERSAB Attic",
                                       "IMSPReadEntryProperties 8:PRINTERSAB Hall",
                                       "IMSPReadEntryProperties 8:PRINTERSAB Lab"));
  EXPECT_EQ(InMemory(), "Attic Hall* Lab ");
  EXPECT_EQ(book.PrinterAt(0)->description, "by the window");
  EXPECT_EQ(book.PrinterAt(3), nullptr);
  EXPECT_EQ(book.ModelAt(-1), nullptr);
}

TEST_F(PrinterBookTest, PrintersAreLinkedToTheirModels) {
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), book.ModelAt(1));
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(1)), book.FindModel("Inky"));
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(2)), nullptr);  // there is no such model
  EXPECT_TRUE(book.Owns(*book.PrinterAt(2)));

  CPrinterAB other;
  other.Attach(box, 1);
  EXPECT_FALSE(other.Owns(*book.PrinterAt(0)));
  EXPECT_EQ(other.ModelOf(*book.PrinterAt(0)), nullptr);

  Put(MakeModel("Aqua"));
  ASSERT_EQ(book.LoadModels(), 3);
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), nullptr);  // linked before the models were loaded
  ASSERT_EQ(book.LoadPrinters(), 3);
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), book.FindModel("Laser"));
}

// What each call of a load brings about when it fails, by its place in the journal above.
TEST_F(PrinterBookTest, FaultsOfALoad) {
  struct Fault {
    const char* entry;
    std::int32_t occurrence;
    Status status;
    std::int32_t result, models, printers;
  };
  constexpr Fault kFaults[] = {
      {"IMSPListABEntries", 1, kServerFault, 3, 0, 3},  // printers are loaded without models
      {"IMSPListABEntries", 1, kMoreData, 3, 0, 3},
      {"IMSPListABEntries", 1, kDataNotFound, 0, 0, 3},  // and stay as they were with none
      {"IMSPReadEntryProperties", 1, kDataNotFound, 3, 1, 3},
      {"IMSPReadEntryProperties", 2, kServerFault, 3, 1, 3},
      {"IMSPReadEntryProperties", 2, kDataNotFound, 0, 1, 3},  // the last model: looks like none
      {"IMSPListABEntries", 2, kServerFault, -1, 2, 0},
      {"IMSPListABEntries", 2, kDataNotFound, 0, 2, 0},
      {"IMSPListABEntries", 2, kMoreData, -2, 2, 0},
      {"IMSPReadEntryProperties", 4, kServerFault, 3, 2, 3},
  };
  for (const Fault& each : kFaults) {
    SCOPED_TRACE(testing::Message() << each.entry << each.occurrence << " gives " << each.status);
    SimulatorClearFaults();
    ASSERT_EQ(book.LoadBook(), 3);
    SimulatorFail(each.entry, each.occurrence, each.status);
    EXPECT_EQ(book.LoadBook(), each.result);
    EXPECT_EQ(book.ModelCount(), each.models);
    EXPECT_EQ(book.PrinterCount(), each.printers);
  }
  EXPECT_EQ(InMemory(), "Attic Hall Lab ");  // the last: Hall with its name
  EXPECT_TRUE(book.PrinterAt(1)->description.IsEmpty());
  EXPECT_TRUE(book.Owns(*book.PrinterAt(1)));
}

TEST_F(PrinterBookTest, LyingServer) {
  Put(MakePrinter(std::string(31, 'L'), "Inky"));
  SimulatorSetLies(kLieDeliveredCount | kLieUnterminated | kLieUnsorted | kLieFailedCount);
  EXPECT_EQ(book.LoadModels(), 0);  // no name that was claimed can be read
  EXPECT_EQ(book.LoadPrinters(), 256);
  EXPECT_EQ(book.PrinterAt(1)->printerName, std::string(31, 'L'));
  EXPECT_EQ(book.PrinterAt(1)->description.Length(), 255U);
  for (std::int32_t i = 0; i < book.PrinterCount(); ++i) EXPECT_TRUE(book.PrinterAt(i)->IsValid());
}

TEST_F(PrinterBookTest, StreamHoldsThePrintersAlone) {
  std::string stored;
  Archive storing(&stored);
  book.Serialize(storing);
  using namespace std::string_literals;
  EXPECT_EQ(stored,
            "\5Attic\5Laser\15by the window\0\0\0\0"
            "\4Hall\4Inky\15by the window\1\0\0\0"
            "\3Lab\7Plotter\15by the window\0\0\0\0"s);

  book.PrinterAt(0)->SetPrinterName("Gone");
  const std::uint32_t link = book.PrinterAt(0)->modelLink;
  Archive loading(stored);
  book.Serialize(loading);
  EXPECT_EQ(InMemory(), "Attic Hall* Lab ");
  EXPECT_EQ(book.PrinterAt(0)->modelLink, link);
  EXPECT_EQ(loading.Remaining(), 0U);

  CPrinterAB empty;
  Archive untouched(stored);
  empty.Serialize(untouched);
  EXPECT_EQ(untouched.Remaining(), stored.size());
}

TEST_F(PrinterBookTest, RecordsRefuseTextsThatDoNotFit) {
  PrinterRecord printer = MakePrinter("Attic", "Laser", 1);
  const std::string tooLong(32, 'x');
  EXPECT_EQ(printer.SetPrinterModel(tooLong), 0);
  EXPECT_EQ(printer.SetDescription(std::string(256, 'x')), 0);
  EXPECT_EQ(printer.SetAll(&book, tooLong, "new", "Inky", 7), 1);
  EXPECT_EQ(printer.printerName, "Attic");
  EXPECT_EQ(printer.description, "new");
  EXPECT_EQ(printer.isDefault, 7);
  EXPECT_EQ(book.ModelOf(printer), book.FindModel("Inky"));
}

// --- Changes ---

TEST_F(PrinterBookTest, FastChangesKeepTheOrderOfTheList) {
  Put(MakePrinter("Cellar", "Inky"));
  PrinterRecord cellar = MakePrinter("Cellar", "Laser");
  PrinterRecord den = MakePrinter("Den", "Laser");
  EXPECT_EQ(book.FastModifyPrinter(&cellar), 0);  // on the server, and not held here
  EXPECT_EQ(book.FastRenamePrinter("Cellar", &den), 0);
  EXPECT_EQ(book.FastDeletePrinter(&den), -1);
  EXPECT_EQ(book.FastAddPrinter(&cellar), 4);
  EXPECT_EQ(book.FastRenamePrinter("Hall", &den), 1);
  EXPECT_EQ(InMemory(), "Attic Den Lab Cellar ");
  EXPECT_EQ(book.FastDeletePrinter(book.PrinterAt(1)), 3);  // the record that is given goes
  EXPECT_EQ(InMemory(), "Attic Lab Cellar ");
}

TEST_F(PrinterBookTest, FastAddKeepsABoundCopyAndFastModifyTheRecordAsItIs) {
  PrinterRecord desk = MakePrinter("Desk", "Laser", 1);
  ASSERT_EQ(book.FastAddPrinter(&desk), 4);
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(3)), book.FindModel("Laser"));
  EXPECT_TRUE(book.Owns(*book.PrinterAt(3)));
  EXPECT_FALSE(book.Owns(desk));
  PrinterRecord attic = MakePrinter("Attic", "Laser");
  ASSERT_EQ(book.FastModifyPrinter(&attic), 1);
  EXPECT_FALSE(book.Owns(*book.PrinterAt(0)));
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), nullptr);
}

TEST_F(PrinterBookTest, LimitsAreReachedInMemory) {
  const auto number = [](int i) { return "N" + std::to_string(i); };
  for (int i = 3; i < 256; ++i) Put(MakePrinter(number(i), "Inky"));
  for (int i = 2; i < 16; ++i) Put(MakeModel(number(i)));
  ASSERT_EQ(book.LoadBook(), 256);
  PrinterRecord printer = MakePrinter("Z", "Inky");
  PrinterModelRecord model = MakeModel("Z");
  TakeCalls();
  const auto expectFull = [](std::int32_t result) {
    EXPECT_EQ(result, -1);
    EXPECT_EQ(TheAgent.LastError(), kBookFull);
    TheAgent.SetError(kNoError);
  };
  expectFull(book.AddPrinter(&printer, true));
  expectFull(book.FastAddPrinter(&printer));
  expectFull(book.AddModel(&model, true));
  EXPECT_THAT(TakeCalls(), ElementsAre());
  Put(printer);
  Put(model);
  EXPECT_EQ(book.LoadPrinters(), -2);
  EXPECT_EQ(book.PrinterCount(), 256);
  EXPECT_EQ(book.LoadModels(), -1);
  EXPECT_EQ(book.ModelCount(), 0);
}

// --- The default printer ---

TEST_F(PrinterBookTest, DefaultMoves) {
  EXPECT_EQ(book.FindDefaultPrinter(), 1);
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_EQ(InMemory(), "Attic Hall Lab* ");
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_EQ(OnServer(), "Attic Hall Lab ") << "named anew it is lost";
  EXPECT_EQ(book.FindDefaultPrinter(), -1);
}

TEST_F(PrinterBookTest, WithoutADefaultInMemoryTheListStaysStale) {
  book.PrinterAt(1)->isDefault = 2;
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_THAT(TakeCalls(), testing::SizeIs(2));
  EXPECT_EQ(OnServer(), "Attic Hall* Lab* ");
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
