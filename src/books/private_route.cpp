#include "books/private_route.h"

#include "appliance/scanner.h"
#include "books/user_ab.h"
#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// It has no address: the access methods ask for an agent alone.
class SessionRoute : public CScanner {
 public:
  SessionRoute() { SetAgent(&TheAgent); }
};

}  // namespace

const CScanner& PrivateRoute(const CUserAB* owner) {
  static const SessionRoute session;
  static const CScanner nowhere;
  if (owner == nullptr) return session;
  return owner->HasScanner() ? *owner->Scanner() : nowhere;
}

}  // namespace quillkit
