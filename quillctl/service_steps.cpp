// The steps of the check that import an entry, and that wait while the library keeps the session
// alive.

#include <chrono>
#include <memory>
#include <thread>

#include "bridge/records.h"
#include "bridge/the_agent.h"
#include "console/displayed_text.h"
#include "console/temporary_file.h"
#include "platform/message_pump.h"
#include "quillctl/check_command.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

using quillkit::CEmailEntry;
using quillkit::EntryKey;
using quillkit::TheAgent;

constexpr const char* kAddress = "check@quillctl.example";

// The entry on which the import is tested: in the e-mail book, or in the user's own one.
class ImportTrial {
 public:
  explicit ImportTrial(bool isAdministrator)
      : isPublic(isAdministrator),
        book(isPublic ? quillkit::BookKind::kEmail : quillkit::BookKind::kPrivateEmail,
             isPublic ? quillkit::kEmailBook : quillkit::kPrivateBook) {}

  // Uses the first name that no entry has.
  void ChooseName() {
    std::int32_t status = 0;
    for (int i = 1; i < 100 && status == 0; ++i) {
      key = EntryKey("quillctl check" + (i == 1 ? "" : ' ' + std::to_string(i)));
      status = Read();
    }
    RequireStatus(status, quillkit::kDataNotFound);
  }

  void Import() {
    const std::string name(key.name.View());
    const console::TemporaryFile script(isPublic
                                            ? "SE emailab \"" + name + "\" \"" + kAddress + "\"\n"
                                            : name + '\n' + kAddress + '\n');
    isImported = true;
    RequireStatus(TheAgent.IMSPBatchConfiguration(script.path()), 0);
    const std::int32_t status = Read();
    if (status != 0 || !(entry.address == kAddress)) {
      throw Refusal("accepted, but not carried out: " + CodeAndText(status));
    }
  }

  // Deletes the entry if it may exist.
  void Delete() {
    if (!isImported) return;
    const std::int32_t status = TheAgent.IMSPDeleteEntry(&book, &key);
    if (status == quillkit::kDataNotFound || (status == 0 && Read() == quillkit::kDataNotFound)) {
      isImported = false;
      RequireStatus(status, 0);
      return;
    }
    throw Refusal(
        console::Quoted(std::string(key.name.View())) +
        " may still exist (delete it with quillctl entry delete): " + CodeAndText(status));
  }

 private:
  // Returns the status. Throws a Refusal if the appliance delivers another entry.
  std::int32_t Read() {
    entry = {};
    const std::int32_t status = TheAgent.IMSPReadEntryProperties(&book, &key, &entry);
    if (status == 0 && !(entry.name == key.name)) {
      throw Refusal("the appliance delivers another entry");
    }
    return status;
  }

  bool isPublic;
  quillkit::ABIdent book;
  EntryKey key;
  CEmailEntry entry;
  bool isImported = false;  // or may be
};

std::string ImportEntry(CheckRun& check) {
  ImportTrial trial(check.OpenSession().User() == kAdministrator);
  check.DeferTermination();
  check.RequireNotInterrupted();
  trial.ChooseName();
  try {
    trial.Import();
  } catch (const Refusal& why) {
    try {
      trial.Delete();
    } catch (const Refusal& other) {
      throw Refusal(std::string(why.what()) + "; " + other.what());
    }
    throw;
  }
  trial.Delete();
  return "the entry was deleted again";
}

// Waits for two periods of the appliance. Meanwhile the library makes only keep-alive calls.
std::string KeepAlive(CheckRun& check) {
  check.OpenSession();
  quillkit::IOCtlRecord request;
  request.code = quillkit::IOCtlCode::kGetWakeupPeriod;
  RequireStatus(TheAgent.IMSPIOCtl(&request), 0);
  const std::chrono::milliseconds period(request.value);
  if (period.count() == 0) throw Refusal("the appliance reports no period");
  int console = 0;  // the program has no window
  const auto end = std::chrono::steady_clock::now() + 2 * period;
  while (std::chrono::steady_clock::now() < end) {
    check.RequireNotInterrupted();
    quillkit::PumpThreadMessages(&console);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  std::uint32_t size = 0;
  quillkit::ABIdent users(quillkit::BookKind::kUsers, quillkit::kUsersBook);
  RequireStatus(TheAgent.IMSPSizeofAB(&users, &size), 0);
  return "the session is open after " + std::to_string((2 * period).count()) + " ms";
}

}  // namespace

std::vector<Step> ServiceSteps(bool write, bool keepAlive) {
  std::vector<Step> steps;
  if (write) steps.push_back({"import an entry", ImportEntry});
  if (keepAlive) steps.push_back({"keep the session alive for two periods", KeepAlive});
  return steps;
}

}  // namespace quillctl
