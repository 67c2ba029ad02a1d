#include "console/password.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "console/displayed_text.h"
#include "console/failure.h"
#include "console/system/terminal.h"

namespace console {
namespace {

// Far more than the library accepts, so that it refuses a password that is cut here.
constexpr std::size_t kMaxPasswordLine = 256;

std::string FirstLine(std::istream& in, const std::string& fault) {
  std::string line;
  char c = 0;
  while (line.size() < kMaxPasswordLine && in.get(c) && c != '\n') line += c;
  if (line.empty() && !in) throw UsageError(fault);
  if (line.ends_with('\r')) line.pop_back();
  if (line.find('\0') != line.npos) throw UsageError("the password contains a NUL character");
  return line;
}

// Prints the question and reads the answer at the terminal, without echo.
std::string Answer(const std::string& question) {
  const EchoOff echoOff;
  std::cerr << question << ": " << std::flush;
  std::string password = FirstLine(std::cin, "no password was entered");
  std::cerr << '\n';  // the terminal does not echo the user's newline either
  return password;
}

}  // namespace

std::string PasswordFromFile(const std::string& path, const std::string& option) {
  if (path == "-") return PasswordFromStdin();
  std::ifstream file(path);
  return FirstLine(file, option + ": cannot read the file, or it is empty");
}

std::string PasswordFromStdin() {
  const EchoOff echoOff;
  return FirstLine(std::cin, "--password-stdin: standard input is empty");
}

std::optional<std::string> PasswordFromEnvironment() {
  const char* const value = std::getenv("QUILLCTL_PASSWORD");
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

std::string AskForPassword(const std::string& title) {
  return StdinIsTerminal() ? Answer("Password of " + title) : std::string();
}

std::string AskForNewPassword(const std::string& account) {
  if (!StdinIsTerminal()) throw UsageError("without a terminal, add --new-password-file");
  std::string password = Answer("New password of the account " + Quoted(account));
  if (Answer("The same again") == password) return password;
  throw UsageError("the passwords differ; nothing was changed");
}

}  // namespace console
