#include "quillctl/password.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/system/terminal.h"

namespace quillctl {
namespace {

// Far more than the library takes: what is cut here is refused there.
constexpr std::size_t kMostRead = 256;

std::string FirstLine(std::istream& in, const char* whatIsWrong) {
  std::string line;
  char c = 0;
  while (line.size() < kMostRead && in.get(c) && c != '\n') line += c;
  if (line.empty() && !in) throw UsageError(whatIsWrong);
  if (line.ends_with('\r')) line.pop_back();
  if (line.find('\0') != line.npos) throw UsageError("the password holds a character 0");
  return line;
}

}  // namespace

std::string PasswordInFile(const std::string& path) {
  std::ifstream file(path);
  return FirstLine(file, "the password file cannot be read or is empty");
}

std::string PasswordInInput() {
  const EchoOff echoOff;
  return FirstLine(std::cin, "standard input has no line with the password");
}

std::optional<std::string> PasswordInEnvironment() {
  const char* const value = std::getenv("QUILLCTL_PASSWORD");
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

std::string AskForPassword(const std::string& user, const std::string& host) {
  if (!StdinIsTerminal()) return {};
  const EchoOff echoOff;
  std::cerr << "Password of " << Quoted(user) << " at " << Quoted(host) << ": " << std::flush;
  std::string password = FirstLine(std::cin, "no password was typed");
  std::cerr << '\n';  // the one that was typed does not show either
  return password;
}

}  // namespace quillctl
