// An appliance with three printers and two models, and a book that has loaded them.

#ifndef QUILLKIT_TESTS_BOOKS_PRINTER_FIXTURE_H_
#define QUILLKIT_TESTS_BOOKS_PRINTER_FIXTURE_H_

#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "books/printer_ab.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {

inline constexpr Status kServerFault = 6;

inline const std::string kListModels = "IMSPListABEntries 2048:MODELAB [|*|0] 16 1";
inline const std::string kListPrinters = "IMSPListABEntries 8:PRINTERSAB [|*|0] 256 1";

inline PrinterRecord MakePrinter(std::string_view name, std::string_view model,
                                 std::int32_t isDefault = 0) {
  PrinterRecord printer;
  printer.SetAll(nullptr, name, "by the window", model, isDefault);
  return printer;
}

inline PrinterModelRecord MakeModel(std::string_view name) {
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

  // Store entries of made-up names.
  static void PutPrinters(int count) {
    for (int i = 0; i < count; ++i) Put(MakePrinter(Numbered('P', i), "Inky"));
  }
  static void PutModels(int count) {
    for (int i = 0; i < count; ++i) Put(MakeModel(Numbered('M', i)));
  }

  // What the appliance holds: the names, and a "*" behind that of a default.
  static std::vector<std::string> OnServer() {
    std::vector<std::string> shown;
    PrinterRecord printer;
    for (std::int32_t i = 0; SimulatorEntryAt(BookKind::kPrinters, "", nullptr, i, &printer) != 0;
         ++i) {
      shown.push_back(Show(printer));
    }
    return shown;
  }

  // The same for the book in memory.
  std::vector<std::string> InMemory() const {
    std::vector<std::string> shown;
    for (std::int32_t i = 0; i < book.PrinterCount(); ++i)
      shown.push_back(Show(*book.PrinterAt(i)));
    return shown;
  }

  static std::string Show(const PrinterRecord& printer) {
    return std::string(printer.printerName.View()) + (printer.isDefault == 1 ? "*" : "");
  }

  CScanner* const box;
  CPrinterAB book;

 private:
  static std::string Numbered(char letter, int number) {
    std::string name(1, letter);
    return name.append(std::to_string(number));
  }
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_BOOKS_PRINTER_FIXTURE_H_
