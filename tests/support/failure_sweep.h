// The failure sweep: runs an operation undisturbed, and then with each of its server calls failing,
// with code 4 (no data), 21 (more data) and two others; then with each two of them failing, and
// with all from one on. Each run checks the result, the last error, the server calls and the
// contents of memory. Each operation is a row of a table:
//
//   CALL(on.fax.DeleteEntry(&on.faxAnn, 1), kFlag,
//        "DeleteEntry 2:FAXAB Ann, ReadAB (loses fax/; 4: ends, loses fax/)"),
//
//   1. The operation. It runs on a stage that is set up anew for each run (sweep_stage.h).
//   2. How its result reports success and failure: kStatus, kFlag, Count(n) or kNothing.
//   3. Its server calls in order, as the journal shows them but without "IMSP". The last arguments
//      may be omitted. In parentheses: what happens if this call fails. After a semicolon: what
//      happens instead with one code, or ("after 2: ends") if call number 2 has failed, too.
//   4. The contents of memory after the undisturbed run. Omitted: the same as in books that are
//      opened again after it. "kept": as before. "loses" and "becomes": as described below.
//      "unchecked": not checked. "needs no book", alone or after another word: the operation can
//      succeed without a book. Alone, it has the same meaning for memory as an omitted text.
//   5. A further preparation of the stage, if needed.
//
// What happens if a call fails:
//
//               result    further calls   memory
//   (nothing)   failure   none            as before
//   ends        success   none            as before
//   ignored     success   all             as after success
//   skips N     success   not the next N  as after success
//   late        failure   all             as after success
//
// Further words replace a column:
//
//   returns N      the result is N
//   less N         the result is N less
//   error N        the last error is N
//   then A B       the further calls are A and B
//   changed        memory is as after success
//   kept           memory is as before
//   loses P        memory without the lines that begin with P
//   becomes P L    memory with L in place of each line that begins with P
//   blanks P       memory with "P=", the line of a blank record, in place of each of these lines
//
// The last error is the code if the failing call is the last one, otherwise that of the undisturbed
// run. A logout never changes it.
//
// If several calls fail, their effects are combined. The result is the failure of the last call
// that makes the operation fail, if there is one. Memory is as after success only if each effect
// leaves it so, and loses what each effect loses.

#ifndef QUILLKIT_TESTS_SUPPORT_FAILURE_SWEEP_H_
#define QUILLKIT_TESTS_SUPPORT_FAILURE_SWEEP_H_

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/appliance_fixture.h"
#include "tests/support/sweep_stage.h"

namespace quillkit {

struct Result {
  // What a failure with this status returns.
  std::int64_t Failure(Status status) const { return isStatus ? status : failure; }

  std::int64_t success;
  std::int64_t failure;
  bool isStatus = false;
};

constexpr Result kStatus = {0, 0, true};
constexpr Result kFlag = {1, 0};  // also a pointer and null
constexpr Result kNothing = {0, 0};
constexpr Result Count(std::int64_t success) {
  return {success, -1};
}

struct Operation {
  bool UsesAccounts() const { return name.find("on.users") != std::string::npos; }

  std::string name;
  std::int64_t (*run)(Stage& stage);
  Result result;
  std::string calls;
  std::string notes = "";
  void (*prepare)(Stage& stage) = nullptr;
  bool throughOwner = false;
};

using Operations = std::vector<Operation>;

inline std::ostream& operator<<(std::ostream& out, const Operation& each) {
  return out << each.name;
}

// What a row calls `on`. A template of rows has a parameter of this name.
inline Stage& On(Stage& stage) {
  return stage;
}

template <class Run>
std::int64_t ResultOf(Run run) {
  if constexpr (std::is_void_v<decltype(run())>) {
    run();
    return 0;
  } else if constexpr (std::is_pointer_v<decltype(run())>) {
    return run() != nullptr ? 1 : 0;
  } else {
    return run();
  }
}

#define CALL(call, ...)                     \
  {                                         \
#call,                                    \
   [](Stage& stage) -> std::int64_t {        \
     [[maybe_unused]] auto&& on = On(stage); \
     return ResultOf([&] { return call; });  \
   },                                        \
   __VA_ARGS__ \
  }

inline bool EndsAsReopened(const Operation& operation) {
  return operation.notes.empty() || operation.notes == "needs no book";
}

// The server calls that fail in a run: their numbers, from 1, and the codes that they return.
using Failures = std::map<std::size_t, Status>;

// The result of a run.
struct Trial {
  std::int64_t result;
  Status lastError;
  Lines calls;
  Lines before;  // in memory
  Lines after;
};

// Prepares the stage and runs an operation with these failures, through `run`.
Trial RunOn(Stage& stage, const Operation& operation, const Failures& failures,
            const std::function<std::int64_t(Stage&)>& run);

// Removes from each call the arguments that the prediction omits.
void CutAsPredicted(Lines& calls, const Lines& predicted);

// What a row predicts.
class Prediction {
 public:
  struct Call {
    std::string text;
    std::string effects;
  };

  // `undisturbed` is a run without failures.
  Prediction(const Operation& row, const Trial& newUndisturbed);

  // A run with these failures. A failure of a call that is not made has no effect.
  Trial With(const Failures& failures) const;

  // The contents of memory after the undisturbed run. `reopened`: the contents of books that are
  // opened again after it, if EndsAsReopened().
  Lines After(const Lines& reopened) const;

 private:
  const Operation& operation;
  const Trial& undisturbed;
  const std::vector<Call> undisturbedCalls;
};

// Runs the sweep for each row of
// INSTANTIATE_TEST_SUITE_P(Prefix, FailureSweep, testing::ValuesIn(rows), OperationName).
class FailureSweep : public ApplianceTest, public testing::WithParamInterface<Operation> {};

// The text of the operation, with "_" for every run of other characters than letters and digits.
inline std::string OperationName(const testing::TestParamInfo<Operation>& row) {
  std::string name;
  for (const char each : row.param.name) {
    if (std::isalnum(static_cast<unsigned char>(each)) != 0) {
      name += each;
    } else if (!name.ends_with('_')) {
      name += '_';
    }
  }
  return name + (row.param.throughOwner ? "ThroughTheOwner" : "");
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_FAILURE_SWEEP_H_
