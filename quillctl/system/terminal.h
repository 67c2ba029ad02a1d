// The terminal that standard input may be.

#ifndef QUILLCTL_SYSTEM_TERMINAL_H_
#define QUILLCTL_SYSTEM_TERMINAL_H_

namespace quillkit {

// Whether somebody types what standard input gives.
bool IsInputTyped();

// While it lives, the terminal does not show what is typed. It does so again afterwards, also when
// the user interrupts the program, and the user cannot suspend it. In the background, it waits
// first until the program comes to the front. Without effect where standard input is no terminal.
// There is one at a time.
class HiddenInput {
 public:
  HiddenInput();
  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;
  ~HiddenInput();
};

}  // namespace quillkit

#endif  // QUILLCTL_SYSTEM_TERMINAL_H_
