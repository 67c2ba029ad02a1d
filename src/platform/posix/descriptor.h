// A file descriptor that closes itself.

#ifndef QUILLKIT_PLATFORM_POSIX_DESCRIPTOR_H_
#define QUILLKIT_PLATFORM_POSIX_DESCRIPTOR_H_

#include <unistd.h>

namespace quillkit {

class Descriptor {
 public:
  explicit Descriptor(int newNumber) : number(newNumber) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (IsOpen()) close(number);
  }

  bool IsOpen() const { return number >= 0; }
  int Number() const { return number; }

 private:
  int number;
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_DESCRIPTOR_H_
