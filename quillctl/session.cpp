#include "quillctl/session.h"

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/password.h"

namespace quillctl {
namespace {

// A login that the library refuses itself, before it asks the server, records nothing.
std::string WhyNoLogin(const Credentials& credentials) {
  const std::int32_t status = quillkit::GetLastToolkitError();
  if (status != 0) return CodeAndText(status);
  if (credentials.user.size() > 31) return "the user has more than 31 characters";
  if (credentials.password->size() > 15) return "the password has more than 15 characters";
  if (credentials.third.size() > 255) return "the third field has more than 255 characters";
  return "no appliance can have this address";
}

}  // namespace

Session::Session(const Credentials& credentials) : credentials_(credentials) {
  if (!credentials_.password) {
    credentials_.password = AskForPassword(credentials_.user, credentials_.host);
  }
  LogIn();
}

void Session::LogIn() {
  scanner_ = quillkit::LogToQuillbox(credentials_.host, credentials_.user, *credentials_.password,
                                     credentials_.third, 0);
  open_ = scanner_ != nullptr;
  if (open_) return;
  throw LoginRefusal("cannot log in to " + Quoted(credentials_.host) + " as " +
                     Quoted(credentials_.user) + ": " + WhyNoLogin(credentials_));
}

Session::~Session() {
  LogOut();
  quillkit::Exit();
}

void Session::LogOut() {
  if (open_) quillkit::Logout();
  open_ = false;
}

quillkit::CTopLevelAB* Session::book() const {
  quillkit::CTopLevelAB* book = quillkit::GetTopLevelAbook(scanner_);
  if (book != nullptr) return book;
  throw Refusal(Quoted(user()) + " has no soft keys; ADMINISTRATOR and TOOLKIT do");
}

quillkit::CTopLevelAB* Session::LoadKeys(bool withItems) const {
  quillkit::CTopLevelAB* const loaded = book();
  RequireGood(quillkit::LoadTopLevelAbook(loaded, withItems ? 1 : 0), "read the soft keys");
  return loaded;
}

}  // namespace quillctl
