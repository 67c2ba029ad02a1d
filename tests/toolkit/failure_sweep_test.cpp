// The exported functions, with every one of their server calls failing in turn, and without a
// scanner or an owner.

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "softkeys/top_level_ab.h"
#include "tests/toolkit/export_operations.h"

namespace quillkit {
namespace {

INSTANTIATE_TEST_SUITE_P(Exports, FailureSweep, testing::ValuesIn(ExportOperations()),
                         OperationName);

class WithoutAScanner : public ApplianceTest {};

TEST_F(WithoutAScanner, FunctionsOfKeysAndItemsFailWithoutACall) {
  for (const bool hasOwner : {true, false}) {
    for (const Operation& each : ExportOperations()) {
      const bool changesItems = each.calls.find("Entry 512:") != std::string::npos;
      if (hasOwner ? each.name.find("(on.") == std::string::npos : !changesItems) continue;
      SCOPED_TRACE(each.name + (hasOwner ? ", no scanner" : ", no owner"));
      SimulatorReset();
      Stage stage(LogIn());
      if (hasOwner) stage.book->Attach(nullptr, 0);
      if (!hasOwner) stage.book->Load(0);  // keys without items have no owner
      stage.key = stage.book->KeyAt(0);
      SimulatorRecordCalls(1);
      TakeCalls();
      TheAgent.SetError(kEarlier);
      EXPECT_EQ(each.run(stage), each.result.Failure(kRefused));
      EXPECT_THAT(TakeCalls(), testing::IsEmpty());
      EXPECT_EQ(TheAgent.LastError(), kEarlier);
    }
  }
}

}  // namespace
}  // namespace quillkit
