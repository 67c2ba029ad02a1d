#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "console/displayed_text.h"
#include "console/failure.h"
#include "console/text_file.h"
#include "quillbox/commands.h"

namespace quillbox {
namespace {

constexpr std::string_view kTemplate =
    R"(quillbox scenario 1
# All times are in milliseconds. Remove the # before a line to use it.

# The books at the beginning: office, empty, or a file written by quillbox dump.
begin office
#account "Eve" "apple"
#account "A name with \x22quotes\x22"

# Limits: keys, items, email, fax, accounts, printers, models, lists, members, private-lists,
# private-entries. A call that exceeds one returns 24.
#limit keys 3
#limit email none

#identity "Quillbox 40 - 3.1 - K7"
#timeout 30000
#keep-alive 60000
#latency 20
#latency IMSPReadAB 500

# The clock: simulated, each call taking one step, or real. Latencies and delays wait, and the
# keep-alive period passes between calls, only with clock real.
#clock simulated start 2026-01-01 step 1000
#clock real

# Faults. Each must fire in at least one process, unless unfired faults are allowed.
#fault IMSPCreateEntry nth 3 status 24
#fault IMSPCreateEntry book 512:Desks name "Agnes" reply lost
#fault IMSPReadAB first 2 delay 5000
#fault IMSPReadAB account "Eve" reply short
#fault * after 60000 nth 1 session lost
#fault * probability 0.05 status 19
#seed 7
#unfired allowed

#state office.state
#journal calls.log text
)";

}  // namespace

void WriteTemplate(const std::string& path) {
  std::error_code failure;
  if (!console::IsStandardOutput(path) && std::filesystem::exists(path, failure)) {
    throw console::Refusal(console::Quoted(path) + " exists");
  }
  console::WriteOutput(path, std::string(kTemplate));
}

}  // namespace quillbox
