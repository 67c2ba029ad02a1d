#include "quillctl/import_report.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <limits>
#include <system_error>
#include <utility>
#include <vector>

#include "console/json_output.h"
#include "console/text_file.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

namespace fs = std::filesystem;

constexpr contacts::Problem kNameUsed = {"name-used", "the file has another row of this name"};
constexpr contacts::Problem kNameInBook = {"name-in-book", "the book has an entry of this name"};
constexpr contacts::Problem kNotCarried = {"not-carried",
                                           "a script cannot carry double quotes and line breaks"};
constexpr contacts::Problem kRepeated = {"repeated-row", "the file has an equal row"};
constexpr contacts::Problem kReplaced = {"replaced-row", "a later row has this name"};
constexpr contacts::Problem kPresent = {"already-there", "the book has this entry"};
constexpr contacts::Problem kNotSent = {"not-sent", "the import ended before this row"};
constexpr contacts::Problem kChanged = {"file-changed", "the file was changed during the import"};
constexpr contacts::Problem kRefused = {"refused", "the appliance does not have the entry"};
constexpr contacts::Problem kUnknown = {"unknown", "the book cannot be read"};

// Returns what is to be said of a row because of its outcome; null for nothing.
const contacts::Problem* ProblemOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kNameUsed:
      return &kNameUsed;
    case Outcome::kNameInBook:
      return &kNameInBook;
    case Outcome::kNotCarried:
      return &kNotCarried;
    case Outcome::kRepeated:
      return &kRepeated;
    case Outcome::kReplaced:
      return &kReplaced;
    case Outcome::kPresent:
      return &kPresent;
    case Outcome::kNotSent:
      return &kNotSent;
    case Outcome::kChanged:
      return &kChanged;
    case Outcome::kRefused:
      return &kRefused;
    case Outcome::kUnknown:
      return &kUnknown;
    default:
      return nullptr;
  }
}

std::string ReasonOf(const contacts::Finding& finding) {
  std::string reason(finding.problem->reason);
  if (finding.limit != 0) reason += " (at most " + std::to_string(finding.limit) + " bytes)";
  return reason;
}

// A statement about a row.
struct Statement {
  const entries::Entry& entry;
  const contacts::Finding& finding;
  std::string reason;
};

using StatementHandler = std::function<void(const Statement&)>;

// Whether the outcome says so little of a row that it is only counted, unless in JSON.
bool IsOnlyCounted(const contacts::Problem* problem) {
  return problem == &kPresent || problem == &kUnknown || problem == &kNotSent;
}

// Whether an entry is shown as imported or, in a dry run, as one that would be.
bool IsShown(Outcome outcome, bool dryRun) {
  const bool isToSend = outcome == Outcome::kToAdd || outcome == Outcome::kToChange;
  return dryRun ? isToSend : outcome == Outcome::kArrived;
}

// Passes the rejection of each rejected row, or the notes of all others, to the handler.
void ForEachFinding(Import& run, bool rejections, const StatementHandler& handle) {
  run.ForEach([&](const entries::Entry& entry, Outcome outcome) {
    if (IsRejection(outcome) != rejections) return true;
    contacts::Finding of = {.problem = ProblemOf(outcome)};
    if (outcome == Outcome::kRejected) of = entry.fault;
    if (!rejections) {
      for (const contacts::Finding& each : entry.notes) {
        handle({entry, each, ReasonOf(each)});
      }
    }
    if (of.problem == nullptr) return true;
    std::string reason = ReasonOf(of);
    const bool isOther = outcome == Outcome::kNameUsed || outcome == Outcome::kRepeated;
    if (isOther) reason += ", in line " + std::to_string(run.LineOfName(entry.values.front()));
    if (run.RowStatus() != 0) reason += ": " + CodeAndText(run.RowStatus());
    handle({entry, of, std::move(reason)});
    return true;
  });
}  // namespace

std::string Place(const Statement& statement) {
  std::string text = "line " + std::to_string(statement.entry.line);
  if (statement.finding.column == 0) return text;
  text += ", column " + std::to_string(statement.finding.column);
  return statement.finding.heading.empty()
             ? text
             : text + ' ' + console::Quoted(statement.finding.heading);
}

void ShowSome(Import& run, bool rejections, std::size_t limit) {
  if ((rejections ? run.Rejected() : run.Noted()) == 0) return;
  std::size_t count = 0;
  const std::string kind = rejections ? "" : "note: ";
  ForEachFinding(run, rejections, [&](const Statement& each) {
    if (IsOnlyCounted(each.finding.problem)) return;
    if (count++ < limit) std::cerr << Place(each) << ": " << kind << each.reason << '\n';
  });
  if (count > limit) {
    std::cerr << "and " << count - limit << (rejections ? " more" : " more notes")
              << "; list all with --json\n";
  }
}

console::Json ShownStatement(const Statement& statement) {
  console::Json json = {{"line", statement.entry.line}};
  if (statement.finding.column != 0) {
    json["column"] = statement.finding.column;
    console::SetText(json, "heading", statement.finding.heading);
  }
  json["code"] = statement.finding.problem->code;
  json["reason"] = statement.reason;
  return json;
}

