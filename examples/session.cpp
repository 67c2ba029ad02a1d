#include "examples/session.h"

#include "examples/displayed_text.h"
#include "examples/failures.h"

namespace quillctl {
namespace {

// A login that the library refuses itself, before it asks the server, records nothing.
std::string WhyNoLogin(const Credentials& credentials) {
  const std::int32_t status = quillkit::GetLastToolkitError();
  if (status != 0) return CodeAndText(status);
  if (credentials.user.size() > 31) return "the user has more than 31 characters";
  if (credentials.password.size() > 15) return "the password has more than 15 characters";
  if (credentials.third.size() > 255) return "the third field has more than 255 characters";
  return "no appliance can have this address";
}

}  // namespace

Session::Session(const Credentials& credentials)
    : scanner_(quillkit::LogToQuillbox(credentials.host, credentials.user, credentials.password,
                                       credentials.third, 0)),
      user_(credentials.user) {
  if (scanner_ == nullptr) {
    throw Refusal("cannot log in to " + Quoted(credentials.host) + " as " +
                  Quoted(credentials.user) + ": " + WhyNoLogin(credentials));
  }
}

Session::~Session() {
  LogOut();
  quillkit::Exit();
}

void Session::LogOut() {
  if (open_) quillkit::Logout();
  open_ = false;
}

quillkit::CTopLevelAB* Session::LoadKeys(bool withItems) const {
  quillkit::CTopLevelAB* book = quillkit::GetTopLevelAbook(scanner_);
  if (book == nullptr) {
    throw Refusal(Quoted(user_) + " has no soft keys; ADMINISTRATOR and TOOLKIT do");
  }
  RequireGood(quillkit::LoadTopLevelAbook(book, withItems ? 1 : 0), "read the soft keys");
  return book;
}

}  // namespace quillctl
