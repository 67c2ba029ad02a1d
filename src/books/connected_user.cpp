#include "books/connected_user.h"

#include <algorithm>
#include <string_view>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"

namespace quillkit {

CUserRecord* ConnectedUser(const CScanner* scanner) {
  const CAgent* agent = scanner != nullptr ? scanner->Agent() : nullptr;
  return (agent != nullptr ? *agent : TheAgent).CurrentUser();
}

int IsConnectedUserAdministrator(const CScanner* scanner) {
  const CUserRecord* user = ConnectedUser(scanner);
  return user != nullptr && user->IsAdministrator() ? 1 : 0;
}

int GetConnectedUserName(const CScanner* scanner, char* buffer, std::size_t size) {
  const CUserRecord* user = ConnectedUser(scanner);
  if (user == nullptr || size == 0) return 0;
  const std::string_view name = user->name.View().substr(0, size - 1);
  std::fill(std::copy(name.begin(), name.end(), buffer), buffer + size, '\0');
  return 1;
}

}  // namespace quillkit
