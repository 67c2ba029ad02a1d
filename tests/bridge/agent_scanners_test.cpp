// The agent's list of appliances: one of each address, in the order of their logins.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "bridge/agent.h"

namespace quillkit {
namespace {

using Names = std::vector<std::string>;

constexpr std::uint32_t kTwo = 2;
constexpr std::uint32_t kOther = 9;

class AgentScanners : public testing::Test {
 protected:
  CScanner* Add(const std::string& name, std::uint32_t address) {
    auto* scanner = new CScanner;
    scanner->Init(name, &address, "", "", &agent);
    EXPECT_EQ(agent.AddScanner(scanner), 1);
    return scanner;
  }

  Names All() const {
    Names names;
    for (int i = 0; i < agent.ScannerCount(); ++i) names.push_back(agent.ScannerAt(i)->Name());
    return names;
  }

  CAgent agent;
};

TEST_F(AgentScanners, OneOfEachAddressIsListedTheLatestLast) {
  Add("one", 1);
  CScanner* two = Add("two", 2);
  Add("one again", 1);
  EXPECT_EQ(All(), (Names{"two", "one again"}));
  EXPECT_EQ(agent.AddScanner(two), 1) << "one that is listed only moves";
  EXPECT_EQ(All(), (Names{"one again", "two"}));
  EXPECT_EQ(agent.AddScanner(nullptr), 0);

  EXPECT_EQ(agent.FindScanner(&kTwo), two);
  EXPECT_EQ(agent.FindScanner(&kOther), nullptr);
  EXPECT_EQ(agent.ScannerAt(-1), nullptr);
  EXPECT_EQ(agent.ScannerAt(2), nullptr);
  EXPECT_EQ(agent.RemoveScanner(&kOther), 0);
  EXPECT_EQ(agent.RemoveScanner(&kTwo), 1);
  EXPECT_EQ(All(), (Names{"one again"}));
}

TEST_F(AgentScanners, AWalkGoesOnPastWhatIsRemoved) {
  EXPECT_EQ(agent.FirstScanner(), nullptr);
  Add("one", 1);
  EXPECT_EQ(agent.NextScanner(), nullptr) << "a walk begins with FirstScanner";
  Add("two", 2);
  Add("three", 3);
  EXPECT_EQ(agent.FirstScanner()->Name(), "one");
  agent.RemoveScanner(&kTwo);
  EXPECT_EQ(agent.NextScanner()->Name(), "three");
  EXPECT_EQ(agent.NextScanner(), nullptr);
  EXPECT_EQ(agent.NextScanner(), nullptr);
  agent.FirstScanner();
  agent.DeleteScanners();
  EXPECT_EQ(agent.NextScanner(), nullptr);
}

TEST_F(AgentScanners, AnArchiveReplacesTheListByItsOwn) {
  Add("one", 1);
  Add("two", 2);
  std::string bytes;
  Archive storing(&bytes);
  agent.Serialize(storing);
  EXPECT_EQ(All(), (Names{"one", "two"}));

  Add("three", 3);
  Archive loading{std::string_view(bytes)};
  agent.Serialize(loading);
  EXPECT_EQ(All(), (Names{"one", "two"}));
  EXPECT_FALSE(agent.ScannerAt(0)->IsBound());
}

}  // namespace
}  // namespace quillkit
