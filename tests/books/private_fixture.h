// The private book of one account on both routes to the server: straight through the agent, as the
// session's own, and through the appliance of the account's owning book. The parameter says which.

#ifndef QUILLKIT_TESTS_BOOKS_PRIVATE_FIXTURE_H_
#define QUILLKIT_TESTS_BOOKS_PRIVATE_FIXTURE_H_

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "books/priv_email_ab.h"
#include "books/user_ab.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"

namespace quillkit {

inline std::string NumberedName(int number) {
  const std::string digits = std::to_string(number);
  return "n" + std::string(5 - digits.size(), '0') + digits;
}

class PrivateBookTest : public ApplianceTest, public testing::WithParamInterface<bool> {
 protected:
  PrivateBookTest() : box(LogIn()) {
    users.Attach(box, 0, 0);
    Name(account, "Anna");
    account.CreatePrivateBook();
    SimulatorClearJournal();
  }

  // Gives the record a name, and the owner that the route takes.
  void Name(CUserRecord& record, std::string_view name) {
    const std::uint32_t none = 0;
    record.SetFrom(GetParam() ? &users : nullptr, name, "secret", "", "", &none, &none);
  }

  CPrivEmailAB& Book() { return *account.PrivateBook(); }

  // Store in the private book and lists of who is logged in, behind the library's back.
  static void PutEntry(const CEmailEntry& entry) {
    SimulatorPutEntry(BookKind::kPrivateEmail, "", kAdministrator.c_str(), &entry);
  }
  static void PutMember(const char* list, const CEmailEntry& member) {
    SimulatorPutEntry(BookKind::kPrivateList, list, kAdministrator.c_str(), &member);
  }

  // What the appliance holds there, as name=address.
  static std::vector<std::string> OnServer(BookKind kind, const char* book) {
    std::vector<std::string> shown;
    CEmailEntry entry;
    for (std::int32_t i = 0; SimulatorEntryAt(kind, book, kAdministrator.c_str(), i, &entry) != 0;
         ++i) {
      shown.push_back(std::string(entry.name.View()) + "=" + std::string(entry.address.View()));
    }
    return shown;
  }
  static std::vector<std::string> EntriesOnServer() {
    return OnServer(BookKind::kPrivateEmail, "");
  }
  static std::vector<std::string> MembersOnServer(const char* list) {
    return OnServer(BookKind::kPrivateList, list);
  }

  CScanner* const box;
  CUserAB users;
  CUserRecord account;
};

// For INSTANTIATE_TEST_SUITE_P.
inline std::string RouteName(const testing::TestParamInfo<bool>& route) {
  return route.param ? "ThroughTheOwner" : "OfTheSession";
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_BOOKS_PRIVATE_FIXTURE_H_
