// The printers' book beyond the failures of its calls: links to models, order, limits, the default
// printer, searches.

#include "books/printer_ab.h"

#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

PrinterRecord MakePrinter(std::string_view name, std::string_view model,
                          std::int32_t isDefault = 0) {
  PrinterRecord printer;
  printer.SetAll(nullptr, name, "by the window", model, isDefault);
  return printer;
}

class PrinterBookTest : public ApplianceTest {
 protected:
  PrinterBookTest() {
    for (const char* name : {"Inky", "Laser"}) PutModel(name);
    Put(MakePrinter("Attic", "Laser"));
    Put(MakePrinter("Hall", "Inky", 1));
    Put(MakePrinter("Lab", "Plotter"));
    EXPECT_EQ(book.Attach(LogIn(), 1), 3);
    SimulatorClearJournal();
  }

  // Store on the appliance alone.
  static void Put(const PrinterRecord& printer) {
    SimulatorPutEntry(BookKind::kPrinters, "", nullptr, &printer);
  }
  static PrinterModelRecord PutModel(std::string_view name) {
    PrinterModelRecord model;
    model.SetModelName(name);
    SimulatorPutEntry(BookKind::kModels, "", nullptr, &model);
    return model;
  }

  // The names of the printers, with a "*" after that of a default printer.
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

  CPrinterAB book;
};

TEST_F(PrinterBookTest, PrintersAreLinkedToTheModelsOfTheirBook) {
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), book.ModelAt(1));
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(1)), book.FindModel("Inky"));
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(2)), nullptr) << "there is no model Plotter";
  EXPECT_TRUE(book.Owns(*book.PrinterAt(2)));
  EXPECT_EQ(book.PrinterAt(3), nullptr);
  EXPECT_EQ(book.ModelAt(-1), nullptr);

  CPrinterAB other;
  EXPECT_EQ(other.Attach(nullptr, 1), 0);
  EXPECT_EQ(other.Attach(TheAgent.ScannerAt(0), 0), 1);
  EXPECT_EQ(other.LoadBook(), 3);
  EXPECT_FALSE(other.Owns(*book.PrinterAt(0)));
  EXPECT_EQ(other.ModelOf(*book.PrinterAt(0)), nullptr);

  PutModel("Aqua");
  ASSERT_EQ(book.LoadModels(), 3);
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), nullptr)
      << "printers are linked when they are loaded";
  ASSERT_EQ(book.LoadPrinters(), 3);
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(0)), book.FindModel("Laser"));
}

TEST_F(PrinterBookTest, TextsOfAFaultyServerAreTerminated) {
  Put(MakePrinter(std::string(31, 'L'), "Inky"));
  SimulatorSetDefects(kDefectDeliveredCount | kDefectUnterminated | kDefectUnsorted |
                      kDefectFailedCount);
  EXPECT_EQ(book.LoadModels(), 0) << "models with unterminated names are not loaded";
  EXPECT_EQ(book.LoadPrinters(), 256);
  EXPECT_EQ(book.PrinterAt(1)->printerName, std::string(31, 'L'));
  EXPECT_EQ(book.PrinterAt(1)->description.Length(), 255U);
  for (std::int32_t i = 0; i < book.PrinterCount(); ++i) EXPECT_TRUE(book.PrinterAt(i)->IsValid());
}

TEST_F(PrinterBookTest, SerializesPrintersButNotModels) {
  const std::string stored = Stored(book);
  using namespace std::string_literals;
  EXPECT_EQ(stored,
            "\5Attic\5Laser\15by the window\0\0\0\0"
            "\4Hall\4Inky\15by the window\1\0\0\0"
            "\3Lab\7Plotter\15by the window\0\0\0\0"s);

  book.PrinterAt(0)->SetPrinterName("Gone");
  const std::uint32_t link = book.PrinterAt(0)->modelLink;
  EXPECT_EQ(Load(book, stored).Remaining(), 0U);
  EXPECT_EQ(InMemory(), "Attic Hall* Lab ");
  EXPECT_EQ(book.PrinterAt(0)->modelLink, link);
}

TEST_F(PrinterBookTest, ARecordKeepsItsTextIfTheNewOneDoesNotFit) {
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

TEST_F(PrinterBookTest, FastChangesKeepTheOrderAndTheOwners) {
  PrinterRecord cellar = MakePrinter("Cellar", "Laser");
  PrinterRecord den = MakePrinter("Den", "Laser");
  EXPECT_EQ(book.FastAddPrinter(&cellar), 4);
  EXPECT_EQ(book.ModelOf(*book.PrinterAt(3)), book.FindModel("Laser"));
  EXPECT_TRUE(book.Owns(*book.PrinterAt(3))) << "the book owns the printer that it added";
  EXPECT_FALSE(book.Owns(cellar));
  EXPECT_EQ(book.FastModifyPrinter(&cellar), 1);
  EXPECT_FALSE(book.Owns(*book.PrinterAt(3)))
      << "the caller's record, which no book owns, replaces it";
  EXPECT_EQ(book.FastRenamePrinter("Hall", &den), 1);
  EXPECT_EQ(InMemory(), "Attic Den Lab Cellar ");
  EXPECT_EQ(book.FastDeletePrinter(book.PrinterAt(1)), 3) << "the record passed is destroyed";
  EXPECT_EQ(InMemory(), "Attic Lab Cellar ");
}

TEST_F(PrinterBookTest, TheDefaultMovesToAnotherPrinterAndIsLostIfSetAgain) {
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_EQ(InMemory(), "Attic Hall Lab* ");
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_EQ(OnServer(), "Attic Hall Lab ");
  EXPECT_EQ(book.FindDefaultPrinter(), -1);
}

TEST_F(PrinterBookTest, WithoutADefaultInMemoryTheListIsNotLoadedAgain) {
  EXPECT_EQ(book.FindDefaultPrinter(), 1);
  book.PrinterAt(1)->isDefault = 2;
  EXPECT_EQ(book.SetDefaultPrinter("Lab"), -1);
  EXPECT_THAT(TakeCalls(), testing::SizeIs(2));
  EXPECT_EQ(OnServer(), "Attic Hall* Lab* ");
  EXPECT_EQ(book.FindDefaultPrinter(), -1);
}

TEST_F(PrinterBookTest, FindNextRepeatsTheLastHitIfThereIsNoOther) {
  Put(MakePrinter("Hallway", "Inky"));
  EXPECT_EQ(book.FindNextPrinter(false), 1) << "a search without a pattern starts at index 1";
  ASSERT_EQ(book.LoadPrinters(), 4);
  EXPECT_EQ(book.FindFirstPrinter("Hal", true), -1);
  EXPECT_EQ(book.PrinterIndex("Hal"), -1);
  EXPECT_EQ(book.FindFirstPrinter("Hall", false), 1);
  EXPECT_EQ(book.FindNextPrinter(true), 1) << "without another hit, the last one is returned";
  EXPECT_EQ(book.FindNextPrinter(false), 2);
  book.Clear();
  EXPECT_EQ(book.FindFirstPrinter("", false), -1);
}

}  // namespace
}  // namespace quillkit
