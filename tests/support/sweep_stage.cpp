#include "tests/support/sweep_stage.h"

#include <algorithm>
#include <string_view>

#include "simulator/simulator.h"
#include "softkeys/soft_key.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"
#include "tests/support/menu_item.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

void Name(CUserRecord& record, std::string_view name, CUserAB* owner) {
  const std::uint32_t none = 0;
  record.SetFrom(owner, name, "secret", "", "", &none, &none);
}

// Copies the contents of `from` to `to` through an archive.
template <class Book>
void CopyContents(Book& from, Book& to) {
  Load(to, Stored(from));
}

std::string Shown(const CEmailEntry& entry) {
  return std::string(entry.Name()) + "=" + entry.Address();
}
std::string Shown(const CFaxEntry& entry) {
  return std::string(entry.Name()) + "=" + entry.Number();
}
std::string Shown(const CUserRecord& account) {
  return std::string(account.Name()) + "=" + account.Fourth();
}
std::string Shown(const PrinterRecord& printer) {
  return std::string(printer.printerName.View()) + "=" + std::string(printer.description.View()) +
         (printer.isDefault != 0 ? " default" : "");
}

// Adds a line for each of the `size` objects that `at` returns.
template <class At>
void Show(Lines& lines, const std::string& prefix, std::int32_t size, At at) {
  for (std::int32_t i = 0; i < size; ++i) lines.push_back(prefix + Shown(*at(i)));
}

template <class Book>
void ShowLists(Lines& lines, const std::string& prefix, const Book& book) {
  for (std::int32_t i = 0; i < book.ListCount(); ++i) {
    auto* list = book.ListAt(i);
    lines.push_back(prefix + list->Name());
    Show(lines, lines.back() + "/", list->Count(),
         [&](std::int32_t at) { return list->GetAt(at); });
  }
}

}  // namespace

Stage::Stage(CScanner* newBox, bool throughOwner, Setting setting, bool withAccounts)
    : box(newBox),
      item(MakeItem("Desk")),
      newItem(MakeItem("Fresh")),
      ann(MakeEntry("Ann", "elsewhere")),
      zoe(MakeEntry("Zoe")),
      faxAnn(MakeFax("Ann", "elsewhere")),
      faxZoe(MakeFax("Zoe")),
      loadsAccounts(withAccounts) {
  Name(user, "Ann", throughOwner ? &users : nullptr);
  Name(newUser, "Zoe", throughOwner ? &users : nullptr);
  printerAnn.SetAll(nullptr, "Ann", "elsewhere", "Ann", 0);
  printerZoe.SetAll(nullptr, "Zoe", "at", "Ann", 0);
  model.SetModelName("Ann");
  newModel.SetModelName("Zoe");
  if (setting == kFurnished) Furnish();
  user.SetFourth("elsewhere");
  if (setting == kWithoutABook) {
    Stage other(newBox, throughOwner);
    LoadFromArchive(other);
  } else {
    OpenBooks();
  }
}

void Stage::Furnish() {
  for (const char* name : {"Ann", "Bob"}) {
    const CEmailEntry entry = MakeEntry(name);
    const CEmailEntry own = MakeEntry(name, "at", 1);
    const CFaxEntry faxEntry = MakeFax(name);
    SimulatorPutEntry(BookKind::kEmail, "", nullptr, &entry);
    SimulatorPutEntry(BookKind::kPublicList, "Board", nullptr, &entry);
    SimulatorPutEntry(BookKind::kPrivateEmail, "", kAdministrator.c_str(), &own);
    SimulatorPutEntry(BookKind::kPrivateList, "Board", kAdministrator.c_str(), &own);
    SimulatorPutEntry(BookKind::kFax, "", nullptr, &faxEntry);
    SimulatorPutEntry(BookKind::kFaxList, "Board", nullptr, &faxEntry);
    PrinterRecord printer;
    printer.SetAll(nullptr, name, "at", "Ann", name == std::string_view("Bob") ? 1 : 0);
    SimulatorPutEntry(BookKind::kPrinters, "", nullptr, &printer);
    PrinterModelRecord each;
    each.SetModelName(name);
    SimulatorPutEntry(BookKind::kModels, "", nullptr, &each);
  }
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, static_cast<CUserEntry*>(&user));
  ApplianceTest::PutKey("Scan", {"Desk", "Mail"});
  ApplianceTest::PutKey("Send", {"Fax"});
}

