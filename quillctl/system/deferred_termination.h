// A program that has to finish something before it ends.

#ifndef QUILLCTL_SYSTEM_ENDING_H_
#define QUILLCTL_SYSTEM_ENDING_H_

namespace quillkit {

// While it lives, Ctrl-C and other demands to end the program are only noted, but for one behind
// another, which ends it as ever, unless the terminal has gone. Output that nobody reads any more
// fails, and does not end it. There is one at a time.
class DeferredEnding {
 public:
  DeferredEnding();
  DeferredEnding(const DeferredEnding&) = delete;
  DeferredEnding& operator=(const DeferredEnding&) = delete;
  ~DeferredEnding();

  // Whether the program is to end.
  bool IsDemanded() const;
};

}  // namespace quillkit

#endif  // QUILLCTL_SYSTEM_ENDING_H_
