#include "simulator/scenario.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "simulator/entry_points.h"
#include "simulator/scenario_line.h"
#include "simulator/state_file.h"
#include "simulator/text_lines.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeading = "quillbox scenario 1";
constexpr std::uint32_t kHighestStatus = 31;
constexpr std::uint32_t kLongestTime = 86'400'000;  // a day, in milliseconds

struct NamedDefect {
  std::string_view name;
  std::uint32_t defect;
};
constexpr NamedDefect kDefects[] = {
    {"oversized", kDefectDeliveredCount},
    {"unterminated", kDefectUnterminated},
    {"failed-count", kDefectFailedCount},
    {"unsorted", kDefectUnsorted},
    {"census", kDefectCensus},
    {"size", kDefectSize},
    {"scribble", kDefectScribble},
    {"short", kDefectUnreported},
};

std::string EntryPoint(ScenarioLine& line) {
  std::string name = line.Text("an entry point");
  if (!IsEntryPoint(name)) throw ScenarioError("unknown entry point \"" + name + '"');
  return name == "*" ? "" : name;
}

constexpr std::string_view kTime = "a time in milliseconds";

std::uint32_t Time(ScenarioLine& line) {
  return line.Number(kTime, 0, kLongestTime);
}

// --- The parts of a fault: a word, and what follows it ---

void ReadBook(ScenarioLine& line, Fault& fault) {
  const std::string text = line.Text("a book");
  const std::size_t colon = std::min(text.find(':'), text.size());
  const auto kind = WholeNumber<std::uint32_t>(std::string_view(text).substr(0, colon));
  if (!kind || TypeOf(static_cast<BookKind>(*kind)) == nullptr) {
    throw ScenarioError("\"" + text + "\" is not a book, such as 1 or 512:Scan");
  }
  fault.kind = static_cast<BookKind>(*kind);
  if (colon != text.size()) fault.book = text.substr(colon + 1);
}

void ReadOccurrence(ScenarioLine& line, Fault& fault, std::uint32_t Fault::*bound) {
  const std::uint32_t number = line.Number("a number of calls", 1, Fault::kEver - 1);
  if (fault.first != 1 || fault.last != Fault::kEver) {
    throw ScenarioError("a fault has only one of nth, first and from");
  }
  if (bound != nullptr) {
    fault.*bound = number;
  } else {
    fault.first = fault.last = number;
  }
}

void ReadReply(ScenarioLine& line, Fault& fault) {
  const std::string word = line.Text("a kind of reply");
  const std::uint32_t defect = DefectOf(word);
  if (word == "lost") {
    fault.effect.isReplyLost = true;
  } else if (defect != 0) {
    fault.effect.defects |= defect;
  } else {
    throw ScenarioError("unknown kind of reply \"" + word + '"');
  }
}

struct FaultPart {
  std::string_view word;
  void (*read)(ScenarioLine&, Fault&);
  bool isEffect = false;
};
constexpr FaultPart kFaultParts[] = {
    {"book", ReadBook},
    {"name", [](ScenarioLine& line, Fault& fault) { fault.name = line.Text("a name", 31); }},
    {"account", [](ScenarioLine& line, Fault& fault) { fault.account = line.Text("a name", 31); }},
    {"after", [](ScenarioLine& line, Fault& fault) { fault.after = Time(line); }},
    {"nth", [](ScenarioLine& line, Fault& fault) { ReadOccurrence(line, fault, nullptr); }},
    {"first", [](ScenarioLine& line, Fault& fault) { ReadOccurrence(line, fault, &Fault::last); }},
    {"from", [](ScenarioLine& line, Fault& fault) { ReadOccurrence(line, fault, &Fault::first); }},
    {"probability",
     [](ScenarioLine& line, Fault& fault) { fault.probability = line.Probability(); }},
    {"status",
     [](ScenarioLine& line, Fault& fault) {
       fault.effect.status = static_cast<Status>(line.Number("a status", 0, kHighestStatus));
     },
     true},
    {"reply", ReadReply, true},
    {"delay",
     [](ScenarioLine& line, Fault& fault) {
       fault.effect.delay = line.Number(kTime, 1, kLongestTime);
     },
     true},
    {"session",
     [](ScenarioLine& line, Fault& fault) {
       if (line.Text("\"lost\"") != "lost") throw ScenarioError("a session can only be lost");
       fault.effect.isSessionLost = true;
     },
     true},
};