void Stage::Load() {
  book = GetTopLevelAbook(box);
  EXPECT_EQ(LoadTopLevelAbook(book, 1), 0);
  email.Attach(box, 0);
  email.LoadLists(1);
  fax.Attach(box, 1);
  fax.LoadLists(1);
  users.Attach(box, 0, loadsAccounts ? 1 : 0);
  printers.Attach(box, 1);
  user.LoadPrivateBook();
}

void Stage::OpenBooks() {
  Load();
  key = GetKeyAt(book, 0);
  EXPECT_EQ(CreateSoftKey("Copy", book, &newKey), 1);
  priv = user.PrivateBook();
  choir->Open(&email, "Board");
  faxChoir->Open(&fax, "Board");
  privChoir->Open(priv, "Board");
  choir->SetName("Choir");
  faxChoir->SetName("Choir");
  privChoir->SetName("Choir");
}

void Stage::LoadFromArchive(Stage& other) {
  user.CreatePrivateBook();
  priv = user.PrivateBook();
  CopyContents(other.email, email);
  CopyContents(other.fax, fax);
  CopyContents(*other.priv, *priv);
}

// A block that is loaded from an archive has no room for more records.
void Stage::ShrinkBlocks() {
  for (fax.FirstEntry(); fax.NextEntry() != nullptr;) {  // stored up to the position of the walk
  }
  CopyContents(fax, fax);
  fax.LoadLists(1);
  CopyContents(*priv, *priv);
  for (std::int32_t i = 0; i < priv->ListCount(); ++i) priv->ListAt(i)->SetBook(priv);
  auto items = static_cast<std::uint32_t>(GetItemCount(key));
  std::string bytes;
  Archive archive(&bytes);
  std::string pattern;
  archive.Exchange(items);
  archive.Exchange(pattern);
  for (std::int32_t i = 0; i < GetItemCount(key); ++i) GetItemAt(key, i)->Serialize(archive);
  quillkit::Load(*key, bytes);
  for (const char* name : {"Cid", "Dan"}) {
    const CEmailEntry entry = MakeEntry(name);
    const CFaxEntry faxEntry = MakeFax(name);
    SimulatorPutEntry(BookKind::kPublicList, "Board", nullptr, &entry);
    SimulatorPutEntry(BookKind::kPrivateList, "Board", kAdministrator.c_str(), &entry);
    SimulatorPutEntry(BookKind::kFaxList, "Board", nullptr, &faxEntry);
  }
}

Lines Stage::Keys(CTopLevelAB* book) {
  Lines lines;
  for (std::int32_t i = 0; book != nullptr && i < GetCount(book); ++i) {
    CSoftKey* key = GetKeyAt(book, i);
    const std::string name = std::string("key/") + GetKeyName(key);
    lines.push_back(name);
    for (std::int32_t at = 0; at < GetItemCount(key); ++at) {
      lines.push_back(name + "/" + GetItemName(GetItemAt(key, at)));
    }
  }
  return lines;
}

Lines Stage::Memory() {
  Lines lines = Keys(box != nullptr ? GetTopLevelAbook(box) : nullptr);
  ShowLists(lines, "email-list/", email);
  ShowLists(lines, "fax-list/", fax);
  Show(lines, "fax/", fax.EntryCount(), [&](std::int32_t i) { return fax.EntryAt(i); });
  if (CPrivEmailAB* own = user.PrivateBook()) {
    ShowLists(lines, "private-list/", *own);
    Show(lines, "private/", own->EntryCount(), [&](std::int32_t i) { return own->EntryAt(i); });
  }
  Show(lines, "printer/", printers.PrinterCount(),
       [&](std::int32_t i) { return printers.PrinterAt(i); });
  for (std::int32_t i = 0; i < printers.ModelCount(); ++i) {
    lines.push_back("model/" + std::string(printers.ModelAt(i)->modelName.View()));
  }
  CUserRecord record;
  Show(lines, "account/", users.Count(), [&](std::int32_t i) { return users.GetAt(i, &record); });
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace quillkit
