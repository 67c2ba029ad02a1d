#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "examples/column_map.h"
#include "examples/failures.h"
#include "examples/import_command.h"

namespace quillctl {
namespace {

using testing::ElementsAre;

TEST(ColumnMap, TakesColumnsAndNothingElse) {
  EXPECT_THAT(ParseColumnMap("2,10"), ElementsAre(2, 10));
  EXPECT_THAT(ParseColumnMap("0,-1,2147483647"), ElementsAre(0, -1, 2147483647));
  for (const char* map :
       {"", ",", "1,", ",1", "1,,2", "1, 2", "-2", "1x", "+1", "0x1", "2147483648"}) {
    EXPECT_THROW(ParseColumnMap(map), UsageError) << map;
  }
}

struct RequestCase {
  ImportRequest request;
  bool fits;
};

TEST(ImportRequest, IsRefusedWhereAnOptionHasNoMeaning) {
  const RequestCase cases[] = {
      {{"", "csv", "", "0,1"}, true},
      {{"", "csv", "email", "0,1,2"}, false},
      {{"", "csv", "fax", "0,1,2", true}, true},
      {{"", "csv", "printers", "0,1"}, false},
      {{"", "csv", "users", "0,1,2,3"}, true},
      {{"", "csv", "", ""}, false},
      {{"", "directory", "", "", false, true}, true},
      {{"", "directory", "email", ""}, false},
      {{"", "mail", "", "0,1"}, false},
      {{"", "mail", "", "", true}, false},
      {{"", "script", "", ""}, true},
      {{"", "script", "", "", false, true}, false},
  };
  for (const RequestCase& each : cases) {
    SCOPED_TRACE(each.request.format + ' ' + each.request.target + ' ' + each.request.map);
    if (each.fits) {
      EXPECT_NO_THROW(Import{each.request});
    } else {
      EXPECT_THROW(Import{each.request}, UsageError);
    }
  }
}

}  // namespace
}  // namespace quillctl