// Prints a member that is a list, one element on each line, without keeping them.
class PrintedList {
 public:
  explicit PrintedList(const char* name) { std::cout << ",\n  \"" << name << "\": ["; }
  PrintedList(const PrintedList&) = delete;
  PrintedList& operator=(const PrintedList&) = delete;
  ~PrintedList() { std::cout << (isEmpty ? "]" : "\n  ]"); }

  void Add(const console::Json& element) {
    std::cout << (isEmpty ? "\n    " : ",\n    ") << element.dump();
    isEmpty = false;
  }

 private:
  bool isEmpty = true;
};

void PrintFindings(Import& run, bool rejections, const char* name) {
  PrintedList list(name);
  ForEachFinding(run, rejections, [&](const Statement& each) { list.Add(ShownStatement(each)); });
}

}  // namespace

void ShowForm(const ImportSource& source, const ImportFile& file) {
  std::string text = source.Format() + ", " + source.Encoding();
  if (const std::optional<char> delimiter = source.Delimiter()) {
    text += ", delimiter " + (*delimiter == '\t' ? "tab" : '"' + std::string(1, *delimiter) + '"');
  }
  const std::string sources = source.Sources();
  std::cout << "Reading " << file.Name() << " as " << text
            << (sources.empty() ? "" : ": " + console::DisplayedText(sources)) << ".\n";
}

void ShowEntries(Import& run, const AddressBook& book, bool dryRun, std::size_t limit) {
  if (limit == 0) return;
  console::TextTable table(book.fields);
  std::size_t count = 0;
  run.ForEach([&](const entries::Entry& entry, Outcome outcome) {
    if (!IsShown(outcome, dryRun)) return true;
    table.AddRow(book.WithoutSecret(entry.values));
    return ++count < limit;
  });
  if (count != 0) table.Print();
}

void ShowFindings(Import& run, std::size_t limit) {
  std::cout.flush();
  ShowSome(run, true, limit);
  ShowSome(run, false, limit);
}

void ShowImportJson(Import& run, const ImportSource& source, const AddressBook& book, bool dryRun) {
  console::Json head = {{"format", source.Format()}, {"encoding", source.Encoding()}};
  head["delimiter"] =
      source.Delimiter() ? console::Json(std::string(1, *source.Delimiter())) : console::Json();
  std::string text = head.dump(2);
  std::cout << text.substr(0, text.rfind('\n'));
  {
    PrintedList entries("entries");
    run.ForEach([&](const entries::Entry& entry, Outcome outcome) {
      if (!IsShown(outcome, dryRun)) return true;
      console::Json json = {{"line", entry.line}};
      json.update(console::ShownRow(book.fields, book.WithoutSecret(entry.values)));
      entries.Add(json);
      return true;
    });
  }
  if (!dryRun) {
    std::cout << ",\n  \"sent\": " << run.Sent()
              << ",\n  \"arrived\": " << run.Count(Outcome::kArrived)
              << ",\n  \"unknown\": " << run.Count(Outcome::kUnknown);
  }
  PrintFindings(run, true, "rejected");
  PrintFindings(run, false, "notes");
  std::cout << "\n}\n";
}

void RequireRejectsFile(const ImportRequest& request) {
  const std::string& path = request.rejects;
  if (path.empty()) return;
  std::error_code failure;
  if (fs::equivalent(path, request.file, failure)) {
    throw UsageError("--rejects: this is the file to import; choose another file");
  }
  if (fs::exists(path, failure) && !fs::is_regular_file(path, failure)) {
    throw UsageError("--rejects: not a regular file; choose another file");
  }
  const fs::path folder = fs::path(path).parent_path();
  if (path == "-" || (!folder.empty() && !fs::is_directory(folder, failure))) {
    throw UsageError("--rejects: cannot write " + console::Quoted(path) + "; choose another file");
  }
  if (fs::exists(path, failure) && !request.force) {
    throw UsageError("--rejects: the file exists; choose another one, or add --force");
  }
}

void WriteRejectedRows(const std::string& path, Import& run, const ImportSource& source,
                       ImportFile& file) {
  if (path.empty() || run.Rejected() == 0) return;
  struct Part {
    std::uint64_t begin, end;
  };
  std::vector<Part> parts;
  std::uint64_t first = std::numeric_limits<std::uint64_t>::max();
  run.ForEach([&](const entries::Entry& entry, Outcome outcome) {
    first = std::min(first, entry.begin);
    if (IsRejection(outcome)) parts.push_back({entry.begin, entry.end});
    return true;
  });
  // The file may contain passwords: it is created for the owner only, and then filled.
  console::WriteTextFile(path, "", quillkit::Readers::kOwner);
  quillkit::OpenFile rejects = quillkit::OpenFile::ToWrite(path.c_str());
  std::string head = first == 0 ? source.Beginning() : "";
  // If the first row begins with a byte order mark, it would be lost when the file is imported.
  if (first == 0 && file.Bytes(0, 3) == contacts::kUtf8Mark) head = contacts::kUtf8Mark;
  rejects.Write(head);
  file.Copy(0, first, rejects);
  for (const Part& each : parts) {
    if (&each != &parts.front()) rejects.Write(source.Separator());
    file.Copy(each.begin, each.end, rejects);
  }
  rejects.Write(source.End());
  if (!rejects.Close()) throw Refusal("cannot write " + console::Quoted(path));
}

}  // namespace quillctl
