// An import into an address book, step by step. What becomes of each row is known at any time.

#ifndef QUILLCTL_IMPORT_H_
#define QUILLCTL_IMPORT_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "console/temporary_file.h"
#include "entries/entries.h"
#include "quillctl/address_books.h"
#include "quillctl/import_source.h"
#include "quillctl/name_table.h"
#include "quillctl/session.h"

namespace quillctl {

enum class OnDuplicate : std::uint8_t { kSkip, kReplace, kRefuse };

// What becomes of a row.
enum class Outcome : std::uint8_t {
  kRejected,    // by its own fault
  kPassedOver,  // it is no entry
  kNameUsed,    // rejected: another row has its name
  kNameInBook,  // rejected: the book has an entry of its name
  kNotCarried,  // rejected: a script cannot carry it
  kRepeated,    // not sent: an equal row is
  kReplaced,    // not sent: a later row has its name
  kPresent,     // not sent: the book has an equal entry
  kToAdd,       // it is to be sent
  kToChange,    // it is to be sent, for an entry that exists
  kNotSent,     // the import ended before
  kChanged,     // not sent: the file was changed during the import
  kRefused,     // sent, and not in the book
  kArrived,     // sent, and in the book
  kUnknown,     // sent, and the book cannot be read
};

// Whether the row is in the file of rejected rows.
bool IsRejection(Outcome outcome);

class Import {
 public:
  Import(ImportSource& newSource, const AddressBook& newBook, OnDuplicate newRule, bool asAdmin)
      : source(newSource), book(newBook), rule(newRule), isAdmin(asAdmin) {}
  Import(const Import&) = delete;
  Import& operator=(const Import&) = delete;

  // Reads the file and decides about each row. `inScript`: the rows are to be sent in a script.
  void Survey(bool inScript);

  // Reads the book and, unless it is going to be cleared, compares the rows with its entries.
  // Throws a Refusal if the book cannot be read.
  void Compare(const quillkit::CScanner& scanner, bool isCleared);

  // Sends the rows, each with a call of its own. Ends early when the user asks for it, when the
  // book is full, or when the session is lost.
  void SendRows(const quillkit::CScanner& scanner, const std::function<bool()>& isInterrupted);

  // Sends the rows in one script, which begins with a line that clears the book if `clearFirst` is
  // set. Throws a Refusal, and sends nothing, if the script cannot be written or the file was
  // changed.
  void SendScript(quillkit::CScanner& scanner, bool clearFirst);

  // Reads the book and finds out which rows are in it.
  void Verify(const quillkit::CScanner& scanner);

  // Passes each row with its outcome to the handler. Returns when that returns false. A row that is
  // no longer in the file has no values.
  using Handler = std::function<bool(const entries::Entry&, Outcome)>;
  void ForEach(const Handler& handle);

  // The appliance's status for the row that ForEach() passes; 0 if it did not refuse the row.
  std::int32_t RowStatus() const { return rowStatus; }

  std::size_t Rows() const { return outcomes.size(); }
  std::size_t Count(Outcome outcome) const { return counts[static_cast<std::size_t>(outcome)]; }
  std::size_t Rejected() const;  // rows that are rejections
  // Rows that may have a note.
  std::size_t Noted() const {
    return noted + Count(Outcome::kRepeated) + Count(Outcome::kReplaced) +
           Count(Outcome::kPresent) + Count(Outcome::kUnknown);
  }
  std::size_t ToSend() const { return Count(Outcome::kToAdd) + Count(Outcome::kToChange); }
  std::size_t Sent() const { return sent; }

  // The line of the row that has the name of this one.
  std::uint64_t LineOfName(const std::string& name);

  // The last status of a refused row; 0 if the appliance refused none.
  std::int32_t LastStatus() const { return lastStatus; }

  // The entries of the book before and after the import.
  std::size_t EntriesBefore() const { return entriesBefore; }
  std::size_t EntriesAfter() const { return entriesAfter; }

 private:
  void Decide(const entries::Entry& entry);
  void DecideDuplicate(const entries::Entry& entry, NameTable::Named& first);
  void Set(std::size_t row, Outcome outcome);
  void SetRefused(std::size_t row, std::int32_t status);
  void SetRow(NameTable::Named& named, const entries::Entry& entry) const;
  // The appliance's status for a row; 0 if it did not refuse the row.
  std::int32_t StatusOf(std::size_t row) const;
  Outcome OutcomeOf(std::size_t row) const;
  NameTable::Hash HashOfValues(const std::vector<std::string>& values) const;
  bool HasValuesOf(const NameTable::Named& named, const std::vector<std::string>& values) const;
  bool IsToSend(std::size_t row) const;
  bool IsUnchanged(std::size_t row, const entries::Entry& entry);
  std::int32_t SendRow(const quillkit::CScanner& scanner, const entries::Entry& entry,
                       Outcome outcome);

  ImportSource& source;
  const AddressBook& book;
  const OnDuplicate rule;
  const bool isAdmin;
  bool asScript = false;
  NameTable names;
  // Of each row its outcome, or a bit and the status that refused it. The highest bit: its name was
  // shortened.
  std::vector<std::uint8_t> outcomes;
  std::array<std::size_t, 16> counts = {};
  std::size_t noted = 0;  // rows that have a note of their own
  std::size_t sent = 0;
  std::int32_t rowStatus = 0;
  std::int32_t lastStatus = 0;
  std::size_t entriesBefore = 0;
  std::size_t entriesAfter = 0;
};

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_H_
