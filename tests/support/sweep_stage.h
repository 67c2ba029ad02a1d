// The stage of the failure sweep and of the sweep over allocations: an appliance, and all objects
// that an application has of it.

#ifndef QUILLKIT_TESTS_SUPPORT_SWEEP_STAGE_H_
#define QUILLKIT_TESTS_SUPPORT_SWEEP_STAGE_H_

#include <memory>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/printer_ab.h"
#include "books/priv_email_ab.h"
#include "books/user_ab.h"
#include "books/user_record.h"
#include "toolkit/quillkit.h"

namespace quillkit {

using Lines = std::vector<std::string>;

// Each book, on the appliance and in memory, has the entries Ann and Bob and one list, Board, of
// these two. There is an account Ann beside those of the system. There are printer models Ann and
// Bob; the printers' model is Ann, and Bob is the default printer. The panel has the keys Scan (of
// the items Desk and Mail) and Send (of the item Fax).
struct Stage {
  // kFurnished: the appliance is filled as above, and the books are attached to it. kAsFound: the
  // books are attached to the appliance as it is. kWithoutABook: the books are attached to no
  // appliance, and their lists are loaded from an archive.
  enum Setting { kFurnished, kAsFound, kWithoutABook };

  // The private book is the one of the session, or with `throughOwner` that of an account of the
  // users' book. The accounts take most of the time of a load.
  explicit Stage(CScanner* newBox, bool throughOwner = false, Setting setting = kFurnished,
                 bool withAccounts = true);
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;
  ~Stage() { DestroySoftKey(newKey); }

  // Loads the top-level book, the books and the lists of `box`, as at the beginning.
  void Load();

  // Makes the blocks of records in memory as small as possible and puts more members into the lists
  // on the appliance, so that additions and reloads need memory.
  void ShrinkBlocks();

  // All entries, lists, accounts, printers, models, keys and items in memory, sorted, such as
  // "fax/Ann=at". The keys are left out if the application has no access to them.
  Lines Memory();

  // The keys of a book with their items, as "key/Scan/Desk"; none for null.
  static Lines Keys(CTopLevelAB* book);

  CScanner* box;
  CTopLevelAB* book = nullptr;
  CSoftKey* key = nullptr;     // Scan of the book
  CSoftKey* newKey = nullptr;  // Copy
  CMenuItem item;              // Desk
  CMenuItem newItem;           // Fresh

  CEmailAB email;
  CFaxAB fax;
  CUserAB users;
  CPrinterAB printers;
  CUserRecord user;  // Ann, whose private book is `priv`
  CPrivEmailAB* priv = nullptr;
  CUserRecord newUser;  // Zoe
  CEmailEntry ann;
  CEmailEntry zoe;
  CFaxEntry faxAnn;
  CFaxEntry faxZoe;
  PrinterRecord printerAnn;
  PrinterRecord printerZoe;
  PrinterModelRecord model;     // Ann
  PrinterModelRecord newModel;  // Zoe

  // Lists that no book has yet, with the members of Board.
  std::unique_ptr<CPubEmailDL> choir = std::make_unique<CPubEmailDL>();
  std::unique_ptr<CPubFaxDL> faxChoir = std::make_unique<CPubFaxDL>();
  std::unique_ptr<CPrivEmailDL> privChoir = std::make_unique<CPrivEmailDL>();

 private:
  void Furnish();
  void OpenBooks();
  void LoadFromArchive(Stage& other);

  const bool loadsAccounts;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_SWEEP_STAGE_H_
