// The printers' book as a whole: how it is opened, loaded, measured and emptied.

#include <memory>

#include "base/archive.h"
#include "tests/books/printer_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

std::string ReadModel(const std::string& name) {
  return "IMSPReadEntryProperties 2048:MODELAB " + name;
}

std::string ReadPrinter(const std::string& name) {
  return "IMSPReadEntryProperties 8:PRINTERSAB " + name;
}

TEST_F(PrinterBookTest, LoadReadsEveryEntryByItself) {
  EXPECT_EQ(book.LoadBook(), 3);
  EXPECT_THAT(TakeCalls(),
              ElementsAre(kListModels, ReadModel("Inky"), ReadModel("Laser"), kListPrinters,
                          ReadPrinter("Attic"), ReadPrinter("Hall"), ReadPrinter("Lab")));
  EXPECT_THAT(InMemory(), ElementsAre("Attic", "Hall*", "Lab"));
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
struct LoadFault {
  const char* entry;
  std::int32_t occurrence;
  Status status;
  std::int32_t result;
  std::int32_t models;
  std::int32_t printers;
};

TEST_F(PrinterBookTest, FaultsOfALoad) {
  constexpr LoadFault kFaults[] = {
      {"IMSPListABEntries", 1, kServerFault, 3, 0, 3},  // printers are loaded without models
      {"IMSPListABEntries", 1, kMoreData, 3, 0, 3},
      {"IMSPListABEntries", 1, kDataNotFound, 0, 0, 3},  // and stay as they were with none
      {"IMSPReadEntryProperties", 1, kServerFault, 3, 1, 3},
      {"IMSPReadEntryProperties", 1, kDataNotFound, 3, 1, 3},
      {"IMSPReadEntryProperties", 2, kServerFault, 3, 1, 3},
      {"IMSPReadEntryProperties", 2, kDataNotFound, 0, 1, 3},  // the last model: looks like none
      {"IMSPListABEntries", 2, kServerFault, -1, 2, 0},
      {"IMSPListABEntries", 2, kDataNotFound, 0, 2, 0},
      {"IMSPListABEntries", 2, kMoreData, -2, 2, 0},
      {"IMSPReadEntryProperties", 4, kServerFault, 3, 2, 3},
  };
  for (const LoadFault& each : kFaults) {
    SCOPED_TRACE(std::string(each.entry) + " " + std::to_string(each.occurrence) + " gives " +
                 std::to_string(each.status));
    ASSERT_EQ(book.LoadBook(), 3);
    SimulatorFail(each.entry, each.occurrence, each.status);
    EXPECT_EQ(book.LoadBook(), each.result);
    EXPECT_EQ(book.ModelCount(), each.models);
    EXPECT_EQ(book.PrinterCount(), each.printers);
    SimulatorClearFaults();
  }
}

TEST_F(PrinterBookTest, PrinterThatCannotBeReadIsKeptWithItsName) {
  SimulatorFail("IMSPReadEntryProperties", 2, kServerFault);
  EXPECT_EQ(book.LoadPrinters(), 3);
  EXPECT_THAT(InMemory(), ElementsAre("Attic", "Hall", "Lab"));
  EXPECT_TRUE(book.PrinterAt(1)->description.IsEmpty());
  EXPECT_TRUE(book.Owns(*book.PrinterAt(1)));
}

TEST_F(PrinterBookTest, BooksBeyondTheLimits) {
  PutPrinters(254);
  EXPECT_EQ(book.LoadPrinters(), -2);
  EXPECT_EQ(book.PrinterCount(), 256);
  PutModels(15);
  EXPECT_EQ(book.LoadModels(), -1);
  EXPECT_EQ(book.ModelCount(), 0);
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

TEST_F(PrinterBookTest, AttachAnswersForTheLoad) {
  CPrinterAB other;
  EXPECT_EQ(other.Attach(nullptr, 1), 0);
  EXPECT_EQ(other.Attach(box, 0), 1);
  EXPECT_THAT(TakeCalls(), ElementsAre());
  EXPECT_EQ(other.Attach(box, 1), 3);
  EXPECT_EQ(other.Attach(nullptr, 1), 0);
  std::uint32_t count = 0;
  EXPECT_EQ(other.ServerCount(&count), kNoError);  // the scanner stayed
  EXPECT_EQ(count, 3U);
}

TEST_F(PrinterBookTest, WithoutScannerNothingIsSent) {
  CPrinterAB alone;
  PrinterRecord printer = MakePrinter("Attic", "Laser");
  PrinterModelRecord model = MakeModel("Inky");
  std::uint32_t count = 0;
  TheAgent.SetError(0);
  const std::int32_t results[] = {alone.LoadBook(),
                                  alone.LoadModels(),
                                  alone.LoadPrinters(),
                                  alone.ServerCount(&count),
                                  alone.ClearBook(),
                                  alone.AddModel(&model, true),
                                  alone.AddPrinter(&printer, true),
                                  alone.FastAddPrinter(&printer),
                                  alone.FastDeletePrinter(&printer),
                                  alone.SetDefaultPrinter("Attic")};
  EXPECT_THAT(results, testing::Each(-1));
  const std::int32_t refusals[] = {alone.DeleteModel("Inky", true),
                                   alone.ModifyModel(&model, true),
                                   alone.DeletePrinter("Attic", true),
                                   alone.ModifyPrinter(&printer, true),
                                   alone.RenamePrinter("Attic", &printer, true),
                                   alone.FastModifyPrinter(&printer),
                                   alone.FastRenamePrinter("Attic", &printer)};
  EXPECT_THAT(refusals, testing::Each(0));
  EXPECT_THAT(TakeCalls(), ElementsAre());
  EXPECT_EQ(TheAgent.LastError(), 0);
}

TEST_F(PrinterBookTest, ClearBookEmptiesBothSides) {
  EXPECT_EQ(book.ClearBook(), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", "IMSPClearAB 8:PRINTERSAB -",
                          "IMSPIOCtl 2 0", "IMSPIOCtl 1 30000"));
  EXPECT_THAT(OnServer(), ElementsAre());
  EXPECT_EQ(book.PrinterCount(), 0);
  EXPECT_EQ(book.ModelCount(), 2);

  SimulatorFail("IMSPClearAB", 1, kServerFault);
  const PrinterRecord spare = MakePrinter("Spare", "Inky");
  ASSERT_EQ(book.FastAddPrinter(&spare), 1);
  EXPECT_EQ(book.ClearBook(), kServerFault);
  EXPECT_EQ(book.PrinterCount(), 0);
  EXPECT_THAT(OnServer(), ElementsAre("Spare"));
}

// The time-out of an appliance need not be whole seconds, and comes back as it was.
TEST_F(PrinterBookTest, DeleteBookGoesToTheAgent) {
  SimulatorSetTimeout(30500);
  CPrinterAB unattached;
  EXPECT_EQ(unattached.DeleteBook(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                                       "IMSPDeleteAB 8:PRINTERSAB", "IMSPIOCtl 1 30500"));
  EXPECT_THAT(OnServer(), ElementsAre());
}

TEST_F(PrinterBookTest, FaultsOfDeleteBook) {
  SimulatorFail("IMSPIOCtl", 1, kServerFault);
  EXPECT_EQ(book.DeleteBook(), kServerFault);
  SimulatorFail("IMSPIOCtl", 2, kServerFault);
  EXPECT_EQ(book.DeleteBook(), kServerFault);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000"));
  EXPECT_EQ(book.PrinterCount(), 3);

  SimulatorFail("IMSPDeleteAB", 1, kServerFault);
  EXPECT_EQ(book.DeleteBook(), kServerFault);
  EXPECT_EQ(SimulatorTimeout(), 30000U);
  EXPECT_EQ(TheAgent.LastError(), kNoError);  // of the call that put the time-out back
  EXPECT_EQ(book.PrinterCount(), 0);
  EXPECT_THAT(OnServer(), testing::SizeIs(3));

  SimulatorFail("IMSPIOCtl", 3, kServerFault);
  EXPECT_EQ(book.DeleteBook(), kNoError);
  EXPECT_EQ(TheAgent.LastError(), kServerFault);
}

TEST_F(PrinterBookTest, StreamHoldsThePrintersAlone) {
  book.PrinterAt(0)->SetDescription("d");
  book.PrinterAt(1)->SetDescription("");
  std::string stored;
  Archive storing(&stored);
  book.Serialize(storing);
  using namespace std::string_literals;
  EXPECT_EQ(stored,
            "\5Attic\5Laser\1d\0\0\0\0"
            "\4Hall\4Inky\0\1\0\0\0"
            "\3Lab\7Plotter\15by the window\0\0\0\0"s);

  CPrinterAB other;
  other.Attach(box, 1);
  other.PrinterAt(0)->SetPrinterName("Gone");
  const std::uint32_t link = other.PrinterAt(0)->modelLink;
  Archive loading(stored);
  other.Serialize(loading);
  EXPECT_EQ(other.PrinterAt(0)->printerName, "Attic");
  EXPECT_EQ(other.PrinterAt(0)->description, "d");
  EXPECT_EQ(other.PrinterAt(0)->modelLink, link);
  EXPECT_EQ(loading.Remaining(), 0U);

  CPrinterAB empty;
  Archive untouched(stored);
  empty.Serialize(untouched);
  EXPECT_EQ(untouched.Remaining(), stored.size());
}

TEST_F(PrinterBookTest, RecordsRefuseTextsThatDoNotFit) {
  PrinterRecord printer = MakePrinter("Attic", "Laser", 1);
  const std::string tooLong(32, 'x');
  EXPECT_EQ(printer.SetPrinterName(tooLong), 0);
  EXPECT_EQ(printer.SetPrinterModel(tooLong), 0);
  EXPECT_EQ(printer.SetDescription(std::string(256, 'x')), 0);
  EXPECT_EQ(printer.SetDescription(std::string(255, 'x')), 1);
  EXPECT_EQ(printer.SetAll(&book, tooLong, "new", "Inky", 7), 1);
  EXPECT_EQ(printer.printerName, "Attic");
  EXPECT_EQ(printer.description, "new");
  EXPECT_EQ(printer.isDefault, 7);
  EXPECT_EQ(book.ModelOf(printer), book.FindModel("Inky"));
  EXPECT_EQ(printer.SetAll(nullptr, "n", "d", "Inky", 0), 1);
  EXPECT_FALSE(book.Owns(printer));
  EXPECT_EQ(book.ModelOf(printer), nullptr);
}

// --- The scanner's slot ---

// Tells when it is deleted.
class WatchedBook : public CPrinterAB {
 public:
  explicit WatchedBook(int* deletions) : deletions_(deletions) {}
  ~WatchedBook() override { ++*deletions_; }

 private:
  int* deletions_;
};

TEST_F(PrinterBookTest, ScannerOwnsItsBook) {
  int deletions = 0;
  auto* watched = new WatchedBook(&deletions);
  EXPECT_EQ(box->PrintersBook(), nullptr);
  EXPECT_EQ(box->SetPrintersBook(watched), 1);
  EXPECT_EQ(box->SetPrintersBook(watched), 1);
  EXPECT_EQ(box->PrintersBook(), watched);
  EXPECT_EQ(box->DetachPrintersBook(), watched);
  EXPECT_EQ(box->PrintersBook(), nullptr);
  EXPECT_EQ(box->SetPrintersBook(watched), 1);
  EXPECT_THAT(TakeCalls(), ElementsAre());
  EXPECT_EQ(deletions, 0);
  EXPECT_EQ(box->SetPrintersBook(nullptr), 1);
  EXPECT_EQ(deletions, 1);
  EXPECT_EQ(box->PrintersBook()->PrinterCount(), 3);
}

TEST_F(PrinterBookTest, ScannerOpensABookThatCannotBeLoaded) {
  SimulatorFail(nullptr, 0, kServerFault);
  EXPECT_EQ(box->SetPrintersBook(nullptr), 1);
  EXPECT_THAT(TakeCalls(), ElementsAre(kListModels, kListPrinters));
  EXPECT_EQ(box->PrintersBook()->PrinterCount(), 0);
}

TEST_F(PrinterBookTest, UnboundScannerKeepsItsBookToItself) {
  int deletions = 0;
  WatchedBook other(&deletions);
  {
    CScanner scanner;
    const std::uint32_t address = 1;
    scanner.Init("box", &address, "", "", &TheAgent);
    scanner.SetPrintersBook(new WatchedBook(&deletions));
    scanner.SetAgent(nullptr);
    EXPECT_EQ(scanner.PrintersBook(), nullptr);
    EXPECT_EQ(scanner.DetachPrintersBook(), nullptr);
    EXPECT_EQ(scanner.SetPrintersBook(&other), 0);
    EXPECT_EQ(scanner.SetPrintersBook(nullptr), 0);
    EXPECT_EQ(deletions, 0);
  }
  EXPECT_EQ(deletions, 1);
}

TEST_F(PrinterBookTest, BookIsMadeByItsName) {
  const std::unique_ptr<RootObject> made(CreateByName("CPrinterAB"));
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->GetRuntimeClass(), &CPrinterAB::kClass);
  EXPECT_EQ(CPrinterAB::kClass.schema, 1U);
}

}  // namespace
}  // namespace quillkit
