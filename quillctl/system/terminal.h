// Standard input as a terminal.

#ifndef QUILLCTL_SYSTEM_TERMINAL_H_
#define QUILLCTL_SYSTEM_TERMINAL_H_

namespace quillctl {

// Returns whether standard input is a terminal.
bool StdinIsTerminal();

// While this object exists, the terminal does not echo what is typed. The destructor restores the
// echo, and so does Ctrl-C. The user cannot suspend the program during this time. If the program is
// in the background, the constructor waits until it is in the foreground. No effect if standard
// input is not a terminal. Only one object may exist at a time.
class EchoOff {
 public:
  EchoOff();
  EchoOff(const EchoOff&) = delete;
  EchoOff& operator=(const EchoOff&) = delete;
  ~EchoOff();
};

}  // namespace quillctl

#endif  // QUILLCTL_SYSTEM_TERMINAL_H_
