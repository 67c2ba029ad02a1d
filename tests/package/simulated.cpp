// A test of an application: it contains the simulated appliance and inspects its state.

#include <cstdio>

#include "simulator/simulator.h"
#include "toolkit/quillkit.h"

int main() {
  using namespace quillkit;
  SimulatorSeed();
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1);
  if (box == nullptr) return 3;
  AddKey(GetTopLevelAbook(box), "Outside", 0);
  std::printf("simulated %s: %d keys\n", QUILLKIT_VERSION,
              SimulatorBookSize(BookKind::kTop, nullptr, nullptr));
  Exit();
}
