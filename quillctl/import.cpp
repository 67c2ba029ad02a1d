#include "quillctl/import.h"

#include <algorithm>

#include "console/progress.h"
#include "console/system/terminal.h"
#include "import/script.h"
#include "quillctl/failures.h"
#include "toolkit/quillkit.h"

namespace quillctl {
namespace {

constexpr std::uint8_t kShortenedBit = 0x80;
constexpr std::uint8_t kStatusBit = 0x40;
constexpr std::uint8_t kLowBits = 0x3F;  // the outcome, or with kStatusBit the status

bool HasShortenedName(const entries::Entry& entry) {
  return std::ranges::any_of(entry.notes, [](const contacts::Finding& each) {
    return each.problem == &contacts::kShortened;
  });
}

bool IsCarriedByScript(const entries::Entry& entry) {
  return std::ranges::none_of(entry.values, [](const std::string& each) {
    return each.find_first_of("\"\r\n") != each.npos;
  });
}

// Returns whether the appliance accepts no further row after this status.
bool EndsImport(std::int32_t status) {
  return status == quillkit::kBookFull || status == quillkit::kNotLoggedIn ||
         status == quillkit::kServerIdle || status == quillkit::kServerFailure ||
         status == quillkit::kTimeoutExpired || status == quillkit::kNotInitialised ||
         status == quillkit::kRefused;
}

}  // namespace

bool IsRejection(Outcome outcome) {
  switch (outcome) {
    case Outcome::kRejected:
    case Outcome::kNameUsed:
    case Outcome::kNameInBook:
    case Outcome::kNotCarried:
    case Outcome::kNotSent:
    case Outcome::kChanged:
    case Outcome::kRefused:
      return true;
    default:
      return false;
  }
}

std::size_t Import::Rejected() const {
  std::size_t rejected = 0;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (IsRejection(static_cast<Outcome>(i))) rejected += counts[i];
  }
  return rejected;
}

std::int32_t Import::StatusOf(std::size_t row) const {
  return (outcomes[row] & kStatusBit) != 0 ? outcomes[row] & kLowBits : 0;
}

Outcome Import::OutcomeOf(std::size_t row) const {
  return StatusOf(row) == 0 ? static_cast<Outcome>(outcomes[row] & kLowBits) : Outcome::kRefused;
}

void Import::Set(std::size_t row, Outcome outcome) {
  --counts[static_cast<std::size_t>(OutcomeOf(row))];
  ++counts[static_cast<std::size_t>(outcome)];
  outcomes[row] = static_cast<std::uint8_t>((outcomes[row] & kShortenedBit) |
                                            static_cast<std::uint8_t>(outcome));
}

// The row was sent. It counts as refused until it is seen in the book.
void Import::SetRefused(std::size_t row, std::int32_t status) {
  Set(row, Outcome::kRefused);
  ++sent;
  if (status != quillkit::kNoError) lastStatus = status;
  if (status <= 0 || status > kLowBits) return;
  outcomes[row] = static_cast<std::uint8_t>((outcomes[row] & kShortenedBit) | kStatusBit | status);
}

// Of the values that the file supplies, other than the name.
NameTable::Hash Import::HashOfValues(const std::vector<std::string>& values) const {
  std::uint64_t hash = 0;
  for (std::size_t i = 1; i < values.size(); ++i) {
    if (source.Supplies(i)) hash = HashOf(values[i], hash + values[i].size());
  }
  return {static_cast<std::uint32_t>(hash), static_cast<std::uint32_t>(hash >> 32)};
}

bool Import::HasValuesOf(const NameTable::Named& named,
                         const std::vector<std::string>& values) const {
  return named.hash == HashOfValues(values);
}

void Import::Survey(bool inScript) {
  asScript = inScript;
  console::Progress progress("Reading the file");
  source.ForEach([&](entries::Entry& entry) {
    Decide(entry);
    progress.Step();
    return true;
  });
}

