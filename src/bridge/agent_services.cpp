// The services of the agent outside the session: long operations, the log book, checks and texts.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "bridge/agent.h"
#include "bridge/long_timeout.h"

namespace quillkit {
namespace {

using enum LongTimeout::Unit;

constexpr std::uint32_t kMaxLogRecords = 1'000'000;
constexpr std::size_t kServerTextSize = 400;  // bytes
constexpr std::size_t kCommandSize = 400;     // bytes
constexpr std::size_t kCommandWordLength = 14;
constexpr std::string_view kCommandWords[] = {"DBBACKUP......", "DBRESTORE.....", "DBCHECK......."};
constexpr std::int32_t kBackup = 0;
constexpr std::int32_t kRestore = 1;
constexpr std::int32_t kCheck = 2;

}  // namespace

Status CAgent::SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) {
  const Status status = ReadServerTimeout(old);
  return status == kNoError ? WriteServerTimeout(seconds) : status;
}

Status CAgent::KeepServerTimeout() {
  std::uint32_t present = 0;
  const Status status = ReadServerTimeout(&present);
  return status == kNoError ? WriteServerTimeout(present) : status;
}

Status CAgent::ReadServerTimeout(std::uint32_t* seconds) {
  IOCtlRecord request;
  request.code = IOCtlCode::kGetTimeout;
  const Status status = IMSPIOCtl(&request);
  if (status == kNoError) *seconds = request.value / kMillisecondsPerSecond;
  return status;
}

Status CAgent::WriteServerTimeout(std::uint32_t seconds) {
  IOCtlRecord request;
  request.code = IOCtlCode::kSetTimeout;
  request.value = seconds * kMillisecondsPerSecond;
  return IMSPIOCtl(&request);
}

Status CAgent::RunBatch(const std::string& path) {
  return LongTimeout(this, kSeconds).RunUntilFailure([&] { return IMSPBatchConfiguration(path); });
}

Status CAgent::BackupDatabase(const char* first, const char* second) {
  return LongTimeout(this, kSeconds).RunUntilFailure([&] {
    return RecordedCommand(kBackup, first, second);
  });
}

Status CAgent::RestoreDatabase(const char* first, const char* second) {
  return LongTimeout(this, kSeconds).RunUntilFailure([&] {
    return RecordedCommand(kRestore, first, second);
  });
}

Status CAgent::CheckDatabase() {
  return LongTimeout(this, kSeconds).RunAlways([&] {
    return DatabaseCommand(kCheck, nullptr, nullptr);
  });
}

// Also records the -1 for rejected texts. No other operation records a local code.
Status CAgent::RecordedCommand(std::int32_t kind, const char* first, const char* second) {
  lastError = DatabaseCommand(kind, first, second);
  return lastError;
}

Status CAgent::DatabaseCommand(std::int32_t kind, const char* first, const char* second) {
  char command[kCommandSize] = {};
  if (kind >= kBackup && kind <= kCheck) {
    std::memcpy(command, kCommandWords[kind].data(), kCommandWordLength);
  }
  if (first == nullptr && second != nullptr) return kRefused;
  if (first != nullptr) {
    const std::size_t length = kCommandWordLength + std::strlen(first);
    if (length >= kCommandSize - 1) return kRefused;
    std::copy_n(first, length - kCommandWordLength, command + kCommandWordLength);
    command[length] = ',';
    if (second != nullptr) {
      const std::size_t secondLength = std::strlen(second);
      if (secondLength >= kCommandSize - 2 - length) return kRefused;
      std::copy_n(second, secondLength, command + length + 1);
    }
  }
  IOCtlRecord request;
  request.code = IOCtlCode::kDatabaseCommand;
  request.text = command;
  return IMSPIOCtl(&request);
}

Status CAgent::ReadLog(const std::string& user) {
  ABIdent book(BookKind::kLog, kLogBook);
  ABIdent sized = book;  // a copy for each call: the server may overwrite it
  std::uint32_t count = 0;
  const Status status = IMSPSizeofAB(&sized, &count, user.c_str());
  if (status != kNoError) return status;
  FreeLogRecords();
  logCount = 0;
  if (count == 0) return kNoError;
  count = std::min(count, kMaxLogRecords);
  logRecords.reset(static_cast<LogRecord*>(std::calloc(count, sizeof(LogRecord))));
  if (logRecords == nullptr) return kRefused;
  KeyRange range({}, user);
  const Status read = IMSPReadAB(&book, &range, logRecords.get(), &count, 1);
  logCount = count;
  return read;
}

Status CAgent::ClearLog(const std::string& filter) {
  ABIdent book(BookKind::kLog, kLogBook);
  return LongTimeout(this, kSeconds).RunUntilFailure([&] {
    const Status status = IMSPClearAB(&book, filter.c_str());
    if (status == kNoError && logRecords != nullptr) {
      FreeLogRecords();
      logCount = 0;
    }
    return status;
  });
}

Status CAgent::ClearLogExceptSystem() {
  return ClearLog("_!ADMINISTRATOR_!GUEST");
}

const LogRecord* CAgent::LogRecordAt(std::int32_t index) const {
  if (logRecords == nullptr || index < 0 || static_cast<std::uint32_t>(index) >= logCount) {
    return nullptr;
  }
  return &logRecords[static_cast<std::size_t>(index)];
}

Status CAgent::ValidateString(const std::string& text, std::int32_t limit) {
  if (static_cast<std::int64_t>(text.size()) >= limit) return kRefused;
  if (text.find('*') != std::string::npos) return kUnusableInput;
  if (IMSPCheckString(text.c_str(), limit) != kNoError) return kUnusableInput;
  // The first character is not checked: applications use names that begin with an 8-bit character.
  const bool sevenBit = std::none_of(text.begin() + (text.empty() ? 0 : 1), text.end(),
                                     [](char c) { return (c & 0x80) != 0; });
  return sevenBit ? kNoError : kMissingArgument;
}

Status CAgent::ServerText(char* text) {
  char reply[kServerTextSize] = {};
  IOCtlRecord request;
  request.code = IOCtlCode::kGetText;
  request.text = reply;
  const Status status = IMSPIOCtl(&request);
  text[0] = '\0';
  if (status != kNoError || request.text == nullptr) return status;
  // The server may point the record to memory of its own. Our own buffer needs a NUL at its end.
  reply[kServerTextSize - 1] = '\0';
  const char* end = std::find(request.text, request.text + kServerTextSize - 1, '\0');
  *std::copy(const_cast<const char*>(request.text), end, text) = '\0';
  return status;
}

Status CAgent::ChangeIdentity(const std::string& user) {
  EntryKey key = EntryKey::Of(user);
  return IMSPChangeIdentity(&key);
}

void CAgent::ErrorText(std::string& text) const {
  text = StatusText(lastError);
}

}  // namespace quillkit
