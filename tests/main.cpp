// The main function of the test programs. They contain the object files of the library, so that
// tests can use functions that are not exported.

#include <gmock/gmock.h>

#include <cstdio>

#include "platform/message_box.h"
#include "platform/name_service.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  // No message box may wait for a button to be pressed.
  quillkit::SetMessageBoxHandler(
      [](const char* text) { return std::fprintf(stderr, "%s\n", text); });
  if (!quillkit::StartSockets()) return 1;
  const int result = RUN_ALL_TESTS();
  quillkit::StopSockets();
  return result;
}
