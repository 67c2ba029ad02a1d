// A program of the installed toolkit.

#include <cstdio>

#include "toolkit/quillkit.h"

int main() {
  using namespace quillkit;
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1);
  if (box == nullptr) return 3;
  std::printf("toolkit %s: %d keys\n", QUILLKIT_VERSION, GetCount(GetTopLevelAbook(box)));
  Exit();
}
