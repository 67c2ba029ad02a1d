// The contents of a new appliance: a small office.

#include <string_view>

#include "simulator/appliance.h"

namespace quillbox {
namespace {

struct Account {
  std::string_view name, password, third, fourth;
};
constexpr Account kAccounts[] = {
    {"Agnes Moreau", "linden", "10.0.4.21", "Front office"},
    {"Bertil Sj\xF6gren", "harbour", "10.0.4.22", "Sales"},
    {"Carmen Ib\xE1\xF1\x65z", "saffron", "10.0.4.23", "Sales"},
    {"Dietmar Kl\xF6pfer", "granite", "10.0.4.31", "Workshop"},
    {"Ewa Nowicka", "juniper", "10.0.4.32", "Accounts"},
    {"Fenna de Wit", "cobalt", "", "Legal"},
    {"Gareth Pugh", "thimble", "10.0.4.40", "Directors"},
};

struct Address {
  std::string_view name, address;
};
constexpr Address kEmail[] = {
    {"Agnes Moreau", "agnes.moreau@office.example"},
    {"All staff", "staff@office.example"},
    {"Andersson, Karin", "k.andersson@printworks.example"},
    {"Archive", "archive@office.example"},
    {"Bertil Sj\xF6gren", "bertil.sjogren@office.example"},
    {"Bookkeeping", "books@office.example"},
    {"Carmen Ib\xE1\xF1\x65z", "carmen.ibanez@office.example"},
    {"City Council, Planning", "planning@council.example"},
    {"Courier desk", "dispatch@courier.example"},
    {"Dietmar Kl\xF6pfer", "dietmar.kloepfer@office.example"},
    {"Ewa Nowicka", "ewa.nowicka@office.example"},
    {"Fenna de Wit", "fenna.dewit@office.example"},
    {"Gareth Pugh", "gareth.pugh@office.example"},
    {"Harbour Insurance", "claims@harbour-insurance.example"},
    {"Invoices", "invoices@office.example"},
    {"Jansen & Zoon", "info@jansen-zoon.example"},
    {"Laboratory", "lab@clinic.example"},
    {"Meyer Elevators", "service@meyer-elevators.example"},
    {"Notary Public Oliveira", "oliveira@notary.example"},
    {"Payroll", "payroll@office.example"},
    {"Stationery orders", "orders@paperhouse.example"},
    {"Tax office", "returns@tax.example"},
    {"Vik\xE1rov\xE1, Jana", "jana@vikarova.example"},
    {"W\xFCrth Schreinerei", "buero@wuerth.example"},
    {"\xC5kesson, Olof", "olof.akesson@timber.example"},
    {"\xD8stergaard A/S", "post@ostergaard.example"},
};

constexpr Address kMinutes[] = {
    {"Agnes Moreau", "agnes.moreau@office.example"},
    {"Ewa Nowicka", "ewa.nowicka@office.example"},
    {"Gareth Pugh", "gareth.pugh@office.example"},
};

struct Fax {
  std::string_view name, number, third;
};
constexpr Fax kFax[] = {
    {"City Council, Planning", "+31 20 555 0114", "1"},
    {"Courier desk", "+31 20 555 0187", ""},
    {"Harbour Insurance", "+44 20 5550 0142", "2"},
    {"Jansen & Zoon", "+31 30 555 0119", ""},
    {"Meyer Elevators", "+49 40 5550 0177", ""},
    {"Notary Public Oliveira", "+351 21 555 0163", "1"},
    {"Tax office", "+31 70 555 0100", ""},
    {"W\xFCrth Schreinerei", "+49 711 5550 0128", ""},
};

constexpr Address kModels[] = {
    {"Inkline 220", "Colour, two trays"},
    {"Laserette 9", "Black and white, duplex"},
};

struct Printer {
  std::string_view name, description, model;
};
constexpr Printer kPrinters[] = {
    // the first is the default
    {"Copy room", "First floor, by the stairs", "Laserette 9"},
    {"Directors", "Second floor, east", "Inkline 220"},
    {"Workshop", "Ground floor, behind the bench", "Laserette 9"},
};

struct Item {
  std::string_view key, name, address, path, tag;
  std::uint32_t settings, format;
};
constexpr Item kItems[] = {
    {"Archive", "Contracts", "10.0.4.5", "/scans/contracts", "records", 0x00010012, 3},
    {"Archive", "Delivery notes", "10.0.4.5", "/scans/delivery", "records", 0x00010002, 3},
    {"Archive", "Incoming mail", "10.0.4.5", "/scans/mail", "records", 0x00010002, 3},
    {"Archive", "Invoices", "10.0.4.5", "/scans/invoices", "records", 0x00010002, 3},
    {"Archive", "Personnel", "10.0.4.5", "/scans/personnel", "records", 0x00030012, 3},
    {"Archive", "Photographs", "10.0.4.5", "/scans/photos", "records", 0x00020021, 1},
    {"Desks", "Agnes", "10.0.4.21", "/inbox", "viewer", 0x00010002, 2},
    {"Desks", "Bertil", "10.0.4.22", "/inbox", "viewer", 0x00010002, 2},
    {"Desks", "Carmen", "10.0.4.23", "/inbox", "viewer", 0x00010002, 2},
    {"Desks", "Ewa", "10.0.4.32", "/inbox", "ledger", 0x00010002, 2},
    {"Workshop", "Drawings A3", "10.0.4.31", "/drawings/a3", "drafting", 0x00020031, 1},
    {"Workshop", "Drawings A4", "10.0.4.31", "/drawings/a4", "drafting", 0x00020021, 1},
};

BookPath Fixed(BookKind kind) {
  return {kind, {}, {}};
}

void SeedAccounts(Store& store) {
  for (const Account& each : kAccounts) {
    CUserEntry record;
    record.SetName(each.name);
    record.SetPassword(each.password);
    record.SetThird(each.third);
    record.SetFourth(each.fourth);
    record.flags = 1;
    record.nibbles = 1;
    store.Put(Fixed(BookKind::kUsers), &record);
  }
}

// Adds entries of the e-mail book or of a list.
template <std::size_t N>
void SeedAddresses(Store& store, const BookPath& path, const Address (&addresses)[N]) {
  for (const Address& each : addresses) {
    CEmailEntry record;
    record.SetName(each.name);
    record.SetAddress(each.address);
    store.Put(path, &record);
  }
}

void SeedFax(Store& store) {
  for (const Fax& each : kFax) {
    CFaxEntry record;
    record.SetName(each.name);
    record.SetNumber(each.number);
    record.SetThird(each.third);
    store.Put(Fixed(BookKind::kFax), &record);
  }
}

void SeedPrinters(Store& store) {
  for (const Address& each : kModels) {
    PrinterModelRecord record;
    record.modelName.Assign(each.name);
    record.modelText.Assign(each.address);
    store.Put(Fixed(BookKind::kModels), &record);
  }
  for (const Printer& each : kPrinters) {
    PrinterRecord record;
    record.printerName.Assign(each.name);
    record.description.Assign(each.description);
    record.printerModel.Assign(each.model);
    record.isDefault = &each == &kPrinters[0] ? 1 : 0;
    store.Put(Fixed(BookKind::kPrinters), &record);
  }
}

void SeedKeys(Store& store) {
  for (const Item& each : kItems) {
    CMenuItem record;
    record.SetName(each.name);
    record.SetIPAddress(each.address);
    record.SetPath(each.path);
    record.SetAppTag(each.tag);
    record.settings = each.settings;
    record.fileFormat = each.format;
    store.Put({BookKind::kKeyItems, EntryKey(each.key), {}}, &record);
  }
}

}  // namespace

void Seed(Store& store) {
  SeedAccounts(store);
  SeedAddresses(store, Fixed(BookKind::kEmail), kEmail);
  SeedAddresses(store, {BookKind::kPublicList, EntryKey("Minutes"), {}}, kMinutes);
  SeedFax(store);
  SeedPrinters(store);
  SeedKeys(store);
}

}  // namespace quillbox
