// An appliance, and objects of its e-mail, fax and users' books that are attached to it but not
// loaded. The private book is that of the account Anna, whose owner is the users' book.

#ifndef QUILLKIT_TESTS_BOOKS_BOOKS_FIXTURE_H_
#define QUILLKIT_TESTS_BOOKS_BOOKS_FIXTURE_H_

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/priv_email_ab.h"
#include "books/user_ab.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"

namespace quillkit {

inline constexpr Status kFault = 11;         // a call that the simulator makes fail
inline constexpr Status kEarlierError = 99;  // the last error before a test

class BooksTest : public ApplianceTest {
 public:
  BooksTest() : box(LogIn()) {
    email.Attach(box, 0);
    fax.Attach(box, 0);
    users.Attach(box, 0, 0);
    account.SetOwner(&users);
    Name(account, "Anna");
    account.CreatePrivateBook();
    Start();
  }

  // Forgets the calls and sets the last error.
  static void Start() {
    SimulatorClearJournal();
    TheAgent.SetError(kEarlierError);
  }

  CPrivEmailAB& Private() { return *account.PrivateBook(); }

  // Names another record of the same owner.
  void Name(CUserRecord& record, std::string_view name) const {
    const std::uint32_t none = 0;
    record.SetFrom(account.Owner(), name, "secret", "", "", &none, &none);
  }

  // Put records on the appliance, private ones for the administrator, who is logged in. PutNames
  // puts any kind of record, since the name is the first field of all.
  template <class Entry>
  static void Put(BookKind kind, const std::string& book, const Entry& entry) {
    SimulatorPutEntry(kind, book.c_str(), kAdministrator.c_str(), &entry);
  }
  static void PutNames(BookKind kind, const std::string& book,
                       std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names) {
      const struct {
        CEmailEntry entry;
        char rest[1000];
      } record = {MakeEntry(name), {}};
      Put(kind, book, record);
    }
  }

  // The names and addresses of an e-mail book or list on the appliance.
  static std::vector<std::string> OnServer(BookKind kind, const char* book) {
    std::vector<std::string> shown;
    CEmailEntry entry;
    for (std::int32_t i = 0; SimulatorEntryAt(kind, book, kAdministrator.c_str(), i, &entry) != 0;
         ++i) {
      shown.push_back(std::string(entry.name.View()) + "=" + std::string(entry.address.View()));
    }
    return shown;
  }

  // The members in memory, such as "Ann=at:0 " with the flags last.
  static std::string Members(const CEmailDL& list) {
    std::string shown;
    for (std::int32_t i = 0; i < list.Count(); ++i) {
      const CEmailEntry& each = *list.GetAt(i);
      shown.append(each.Name()).append("=").append(each.Address());
      shown.append(":").append(std::to_string(each.flags)).append(" ");
    }
    return shown;
  }

  CScanner* const box;
  CEmailAB email;
  CFaxAB fax;
  CUserAB users;
  CUserRecord account;
};

// A test of the private book. It runs twice: for an account with an owner, and for one without an
// owner, whose private book is that of the session.
class PrivateBookTest : public BooksTest, public testing::WithParamInterface<bool> {
 public:
  PrivateBookTest() {
    if (!GetParam()) account.SetOwner(nullptr);
  }
};

// For INSTANTIATE_TEST_SUITE_P.
inline std::string RouteName(const testing::TestParamInfo<bool>& route) {
  return route.param ? "WithOwner" : "OfTheSession";
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_BOOKS_BOOKS_FIXTURE_H_
