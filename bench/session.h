// A session of the class library on the ready server, for the benchmarks.

#ifndef QUILLKIT_BENCH_SESSION_H_
#define QUILLKIT_BENCH_SESSION_H_

#include <cstdio>
#include <cstdlib>

#include "bridge/the_agent.h"
#include "toolkit/quillkit.h"

namespace quillkit {

// Ends the program with a message if the condition is false.
inline void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "%s failed: status %d\n", what, GetLastToolkitError());
  std::exit(1);
}

// Returns the scanner of the session. The first call loads the server library and logs in.
inline CScanner* Session() {
  static CScanner* const scanner = [] {
    Require(TheAgent.LoadServerLibrary() == 0, "LoadServerLibrary");
    return LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
  }();
  Require(scanner != nullptr, "LogToQuillbox");
  return scanner;
}

}  // namespace quillkit

#endif  // QUILLKIT_BENCH_SESSION_H_