// Whether the effect changes the reply of a call that is served. A call with a status is not.
bool NeedsServedCall(const FaultEffect& effect) {
  constexpr std::uint32_t kOfAnyCall = kDefectFailedCount | kDefectScribble;
  return effect.isReplyLost || (effect.defects & ~kOfAnyCall) != 0;
}

Fault ReadFault(ScenarioLine& line) {
  Fault fault;
  fault.entryPoint = EntryPoint(line);
  std::vector<std::string> words;
  bool hasEffect = false;
  while (!line.IsAtEnd()) {
    const std::string word = line.Text("a part of a fault");
    const FaultPart* const part = std::ranges::find(kFaultParts, word, &FaultPart::word);
    if (part == std::end(kFaultParts)) {
      throw ScenarioError("unknown part \"" + word + "\" of a fault");
    }
    if (word != "reply" && std::ranges::count(words, word) != 0) {
      throw ScenarioError("two parts \"" + word + '"');
    }
    part->read(line, fault);
    words.push_back(word);
    hasEffect = hasEffect || part->isEffect;
  }
  if (!hasEffect) throw ScenarioError("the fault needs a status, reply, delay or session");
  if (fault.effect.status && NeedsServedCall(fault.effect)) {
    throw ScenarioError("a call with a status has no such reply");
  }
  return fault;
}

// --- The lines of a scenario ---

CUserEntry ReadAccount(ScenarioLine& line) {
  CUserEntry account;
  account.SetName(line.Text("a name", 31));
  if (!line.IsAtEnd()) account.SetPassword(line.Text("a password", 15));
  if (account.name.IsEmpty()) throw ScenarioError("the account has no name");
  account.flags = account.nibbles = 1;
  return account;
}

void ReadLimit(ScenarioLine& line, Scenario& scenario) {
  const std::string name = line.Text("a limit");
  const std::string most = line.Text("a number");
  const auto number = most == "none" ? 0 : WholeNumber<std::uint32_t>(most);
  if (!number || (*number == 0 && most != "none")) {
    throw ScenarioError("\"" + most + "\" is neither a number above 0 nor \"none\"");
  }
  if (!scenario.settings.limits.Set(name, *number)) {
    throw ScenarioError("unknown limit \"" + name + '"');
  }
}

void ReadLatency(ScenarioLine& line, Scenario& scenario) {
  const std::string first = line.Text("a time in milliseconds");
  if (WholeNumber<std::uint32_t>(first)) {
    ScenarioLine time(first);
    scenario.settings.latency = Time(time);
    return;
  }
  ScenarioLine entryPoint(first);
  const std::string name = EntryPoint(entryPoint);
  (name.empty() ? scenario.settings.latency : scenario.settings.latencies[name]) = Time(line);
}

// A date such as 2026-01-31.
std::chrono::sys_seconds DateOf(const std::string& text) {
  const std::string_view view = text;
  if (text.size() == 10 && text[4] == '-' && text[7] == '-') {
    const auto year = WholeNumber<std::uint16_t>(view.substr(0, 4));
    const auto month = WholeNumber<std::uint8_t>(view.substr(5, 2));
    const auto day = WholeNumber<std::uint8_t>(view.substr(8, 2));
    if (year && month && day) {
      const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(*month),
                                             std::chrono::day(*day)};
      if (date.ok()) return std::chrono::sys_days(date);
    }
  }
  throw ScenarioError("\"" + text + "\" is not a date, such as 2026-01-31");
}

