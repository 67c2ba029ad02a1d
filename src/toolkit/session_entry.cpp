#include "toolkit/session_entry.h"

#include <memory>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "platform/name_service.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

bool IsSlash(char c) {
  return c == '/' || c == '\\';
}

// Gives the handle a top-level book if the account has one. A load that fails leaves the book
// empty, and the login continues.
bool AttachTopBook(CScanner* scanner, const CUserRecord& user, std::int32_t load) {
  std::unique_ptr<CTopLevelAB> book;
  if (user.IsAdministrator() || user.IsToolkit()) {
    book = std::make_unique<CTopLevelAB>();
    if (book->Attach(scanner, load) == 0) return false;
  }
  const std::unique_ptr<CTopLevelAB> previous(scanner->DetachTopBook());
  if (book != nullptr) scanner->SetTopBook(book.release());
  return true;
}

}  // namespace

int BuildUserRecord(CUserRecord* record, const std::string& user, const std::string& password,
                    const std::string& third) {
  if (user.size() > record->name.kMaxLength) return 0;
  constexpr std::uint32_t kFlags = 0;
  constexpr std::uint32_t kNibbles = 1;
  return record->SetFrom(nullptr, user, password, third, {}, &kFlags, &kNibbles);
}

CScanner* ConnectToAppliance(const std::string& host, CUserRecord* user, std::int32_t loadTopBook) {
  CScanner target;
  std::uint32_t address = 0;
  SessionOpen = 0;
  if (ResolveHostName(host, &target, &address) == 0) return nullptr;
  std::string third;
  if (TheAgent.Login(user, &target, third, 0) != kNoError) {
    TheAgent.Logout(0);
    return nullptr;
  }
  CScanner* scanner = TheAgent.FindScanner(&address);
  if (!AttachTopBook(scanner, *user, loadTopBook)) return nullptr;
  SessionOpen = 1;
  return scanner;
}

int ResolveHostName(const std::string& host, CScanner* scanner, std::uint32_t* address) {
  *address = TextToAddress(host.c_str());
  if (*address == kNoAddress) {
    const std::uint32_t found = LookupHost(host.c_str());
    if (found == 0) {
      TheAgent.SetError(kInvalidHost);
      return 0;
    }
    *address = found;
  }
  return scanner->Init(host, address, {}, {}, &TheAgent);
}

std::uint32_t LookupHost(const char* text) {
  if (text == nullptr) return 0;
  for (int i = 0; i < 2 && IsSlash(*text); ++i) ++text;
  if (*text == '\0') return 0;
  std::uint32_t address = 0;
  if (!FindHostByName(text, &address)) address = TextToAddress(text);
  return address != kNoAddress ? address : 0;
}

}  // namespace quillkit
