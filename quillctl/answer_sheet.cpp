// The answer sheet of `quillctl check`: what an appliance answers to a fixed list of questions,
// which do not depend on its entries.

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "bridge/records.h"
#include "bridge/the_agent.h"
#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/text_file.h"
#include "quillctl/check_command.h"
#include "quillctl/failures.h"
#include "quillctl/session.h"
#include "toolkit/version.h"

namespace quillctl {
namespace {

using quillkit::ABIdent;
using quillkit::BookKind;
using quillkit::EntryKey;
using quillkit::KeyRange;
using quillkit::TheAgent;

constexpr const char* kFormatMember = "quillbox-answers";
constexpr const char* kAbsent = "quillctl absent";  // no book and no entry has this name
constexpr std::uint32_t kRoom = 4;
constexpr std::size_t kMaxSheet = std::size_t{1} << 20;

// The arguments of a question, and the count that the call changes.
struct Asked {
  ABIdent email{BookKind::kEmail, quillkit::kEmailBook};
  ABIdent wrong{BookKind::kEmail, kAbsent};
  ABIdent key{BookKind::kKeyItems, kAbsent};
  ABIdent list{BookKind::kPublicList, kAbsent};
  ABIdent unknown{static_cast<BookKind>(5), ""};
  EntryKey absent{kAbsent};
  EntryKey blank;
  std::array<char, std::size_t{kRoom} * 1024> records{};  // more than any record
  std::array<quillkit::PageBoundary, kRoom> letters;
  std::uint32_t count = kRoom;
};

std::int32_t Read(Asked& a, ABIdent& book, const char* filter, std::int32_t direction) {
  KeyRange range("", filter);
  return TheAgent.IMSPReadAB(&book, &range, a.records.data(), &a.count, direction);
}

struct Question {
  const char* text = nullptr;
  std::int32_t (*ask)(Asked&) = nullptr;
  bool hasCount = false;
};

constexpr Question kQuestions[] = {
    {"size of a key that does not exist",
     [](Asked& a) { return TheAgent.IMSPSizeofAB(&a.key, &a.count); }, true},
    {"size of a list that does not exist",
     [](Asked& a) { return TheAgent.IMSPSizeofAB(&a.list, &a.count); }, true},
    {"size of the e-mail book under another name",
     [](Asked& a) { return TheAgent.IMSPSizeofAB(&a.wrong, &a.count); }, true},
    {"size of a book of an unknown kind",
     [](Asked& a) { return TheAgent.IMSPSizeofAB(&a.unknown, &a.count); }, true},
    {"number of entries with a name that does not exist",
     [](Asked& a) { return TheAgent.IMSPSizeofAB(&a.email, &a.count, kAbsent); }, true},
    {"read entries with a name that does not exist",
     [](Asked& a) { return Read(a, a.email, kAbsent, 1); }, true},
    {"read them backward", [](Asked& a) { return Read(a, a.email, kAbsent, 0); }, true},
    {"read a key that does not exist", [](Asked& a) { return Read(a, a.key, "*", 1); }, true},
    {"read a list that does not exist", [](Asked& a) { return Read(a, a.list, "*", 1); }, true},
    {"census of a list that does not exist",
     [](Asked& a) { return TheAgent.IMSPReadPageBoundaries(&a.list, a.letters.data(), &a.count); },
     true},
    {"read an entry that does not exist",
     [](Asked& a) {
       return TheAgent.IMSPReadEntryProperties(&a.email, &a.absent, a.records.data());
     }},
    {"read an entry without a name",
     [](Asked& a) {
       return TheAgent.IMSPReadEntryProperties(&a.email, &a.blank, a.records.data());
     }},
    {"check a text that is too long", [](Asked&) { return TheAgent.IMSPCheckString("text", 3); }},
    {"check a text with a quote", [](Asked&) { return TheAgent.IMSPCheckString("a\"b", 9); }},
    {"keep the session alive", [](Asked&) { return TheAgent.IMSPWakeup(); }},
};

std::string Today() {
  const std::chrono::year_month_day date(
      std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
  const auto twoDigits = [](unsigned number) {
    return (number < 10 ? "-0" : "-") + std::to_string(number);
  };
  return std::to_string(static_cast<int>(date.year())) +
         twoDigits(static_cast<unsigned>(date.month())) +
         twoDigits(static_cast<unsigned>(date.day()));
}

// Asks the appliance in the open session. Changes nothing on it. Returns an object that has each
// question with the answer: the status and, if any, the count.
console::Json AskAppliance(const Session& /*session*/) {
  console::Json answers = console::Json::object();
  for (const Question& each : kQuestions) {
    Asked asked;
    std::string answer = CodeAndText(each.ask(asked));
    if (each.hasCount) answer += "; count " + std::to_string(asked.count);
    answers[each.text] = std::move(answer);
  }
  return answers;
}

// Returns the sheet as JSON, with the version of Quillkit, the date and the identity of the
// appliance.
std::string SheetOf(const console::Json& answers, const Session& session) {
  console::Json sheet = {{kFormatMember, 1}, {"quillkit", QUILLKIT_VERSION}, {"date", Today()}};
  console::SetText(sheet, "model", quillkit::GetScannerModel(session.Scanner()));
  console::SetText(sheet, "version", quillkit::GetScannerVersion(session.Scanner()));
  sheet["answers"] = answers;
  return sheet.dump(2) + '\n';
}

// Writes the sheet, and returns whether to a file. A failure says nothing about the appliance.
bool Save(const std::string& sheet, const std::string& path) {
  try {
    return console::WriteOutput(path, sheet);
  } catch (const Refusal& why) {
    throw Skip(why.what());
  }
}

// Returns the answers. Throws a UsageError for a file that is not a sheet.
console::Json ParseSheet(const std::string& text) {
  const console::Json sheet = console::Json::parse(text, nullptr, false);
  if (sheet.is_object() && sheet.value(kFormatMember, console::Json()) == console::Json(1)) {
    console::Json answers = sheet.value("answers", console::Json());
    if (answers.is_object()) return answers;
  }
  throw UsageError("not an answer sheet: \"quillbox-answers\": 1 or its answers are missing");
}

// Throws a Refusal that lists the questions with another answer, and those that only one sheet has.
void RequireSame(const console::Json& saved, const console::Json& now) {
  std::string differences;
  const auto add = [&differences](const std::string& question, const std::string& text) {
    differences +=
        (differences.empty() ? "" : "\n  ") + console::DisplayedText(question) + ": " + text;
  };
  const auto inFile = [&saved](const std::string& question) {
    const console::Json& answer = saved[question];
    return "; in the file: " +
           console::DisplayedText(answer.is_string() ? answer.get<std::string>() : answer.dump());
  };
  for (const auto& [question, answer] : now.items()) {
    if (saved.contains(question) && saved[question] == answer) continue;
    add(question, answer.get<std::string>() +
                      (saved.contains(question) ? inFile(question) : "; the file has no answer"));
  }
  for (const auto& [question, answer] : saved.items()) {
    if (!now.contains(question)) add(question, "not asked" + inFile(question));
  }
  if (!differences.empty()) throw Refusal(differences);
}

}  // namespace

std::vector<Step> AnswerSteps(const std::string& savePath, const std::string& comparePath) {
  std::vector<Step> steps;
  if (!savePath.empty()) {
    steps.push_back({"save the answers", [savePath](CheckRun& check) {
                       const console::Json answers = AskAppliance(check.OpenSession());
                       const bool isFile = Save(SheetOf(answers, check.OpenSession()), savePath);
                       return console::Counted(answers.size(), "answer") +
                              (isFile ? " in " + console::QuotedFileName(savePath) : "");
                     }});
  }
  if (!comparePath.empty()) {
    const console::Json saved = ParseSheet(console::ReadTextFile(comparePath, kMaxSheet));
    steps.push_back({"compare the answers", [comparePath, saved](CheckRun& check) {
                       RequireSame(saved, AskAppliance(check.OpenSession()));
                       return "they are those in " + console::QuotedFileName(comparePath);
                     }});
  }
  return steps;
}

}  // namespace quillctl
