// The journal of calls, and the format of arguments in it (simulator/simulator.h).

#ifndef QUILLKIT_SIMULATOR_JOURNAL_H_
#define QUILLKIT_SIMULATOR_JOURNAL_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/protocol.h"

namespace quillbox {

class Journal {
 public:
  struct Call {
    std::string text;
    Status status = kNoError;
  };

  bool IsRecording() const { return isRecording; }
  void Record(bool record) { isRecording = record; }
  void Clear() { calls.clear(); }
  void Add(std::string text, Status status) { calls.push_back({std::move(text), status}); }

  std::size_t Size() const { return calls.size(); }

  // Returns null for an index out of range.
  const Call* At(std::int32_t index) const;

 private:
  bool isRecording = false;
  std::vector<Call> calls;
};

// Arguments whose type does not define their format.
struct CountArgument {
  const std::uint32_t* count = nullptr;
};
struct RecordArgument {
  const void* record = nullptr;
};

// Appends one argument. Reads no text beyond its field.
void AppendArgument(std::string& line, const ABIdent* book);
void AppendArgument(std::string& line, const KeyRange* range);
void AppendArgument(std::string& line, const EntryKey* key);
void AppendArgument(std::string& line, const LoginRecord* login);
void AppendArgument(std::string& line, const IOCtlRecord* record);
void AppendArgument(std::string& line, const char* text);
void AppendArgument(std::string& line, CountArgument argument);
void AppendArgument(std::string& line, RecordArgument argument);
void AppendArgument(std::string& line, std::int32_t number);
void AppendArgument(std::string& line, std::uint32_t number);

template <class... Arguments>
std::string CallText(std::string_view entry, const Arguments&... arguments) {
  std::string line(entry);
  ((line += ' ', AppendArgument(line, arguments)), ...);
  return line;
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_JOURNAL_H_
