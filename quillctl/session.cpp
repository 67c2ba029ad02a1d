#include "quillctl/session.h"

#include "bridge/status.h"
#include "console/displayed_text.h"
#include "console/password.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

constexpr const char* kLibraryHint =
    "; if the server library was not found, name its folder in LD_LIBRARY_PATH, or in PATH on "
    "Windows";

// Returns the reason of a failed login. If the library refuses it without a server call, it records
// no error.
std::string LoginFault(const Credentials& credentials) {
  const std::int32_t status = quillkit::GetLastToolkitError();
  if (status == quillkit::kNotInitialised) return CodeAndText(status) + kLibraryHint;
  if (status != 0) return CodeAndText(status);
  if (credentials.user.size() > 31) return "the user name has more than 31 bytes";
  if (credentials.password->size() > 15) return "the password has more than 15 bytes";
  if (credentials.third.size() > 255) return "the third text has more than 255 bytes";
  return "this address is invalid for an appliance";
}

}  // namespace

Session::Session(const Credentials& newCredentials) : credentials(newCredentials) {
  if (!credentials.password) {
    credentials.password = console::AskForPassword(console::Quoted(credentials.user) + " at " +
                                                   console::Quoted(credentials.host));
  }
  LogIn();
}

void Session::LogIn() {
  for (const std::string& user : console::FormsOf(credentials.user)) {
    scanner = quillkit::LogToQuillbox(credentials.host, user, *credentials.password,
                                      credentials.third, 0);
    isOpen = scanner != nullptr;
    if (isOpen) credentials.user = user;
    if (isOpen || quillkit::GetLastToolkitError() != quillkit::kWrongUser) break;
  }
  if (isOpen) return;
  throw LoginRefusal("cannot log in to " + console::Quoted(credentials.host) + " as " +
                     console::Quoted(credentials.user) + ": " + LoginFault(credentials));
}

Session::~Session() {
  LogOut();
  quillkit::Exit();
}

void Session::LogOut() {
  if (isOpen) quillkit::Logout();
  isOpen = false;
}

quillkit::CTopLevelAB* Session::Book() const {
  quillkit::CTopLevelAB* book = quillkit::GetTopLevelAbook(scanner);
  if (book != nullptr) return book;
  throw Refusal("the account " + console::Quoted(User()) +
                " cannot manage soft keys; log in as ADMINISTRATOR or TOOLKIT");
}

quillkit::CTopLevelAB* Session::LoadKeys(bool withItems) const {
  quillkit::CTopLevelAB* const loaded = Book();
  RequireSuccess(quillkit::LoadTopLevelAbook(loaded, withItems ? 1 : 0), "read the soft keys");
  return loaded;
}

}  // namespace quillctl
