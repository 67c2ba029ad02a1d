// Loading a shared library at run time.

#include "platform/module.h"

#include <gtest/gtest.h>

namespace quillkit {
namespace {

TEST(ModuleTest, LoadsByPlainNameAndFindsExactNamesAlone) {
  ModuleHandle module = LoadModule("IMSPAPI");
  ASSERT_NE(module, nullptr);
  EXPECT_NE(FindEntryPoint(module, "IMSPWakeup"), nullptr);
  for (const char* name : {"imspwakeup", "IMSPWakeu", "IMSPWakeup2", "_IMSPWakeup", ""}) {
    EXPECT_EQ(FindEntryPoint(module, name), nullptr) << name;
  }
  UnloadModule(module);
}

TEST(ModuleTest, WhatIsNotThereIsNull) {
  EXPECT_EQ(LoadModule("IMSPAPI2"), nullptr);
  EXPECT_EQ(LoadModule(""), nullptr);
  EXPECT_EQ(FindEntryPoint(nullptr, "IMSPWakeup"), nullptr);
  UnloadModule(nullptr);
}

}  // namespace
}  // namespace quillkit
