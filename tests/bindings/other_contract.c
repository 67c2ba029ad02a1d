// A library of another contract, which the bindings must refuse.

int quill_contract(void) {
  return 99;
}
const char* quill_version(void) {
  return "99";
}