void Import::Decide(const entries::Entry& entry) {
  const std::size_t row = outcomes.size();
  outcomes.push_back(static_cast<std::uint8_t>(Outcome::kRejected));
  ++counts[static_cast<std::size_t>(Outcome::kRejected)];
  if (!entry.notes.empty()) ++noted;
  if (entry.isPassedOver) return Set(row, Outcome::kPassedOver);
  if (entry.fault.problem != nullptr) return;
  if (asScript && !source.IsScript() && !IsCarriedByScript(entry)) {
    return Set(row, Outcome::kNotCarried);
  }
  bool isNew = false;
  NameTable::Named& named = names.Insert(entry.values.front(), isNew);
  if (!isNew) return DecideDuplicate(entry, named);
  SetRow(named, entry);
  if (HasShortenedName(entry)) outcomes[row] |= kShortenedBit;
  Set(row, Outcome::kToAdd);
}

// Decides about the last row, whose name another row has.
void Import::DecideDuplicate(const entries::Entry& entry, NameTable::Named& first) {
  const std::size_t row = outcomes.size() - 1;
  const bool isShortened = HasShortenedName(entry) || (outcomes[first.row] & kShortenedBit) != 0;
  if (!source.IsScript() && (isShortened || rule == OnDuplicate::kRefuse)) {
    return Set(row, Outcome::kNameUsed);
  }
  if (HasValuesOf(first, entry.values)) return Set(row, Outcome::kRepeated);
  if (!source.IsScript() && rule == OnDuplicate::kSkip) return Set(row, Outcome::kNameUsed);
  Set(first.row, Outcome::kReplaced);
  Set(row, Outcome::kToAdd);
  SetRow(first, entry);
}

// Makes the last row the one that has the name.
void Import::SetRow(NameTable::Named& named, const entries::Entry& entry) const {
  named.row = static_cast<std::uint32_t>(outcomes.size() - 1);
  named.line = static_cast<std::uint32_t>(entry.line);
  named.hash = HashOfValues(entry.values);
}

void Import::Compare(const quillkit::CScanner& scanner, bool isCleared) {
  bool suppliesAll = true;
  for (std::size_t i = 0; i < book.fields.size(); ++i) {
    suppliesAll = suppliesAll && source.Supplies(i);
  }
  const auto compare = [&](const console::Row& row) {
    ++entriesBefore;
    const NameTable::Named* const named = names.Find(row.front());
    // A script is sent as a whole, and replaces entries.
    if (isCleared || source.IsScript() || named == nullptr) return;
    Outcome outcome = Outcome::kNameInBook;
    // A shortened name may belong to another contact.
    const bool isShortened = (outcomes[named->row] & kShortenedBit) != 0;
    if (rule == OnDuplicate::kReplace && !isShortened) {
      outcome = asScript && !suppliesAll ? Outcome::kNotCarried : Outcome::kToChange;
    }
    if (rule != OnDuplicate::kRefuse && HasValuesOf(*named, row)) outcome = Outcome::kPresent;
    Set(named->row, outcome);
  };
  const std::int32_t status = ReadCompletely(book, scanner, "Reading", compare);
  if (status == quillkit::kNoError) return;
  throw Refusal(
      "the " + std::string(book.title) +
      " cannot be read completely, so the result could not be verified; nothing was sent");
}

std::int32_t Import::SendRow(const quillkit::CScanner& scanner, const entries::Entry& entry,
                             Outcome outcome) {
  if (outcome == Outcome::kToAdd) return book.add(book, scanner, entry.values);
  return book.change(book, scanner, entry.values.front(), [&](console::Row& row) {
    for (std::size_t i = 1; i < row.size(); ++i) {
      if (source.Supplies(i)) row[i] = entry.values[i];
    }
    return true;
  });
}

bool Import::IsToSend(std::size_t row) const {
  const Outcome outcome = OutcomeOf(row);
  return outcome == Outcome::kToAdd || outcome == Outcome::kToChange;
}

// Whether a row that is to be sent is the one that was surveyed. The file may have changed.
bool Import::IsUnchanged(std::size_t row, const entries::Entry& entry) {
  if (entry.fault.problem != nullptr || entry.isPassedOver) return false;
  const NameTable::Named* const named = names.Find(entry.values.front());
  return named != nullptr && named->row == row && HasValuesOf(*named, entry.values);
}

