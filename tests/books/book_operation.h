// The operations of the books, the lists and the accounts that call the server, as a table: their
// calls on a stage that is always set alike, and what the failure of each does to them. Those where
// a failure changes what the later calls find have tests of their own.

#ifndef QUILLKIT_TESTS_BOOKS_BOOK_OPERATION_H_
#define QUILLKIT_TESTS_BOOKS_BOOK_OPERATION_H_

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/printer_ab.h"
#include "books/priv_email_ab.h"
#include "books/user_ab.h"
#include "books/user_record.h"

namespace quillkit {

// What the operations are tried on. Each of the books, on the appliance and in memory, has the
// entries Ann and Bob and one list, Board, of these two; there is an account Ann beside those of
// the system, and the printers' model is Ann. Bob is the default printer.
struct BookStage {
  // What the books are on: the appliance with the above, the appliance as it is found, or none,
  // with what an archive brought.
  enum class Setting { kFurnished, kAsFound, kWithoutABook };

  explicit BookStage(bool throughOwner, Setting setting = Setting::kFurnished);

  // Puts the above on the appliance.
  void Furnish();

  // All that is held, whatever its order, in a form to be compared.
  std::vector<std::string> Held();

  CScanner* box;
  CEmailAB email;
  CFaxAB fax;
  CUserAB users;
  CPrinterAB printers;
  CUserRecord user;  // Ann, whose private book is `priv`
  CPrivEmailAB* priv;
  CUserRecord newUser;  // Zoe
  CEmailEntry ann;
  CEmailEntry zoe;
  CFaxEntry faxAnn;
  CFaxEntry faxZoe;
  PrinterRecord printerAnn;
  PrinterRecord printerZoe;
  PrinterModelRecord model;  // Ann
  PrinterModelRecord newModel;
};

// What an operation gives when it fails: the status, -1, 0, nothing that tells.
enum class FailureStyle { kStatus, kCount, kFlag, kSilent };

// `calls` names every call without its "IMSP", and what its failure does, by the last character:
//   !  the operation fails and makes no further call
//   4  so, but for code 4, which means that there is nothing and is no failure
//   -  the operation succeeds, without the calls that would have followed
//   ~  nobody looks at it: the run goes on as if undisturbed
//   ?  the operation fails, and the run goes on
//   +  so, but for code 4
// A number behind it tells how many of the calls that follow are then left out. Further words:
//   after    what is held after a failure that ends the operation, but for that of a read, is what
//            an undisturbed run leaves, and not what was held before
//   neither  it is something else, which the tests of the class itself tell
//   stale    what is held after an undisturbed run need not be what the appliance has
//   loose    the operation does not need a book or an appliance; others give -1 then, or what
//   stands
//            for it, and make no call
struct BookOperation {
  bool Has(std::string_view word) const { return calls.find(word) != std::string::npos; }

  std::string name;
  FailureStyle style;
  std::string calls;
  std::int64_t success;
  std::function<std::int64_t(BookStage&)> run;
};

inline std::ostream& operator<<(std::ostream& out, const BookOperation& each) {
  return out << each.name;
}

std::vector<BookOperation> BookOperations();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_BOOKS_BOOK_OPERATION_H_
