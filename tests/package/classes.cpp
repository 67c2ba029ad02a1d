// A program that uses the installed class library: it contains every class, and needs no other part
// of the product.

#include <cstdio>

#include "base/class_record.h"
#include "toolkit/quillkit.h"
#include "toolkit/toolkit_app.h"

int main() {
  using namespace quillkit;
  if (!CToolkitApp::Start()) return 1;
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1);
  if (box == nullptr) return 2;
  std::printf("classes %s: %d keys, %zu classes\n", QUILLKIT_VERSION,
              GetCount(GetTopLevelAbook(box)), RegisteredClasses().size());
  CToolkitApp::Stop();
}
