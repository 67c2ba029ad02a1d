// A file descriptor that closes itself.

#ifndef QUILLKIT_PLATFORM_POSIX_DESCRIPTOR_H_
#define QUILLKIT_PLATFORM_POSIX_DESCRIPTOR_H_

#include <unistd.h>

namespace quillkit {

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (IsOpen()) close(number_);
  }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_DESCRIPTOR_H_