void ReadClock(ScenarioLine& line, Scenario& scenario) {
  const std::string kind = line.Text("real or simulated");
  if (kind == "real") {
    scenario.clock.reset();
    scenario.settings.clockStep = 0;
    return;
  }
  if (kind != "simulated") throw ScenarioError("the clock is neither real nor simulated");
  std::vector<std::string> seen;
  while (!line.IsAtEnd()) {
    const std::string word = line.Text("start or step");
    if (std::ranges::count(seen, word) != 0) throw ScenarioError("two parts \"" + word + '"');
    if (word == "start") {
      scenario.clock = DateOf(line.Text("a date"));
    } else if (word == "step") {
      scenario.settings.clockStep = Time(line);
    } else {
      throw ScenarioError("unknown part \"" + word + "\" of the clock");
    }
    seen.push_back(word);
  }
}

std::uint32_t ReadDefects(ScenarioLine& line) {
  std::uint32_t defects = 0;
  do {
    const std::string word = line.Text("a kind of wrong replies");
    const std::uint32_t defect = DefectOf(word);
    if (defect == 0) throw ScenarioError("unknown kind of wrong replies \"" + word + '"');
    defects |= defect;
  } while (!line.IsAtEnd());
  return defects;
}

void ReadUnfired(ScenarioLine& line, Scenario& scenario) {
  const std::string word = line.Text("allowed or refused");
  scenario.mayHaveUnfiredFaults = word == "allowed";
  if (word != "allowed" && word != "refused") {
    throw ScenarioError("unfired faults are either allowed or refused");
  }
}

void ReadJournal(ScenarioLine& line, Scenario& scenario) {
  scenario.journal = line.Text("a file");
  const std::string word = line.IsAtEnd() ? "text" : line.Text("a form");
  const auto form = JournalFormOf(word);
  if (!form) throw ScenarioError("unknown form \"" + word + "\" of the journal");
  scenario.journalForm = *form;
}

enum class Repeated { kNever, kForOtherNames, kAlways };

struct Directive {
  std::string_view word;
  void (*read)(ScenarioLine&, Scenario&);
  Repeated repeated = Repeated::kNever;
};
constexpr Directive kDirectives[] = {
    {"begin", [](ScenarioLine& line, Scenario& to) { to.begin = line.Text("the books"); }},
    {"account", [](ScenarioLine& line, Scenario& to) { to.accounts.push_back(ReadAccount(line)); },
     Repeated::kAlways},
    {"limit", ReadLimit, Repeated::kForOtherNames},
    {"identity", [](ScenarioLine& line,
                    Scenario& to) { to.settings.identity = line.Text("an identity", 255); }},
    {"timeout", [](ScenarioLine& line, Scenario& to) { to.settings.timeout = Time(line); }},
    {"keep-alive", [](ScenarioLine& line, Scenario& to) { to.settings.wakeupPeriod = Time(line); }},
    {"latency", ReadLatency, Repeated::kForOtherNames},
    {"clock", ReadClock},
    {"replies", [](ScenarioLine& line, Scenario& to) { to.defects = ReadDefects(line); }},
    {"seed", [](ScenarioLine& line, Scenario& to) { to.seed = line.Number("a seed"); }},
    {"fault", [](ScenarioLine& line, Scenario& to) { to.faults.push_back(ReadFault(line)); },
     Repeated::kAlways},
    {"unfired", ReadUnfired},
    {"state", [](ScenarioLine& line, Scenario& to) { to.state = line.Text("a file"); }},
    {"journal", ReadJournal},
};

// What only one line can set: the directive, or the directive and its name.
std::string SubjectOf(const Directive& directive, ScenarioLine line) {
  std::string subject(directive.word);
  if (directive.repeated == Repeated::kNever || line.IsAtEnd()) return subject;
  const std::string name = line.Text("a name");
  // A latency without a name is that of all entry points.
  return subject + ' ' + (WholeNumber<std::uint32_t>(name) ? "*" : name);
}

