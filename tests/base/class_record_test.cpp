// The registry of classes that can be made by name.

#include "base/class_record.h"

#include <gtest/gtest.h>

#include <memory>

#include "appliance/scanner.h"
#include "base/root_object.h"
#include "bridge/agent.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

TEST(ClassRecord, EveryRegisteredClassIsMadeByItsName) {
  for (const ClassRecord* record : RegisteredClasses()) {
    SCOPED_TRACE(record->name);
    EXPECT_EQ(FindClass(record->name), record) << "the name is another's too";
    EXPECT_EQ(record->schema, 1U);
    const std::unique_ptr<RootObject> object(CreateByName(record->name));
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetRuntimeClass(), record);
  }
}

TEST(ClassRecord, ANameIsExact) {
  EXPECT_EQ(FindClass("CAgent"), &CAgent::kClass);
  EXPECT_EQ(FindClass("CScanner"), &CScanner::kClass);
  EXPECT_EQ(FindClass("CTopLevelAB"), &CTopLevelAB::kClass);
  for (const char* name : {"", "cagent", "CAgent ", "CAgen", "CSoftKey"}) {
    EXPECT_EQ(CreateByName(name), nullptr) << name;
  }
}

TEST(ClassRecord, AClassIsItselfAndItsBases) {
  const ClassRecord base = {"Base", 1, 1, nullptr, nullptr};
  const ClassRecord derived = {"Derived", 1, 1, nullptr, &base};
  const ClassRecord further = {"Further", 1, 1, nullptr, &derived};
  for (const ClassRecord* each : {&base, &derived, &further}) EXPECT_TRUE(further.IsA(*each));
  EXPECT_FALSE(derived.IsA(further));
}

}  // namespace
}  // namespace quillkit
