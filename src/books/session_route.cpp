#include "books/session_route.h"

#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// Has an address, because sizes need a bound scanner. The address is not used: all calls go to the
// agent.
class SessionScanner : public CScanner {
 public:
  SessionScanner() {
    const std::uint32_t any = 1;
    SetAddress(&any);
    SetAgent(&TheAgent);
  }
};

}  // namespace

const CScanner& SessionRoute() {
  static const SessionScanner session;
  return session;
}

}  // namespace quillkit