// Reads a line, which is neither empty nor a comment. `seen` are the subjects of earlier lines.
void ReadLine(std::string_view text, Scenario& scenario, std::vector<std::string>& seen) {
  ScenarioLine line(text);
  const std::string word = line.Text("a directive");
  const Directive* const directive = std::ranges::find(kDirectives, word, &Directive::word);
  if (directive == std::end(kDirectives)) throw ScenarioError("unknown directive \"" + word + '"');
  if (directive->repeated != Repeated::kAlways) {
    std::string subject = SubjectOf(*directive, line);
    if (std::ranges::count(seen, subject) != 0) {
      throw ScenarioError("a second line \"" + subject + '"');
    }
    seen.push_back(std::move(subject));
  }
  directive->read(line, scenario);
  line.End();
}

std::string ReadLines(TextLines& lines, Scenario& scenario) {
  if (!lines.IsReadable()) return "cannot read the file";
  std::vector<std::string> seen;
  bool hasHeading = false;
  for (std::size_t number = 1; const auto text = lines.Next(); ++number) {
    const std::string where = "line " + std::to_string(number) + ": ";
    if (ScenarioLine(*text).IsAtEnd()) continue;
    if (!hasHeading) {
      if (*text != kHeading) return where + "the first line must be \"quillbox scenario 1\"";
      hasHeading = true;
      continue;
    }
    try {
      const std::size_t faults = scenario.faults.size();
      ReadLine(*text, scenario, seen);
      if (scenario.faults.size() != faults)
        scenario.faults.back().text = where + std::string(*text);
    } catch (const ScenarioError& error) {
      return where + error.what();
    }
  }
  if (lines.IsCut()) return "a line is too long";
  if (!lines.IsReadable()) return "cannot read the whole file";
  return hasHeading ? "" : "the file is empty";
}

void MakeAbsolute(std::string& path, const fs::path& folder) {
  if (!path.empty()) path = (folder / path).string();
}

}  // namespace

std::uint32_t DefectOf(std::string_view word) {
  const NamedDefect* const found = std::ranges::find(kDefects, word, &NamedDefect::name);
  return found != std::end(kDefects) ? found->defect : 0;
}

std::string ReadScenario(const std::string& path, Scenario& scenario) {
  using namespace std::chrono;
  scenario.clock = sys_days(2026y / January / 1);
  scenario.settings.clockStep = 1;
  TextLines lines(path.c_str());
  std::string fault = ReadLines(lines, scenario);
  if (!fault.empty()) return fault;
  std::error_code failure;
  const fs::path folder = fs::absolute(path, failure).parent_path();
  if (scenario.begin != "office" && scenario.begin != "empty") {
    MakeAbsolute(scenario.begin, folder);
  }
  MakeAbsolute(scenario.state, folder);
  MakeAbsolute(scenario.journal, folder);
  return {};
}

std::string ReadBeginning(const std::string& begin, Contents& contents) {
  Contents read;
  if (begin == "office") {
    Seed(read.store);
  } else if (begin != "empty") {
    const std::string fault = ReadStateFile(begin, read);
    if (!fault.empty()) return begin + ": " + fault;
  }
  contents = std::move(read);
  return {};
}

std::string ApplyScenario(const Scenario& scenario, Appliance& appliance) {
  std::string fault = ReadBeginning(scenario.begin, appliance.contents);
  if (!fault.empty()) return fault;
  for (const CUserEntry& each : scenario.accounts) {
    appliance.contents.store.Put({BookKind::kUsers, {}, {}}, &each);
  }
  appliance.settings = scenario.settings;
  appliance.timeout = scenario.settings.timeout;
  if (scenario.clock) appliance.clock.Simulate(*scenario.clock);
  appliance.defects.Set(scenario.defects);
  for (const Fault& each : scenario.faults) appliance.faults.Add(each, scenario.seed);
  appliance.mayHaveUnfiredFaults = scenario.mayHaveUnfiredFaults;
  return {};
}

}  // namespace quillbox
