// A file that is open for reading or for writing.
//
// Reads and writes are not buffered. An operation that a signal interrupts is continued. Child
// processes do not inherit the file. On Windows, no other program can open it for writing while it
// is open.

#ifndef QUILLKIT_PLATFORM_OPEN_FILE_H_
#define QUILLKIT_PLATFORM_OPEN_FILE_H_

#include <cstddef>
#include <string_view>
#include <utility>

namespace quillkit {

class OpenFile {
 public:
  // No file.
  OpenFile() = default;
  // The file with this descriptor of the C library. A negative one is no file.
  explicit OpenFile(int newDescriptor) : descriptor(newDescriptor) {}
  OpenFile(OpenFile&& other) noexcept { *this = std::move(other); }
  OpenFile& operator=(OpenFile&& other) noexcept {
    std::swap(descriptor, other.descriptor);
    std::swap(hasFailed, other.hasFailed);
    return *this;
  }
  ~OpenFile() { Close(); }

  // Opens the file at `path` for reading. IsOpen() is false on failure, or if `path` is null.
  static OpenFile ToRead(const char* path);

  // Opens the file at `path` for writing; creates it, or empties it if it exists. IsOpen() is false
  // on failure, or if `path` is null.
  static OpenFile ToWrite(const char* path);

  bool IsOpen() const { return descriptor >= 0; }
  int Descriptor() const { return descriptor; }

  // From now on each newline is written as this system ends the lines of text files.
  void WriteAsText();

  // Reads until `bytes` holds `size` bytes, the file ends or a read fails. Returns how many it
  // holds.
  std::size_t Read(char* bytes, std::size_t size);

  // Writes all bytes. Returns false on failure.
  bool Write(std::string_view bytes);

  // Waits until what was written is on the disk. Returns false on failure.
  bool Sync();

  // Whether an operation has failed.
  bool HasFailed() const { return hasFailed; }

  // Closes the file. Returns false if there is none, or if this or any operation before failed.
  bool Close();

 private:
  // One operation of the system, which may read or write a part of the bytes only. Returns their
  // number, 0 at the end of a file that is read, or a negative number on failure.
  std::ptrdiff_t ReadPart(char* bytes, std::size_t size) const;
  std::ptrdiff_t WritePart(std::string_view bytes) const;

  int descriptor = -1;
  bool hasFailed = false;
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_OPEN_FILE_H_