void Import::SendRows(const quillkit::CScanner& scanner,
                      const std::function<bool()>& isInterrupted) {
  console::Progress progress("Sending", [all = ToSend()] { return all; });
  bool isEnded = false;
  std::size_t row = 0;
  source.ForEach([&](entries::Entry& entry) {
    if (row == outcomes.size()) return false;
    const std::size_t current = row++;
    if (!IsToSend(current)) return true;
    isEnded = isEnded || isInterrupted();
    if (isEnded || !IsUnchanged(current, entry)) {
      Set(current, isEnded ? Outcome::kNotSent : Outcome::kChanged);
      return true;
    }
    console::KeepSessionAlive();
    const std::int32_t status = SendRow(scanner, entry, OutcomeOf(current));
    SetRefused(current, status);
    progress.Step();
    isEnded = EndsImport(status);
    return true;
  });
  for (; row < outcomes.size(); ++row) {
    if (IsToSend(row)) Set(row, Outcome::kChanged);  // it is no longer in the file
  }
}

void Import::SendScript(quillkit::CScanner& scanner, bool clearFirst) {
  const quillkit::ScriptBook& format =
      *quillkit::FindScriptBook(book.target != 0 ? book.target : quillkit::TargetEmail);
  console::TemporaryFile script;
  quillkit::ScriptWriter writer;
  if (!writer.Open(script.ReleaseFile())) throw Refusal(console::kNoTemporaryFile);
  if (clearFirst) quillkit::WriteClearLine(writer, format);
  std::size_t row = 0;
  bool isUnchanged = true;
  source.ForEach([&](entries::Entry& entry) {
    if (row == outcomes.size()) return false;
    isUnchanged = isUnchanged && (!IsToSend(row) || IsUnchanged(row, entry));
    if (IsToSend(row) || (source.IsScript() && !entry.values.empty())) {
      std::vector<std::string_view> values(entry.values.begin(), entry.values.end());
      values.resize(format.fieldCount);
      quillkit::WriteEntry(writer, format, isAdmin, values);
    }
    ++row;
    return isUnchanged;
  });
  if (!writer.Close()) throw Refusal(console::kNoTemporaryFile);
  if (!isUnchanged || row != outcomes.size()) {
    throw Refusal("the file was changed while it was read; nothing was sent");
  }
  for (row = 0; row < outcomes.size(); ++row) {
    if (IsToSend(row)) SetRefused(row, quillkit::kNoError);
  }
  quillkit::ImportOptions options = {};
  options.format = quillkit::ImportFormatScript;
  lastStatus = quillkit::ImportAddressBook(&scanner, script.path().c_str(), &options);
}

void Import::Verify(const quillkit::CScanner& scanner) {
  const auto find = [&](const console::Row& row) {
    ++entriesAfter;
    const NameTable::Named* const named = names.Find(row.front());
    if (named == nullptr || OutcomeOf(named->row) != Outcome::kRefused) return;
    if (HasValuesOf(*named, row)) Set(named->row, Outcome::kArrived);
  };
  if (ReadCompletely(book, scanner, "Verifying", find) == quillkit::kNoError) return;
  for (std::size_t row = 0; row < outcomes.size(); ++row) {
    if (OutcomeOf(row) == Outcome::kRefused) Set(row, Outcome::kUnknown);
  }
}

void Import::ForEach(const Handler& handle) {
  std::size_t row = 0;
  bool isWanted = true;
  entries::Entry place;  // of rows that are no longer in the file
  place.values.resize(book.fields.size());
  source.ForEach([&](entries::Entry& entry) {
    if (row == outcomes.size()) return false;
    rowStatus = StatusOf(row);
    place.line = entry.line;
    place.begin = place.end = entry.end;
    isWanted = handle(entry, OutcomeOf(row++));
    return isWanted;
  });
  rowStatus = 0;
  for (; isWanted && row < outcomes.size(); ++row) isWanted = handle(place, OutcomeOf(row));
}

std::uint64_t Import::LineOfName(const std::string& name) {
  const NameTable::Named* const named = names.Find(name);
  return named != nullptr ? named->line : 0;
}

}  // namespace quillctl
