// quillkit_c from C, on the simulated appliance: all functions, the life of handles, and invalid
// arguments.

#include "capi/quillkit_c.h"

#include <stdio.h>
#include <string.h>

// The control functions of the appliance, as simulator/simulator.h documents them in C++.
void SimulatorSeed(void);
void SimulatorRecordCalls(int32_t record);
int32_t SimulatorCallCount(void);
const char* SimulatorCallText(int32_t index);
void SimulatorFail(const char* entry, int32_t occurrence, int32_t status);
void SimulatorSetWakeupPeriod(int32_t milliseconds);
int32_t SimulatorBookSize(int32_t kind, const char* book, const char* user);

static int failures;
static const char* scene = "";

static void Check(int line, const char* what, int64_t expected, int64_t found) {
  if (expected == found) return;
  ++failures;
  printf("line %d, %s: %s is %.0f, not %.0f\n", line, scene, what, (double)found, (double)expected);
}

static void CheckText(int line, const char* what, const char* expected, const char* found) {
  if (strcmp(expected, found) == 0) return;
  ++failures;
  printf("line %d, %s: %s is \"%s\", not \"%s\"\n", line, scene, what, found, expected);
}

#define EQ(expected, expression) Check(__LINE__, #expression, (expected), (expression))
#define TEXT_EQ(expected, expression) CheckText(__LINE__, #expression, (expected), (expression))

// The text that a function returns for a handle, "!" for an error. Valid until the next call.
static const char* TextOf(int32_t (*function)(quill_handle, char*, uint32_t*), quill_handle of) {
  static char text[600];
  uint32_t size = sizeof text;
  return function(of, text, &size) == 1 ? text : "!";
}

// -------------------------------------------------------------------------------------------

// One object of each kind and owner, as a session has them: the second item is in the second key;
// the made key has the name of the first one.
static quill_handle box, user, book, key, item, key2, item2, madeKey, madeKeyItem, madeItem;

static int32_t LogIn(const char* host, const char* name, const char* password, quill_handle* to) {
  return quill_log_to_quillbox(host, name, password, "", 1, to, NULL);
}

static void SetStage(void) {
  SimulatorSeed();
  SimulatorRecordCalls(1);
  EQ(1, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &box));
  EQ(1, quill_get_current_connected_user(box, &user));
  EQ(1, quill_get_top_level_abook(box, &book));
  EQ(1, quill_get_key_at(book, 0, &key));
  EQ(1, quill_get_item_at(key, 0, &item));
  EQ(1, quill_load_items(book, "Desks", &key2, NULL));
  EQ(1, quill_get_item_at(key2, 3, &item2));
  EQ(1, quill_create_soft_key("Archive", book, &madeKey));
  EQ(1, quill_get_item_at(madeKey, 511, &madeKeyItem));
  EQ(1, quill_create_menu_item(&madeItem));
  EQ(1, quill_set_name(madeItem, "Photographs"));
}

static void ClearStage(void) {
  quill_destroy_soft_key(madeKey);
  quill_destroy_menu_item(madeItem);
  quill_logout();
}

// A letter for each object of the stage whose handle is valid, and "s" if the made key can still
// call the server.
static const char* Living(void) {
  static char living[16];
  char* end = living;
  uint32_t number;
  quill_handle now;
  if (quill_get_scanner_address(box, &number) == 1) *end++ = 'X';
  if (quill_get_current_connected_user(0, &now) == 1 && now == user) *end++ = 'U';
  if (quill_get_count(book) >= 0) *end++ = 'B';
  if (quill_get_item_count(key) >= 0) *end++ = 'K';
  if (quill_settings(item, &number) == 1) *end++ = 'I';
  if (quill_get_item_count(key2) >= 0) *end++ = 'k';
  if (quill_settings(item2, &number) == 1) *end++ = 'i';
  if (quill_get_item_count(madeKey) >= 0) *end++ = 'M';
  if (quill_settings(madeKeyItem, &number) == 1) *end++ = 'm';
  if (quill_get_db_item_count(madeKey, &number) > QUILL_E_NULL) *end++ = 's';
  if (quill_settings(madeItem, &number) == 1) *end++ = 'O';
  *end = '\0';
  return living;
}

static quill_handle output;

// Which calls end which handles.
#define LIVES(name, expected, result, call) \
  do {                                      \
    scene = name;                           \
    SetStage();                             \
    TEXT_EQ("XUBKIkiMmsO", Living());       \
    EQ(result, call);                       \
    TEXT_EQ(expected, Living());            \
    ClearStage();                           \
  } while (0)

static void CheckLives(void) {
  char longName[33];
  memset(longName, 'n', 32);
  longName[32] = '\0';

  LIVES("logout", "XBKIkiMmsO", 1, quill_logout());
  LIVES("same address", "MmO", 1, LogIn("/127.0.0.1", "ADMINISTRATOR", "quill", &output));
  LIVES("other address", "XBKIkiMmsO", 1, LogIn("127.0.0.2", "TOOLKIT", "KELP", &output));
  LIVES("refused", "MmO", 0, LogIn("127.0.0.1", "ADMINISTRATOR", "no", &output));
  LIVES("long user", "XUBKIkiMmsO", 0, LogIn("127.0.0.1", longName, "", &output));
  LIVES("no host", "XUBKIkiMmsO", 0, LogIn("", "TOOLKIT", "KELP", &output));

  LIVES("load", "XUBMmsO", 0, quill_load_top_level_abook(book, 0));
  LIVES("add", "XUBKIkiMmsO", 0, quill_add_key(book, "New", 0));
  LIVES("add, reload", "XUBMmsO", 0, quill_add_key(book, "New", 1));
  LIVES("delete, reload", "XUBMmsO", 0, quill_delete_key(book, "Desks", 1));
  LIVES("modify itself, reload", "XUBMmsO", 0, quill_modify_key(book, key, 1));
  LIVES("rename to another", "XUBKIkiMmsO", 14, quill_rename_soft_key(book, "Workshop", key2));
  LIVES("fast add", "XUBKIkiMmsO", -1, quill_fast_key_add(book, madeKey, NULL));
  LIVES("fast remove", "XUBkiMmsO", 2, quill_fast_key_remove(book, madeKey, NULL));
  LIVES("fast remove itself", "XUBkiMmsO", 2, quill_fast_key_remove(book, key, NULL));
  LIVES("fast modify", "XUBKkiMsO", 1, quill_fast_key_modify(book, madeKey, NULL));
  LIVES("fast modify itself", "XUBKIkiMmsO", 1, quill_fast_key_modify(book, key, NULL));
  LIVES("fast rename", "XUBKIkiMmsO", 1, quill_fast_key_rename(book, "Archive", madeKey, NULL));
  LIVES("destroy key", "XUBKIkiO", 1, quill_destroy_soft_key(madeKey));

  LIVES("set item", "XUBKkiMmsO", 1, quill_set_item_at(key, 5, item2));
  LIVES("set no item", "XUBKIkiMmsO", 0, quill_set_item_at(key, 6, item2));
  LIVES("set made item", "XUBKIkiMsO", 1, quill_set_item_at(madeKey, 0, madeKeyItem));
  LIVES("remove item", "XUBKIkMmsO", 1, quill_remove_item_at(key2, 0));
  LIVES("add item", "XUBKIkiMmsO", 0, quill_add_menu_item(key, item2, 0));
  LIVES("add item, reload", "XUBKkiMmsO", 0, quill_add_menu_item(key, item2, 1));
  LIVES("modify own item", "XUBKkiMmsO", 0, quill_modify_menu_item(key, item, 1));
  LIVES("rename item", "XUBKkiMmsO", 0, quill_rename_menu_item(key, "Invoices", item2, 1));
  LIVES("delete item", "XUBKkiMmsO", 0, quill_delete_menu_item(key, "Invoices", 1));
  LIVES("fast item add", "XUBKkiMmsO", 7, quill_fast_item_add(key, item2, NULL));
  LIVES("fast item remove", "XUBKkiMmsO", 5, quill_fast_item_remove(key, item, NULL));
  LIVES("fast item modify", "XUBKkiMmsO", 1, quill_fast_item_modify(key, madeItem, NULL));
  LIVES("no item", "XUBKIkiMmsO", 0, quill_fast_item_modify(key2, madeItem, NULL));
  LIVES("fast item rename", "XUBKkiMmsO", 1, quill_fast_item_rename(key, "Invoices", item2, NULL));
  LIVES("destroy item", "XUBKIkiMms", 1, quill_destroy_menu_item(madeItem));
}

// -------------------------------------------------------------------------------------------

// Passes a handle to functions that take one of these kinds, one for each use of the argument.
static void Refuse(const char* kinds, int32_t expected, quill_handle h) {
  char text[300];
  uint32_t size = sizeof text, number;
  scene = kinds;
  if (strchr(kinds, 'X') != NULL) {
    EQ(expected, quill_get_scanner_name(h, text, &size));
    EQ(expected, quill_get_top_level_abook(h, &output));
    EQ(h != 0 ? expected : 1, quill_is_admin_connected(h));
  }
  if (strchr(kinds, 'B') != NULL) {
    EQ(expected, quill_delete_key(h, "Desks", 1));
    EQ(h != 0 ? expected : 0, quill_create_soft_key("x", h, &output));
    if (h == 0) EQ(1, quill_destroy_soft_key(output));
  }
  if (strchr(kinds, 'K') != NULL) {
    EQ(expected, quill_fast_key_remove(book, h, NULL));
    EQ(expected, quill_destroy_soft_key(h));
    EQ(expected, quill_get_db_item_count(h, &number));
    EQ(expected, quill_remove_item_at(h, 0));
  }
  if (strchr(kinds, 'I') != NULL) {
    EQ(expected, quill_add_menu_item(key, h, 1));
    EQ(expected, quill_destroy_menu_item(h));
    EQ(expected, quill_set_name(h, "x"));
  }
}

// An invalid handle is refused before anything happens.
static void CheckWrongHandles(void) {
  quill_handle staleBox, staleBook, staleKey, staleItem, staleMade;
  int32_t calls;
  SetStage();
  staleBox = box, staleBook = book, staleKey = key, staleItem = item, staleMade = madeKey;
  ClearStage();
  SetStage();
  calls = SimulatorCallCount();
  Refuse("0 for XBKI", QUILL_E_NULL, 0);
  Refuse("stale X", QUILL_E_STALE, staleBox);
  Refuse("stale B", QUILL_E_STALE, staleBook);
  Refuse("stale K", QUILL_E_STALE, staleKey);
  Refuse("destroyed K", QUILL_E_STALE, staleMade);
  Refuse("stale I", QUILL_E_STALE, staleItem);
  Refuse("a scanner for BKI", QUILL_E_FOREIGN, box);
  Refuse("a user for XBKI", QUILL_E_FOREIGN, user);
  Refuse("all bits for XBKI", QUILL_E_FOREIGN, UINT64_MAX);
  Refuse("a later generation, X", QUILL_E_FOREIGN, box + 1);
  Refuse("a slot that does not exist, K", QUILL_E_FOREIGN, key | (uint64_t)0xFFFF << 32);
  Refuse("generation 0, I", QUILL_E_FOREIGN, item - (uint32_t)item);
  EQ(calls, SimulatorCallCount());
  TEXT_EQ("XUBKIkiMmsO", Living());

  scene = "not the application's";
  EQ(QUILL_E_OWNER, quill_destroy_soft_key(key));
  EQ(QUILL_E_OWNER, quill_destroy_menu_item(item));
  EQ(QUILL_E_OWNER, quill_destroy_menu_item(madeKeyItem));
  TEXT_EQ("XUBKIkiMmsO", Living());
  ClearStage();
}

// A key of one appliance cannot write to the book of another one.
static void CheckTwoAppliances(void) {
  quill_handle otherBox, otherBook;
  scene = "two appliances";
  SetStage();
  EQ(1, LogIn("127.0.0.2", "ADMINISTRATOR", "quill", &otherBox));
  EQ(1, quill_get_top_level_abook(otherBox, &otherBook));
  EQ(QUILL_E_OWNER, quill_fast_key_modify(otherBook, key, NULL));
  EQ(QUILL_E_OWNER, quill_fast_key_modify(otherBook, madeKey, NULL));
  EQ(1, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &output));
  EQ(3, quill_get_count(otherBook));
  EQ(QUILL_E_STALE, quill_add_menu_item(madeKey, madeItem, 0));
  EQ(512, quill_get_item_count(madeKey));
  EQ(2, quill_fast_key_remove(otherBook, madeKey, NULL));
  ClearStage();
}

// -------------------------------------------------------------------------------------------

static void CheckArguments(void) {
  static const struct {
    uint32_t size;
    int32_t result;
    char last;
  } kBuffers[] = {{0, QUILL_E_BUFFER, '#'}, {9, QUILL_E_BUFFER, '#'}, {10, 1, '\0'}};
  char text[12], longText[301];
  uint32_t size = 0;
  size_t i;
  scene = "arguments";
  SetStage();
  EQ(QUILL_E_BUFFER, quill_get_item_name(item, NULL, &size));
  EQ(10, size);
  for (i = 0; i < sizeof kBuffers / sizeof *kBuffers; ++i) {
    memset(text, '#', sizeof text);
    size = kBuffers[i].size;
    EQ(kBuffers[i].result, quill_get_item_name(item, text, &size));
    EQ(10, size);
    EQ(kBuffers[i].last, text[9]);
    EQ('#', text[10]);
  }
  EQ(QUILL_E_ARGUMENT, quill_get_item_name(item, NULL, &size));
  EQ(QUILL_E_ARGUMENT, quill_get_item_name(item, text, NULL));
  EQ(QUILL_E_ARGUMENT, quill_settings(item, NULL));
  EQ(QUILL_E_ARGUMENT, quill_create_menu_item(NULL));
  EQ(QUILL_E_ARGUMENT, quill_set_name(item, NULL));

  memset(longText, 'x', sizeof longText - 1);
  longText[sizeof longText - 1] = '\0';
  EQ(0, quill_set_name(item, longText));
  EQ(1, quill_create_soft_key(longText, book, &output));
  TEXT_EQ(longText, TextOf(quill_get_key_name, output));
  EQ(1, quill_destroy_soft_key(output));
  EQ(0, quill_create_soft_key("x", 0, &output));
  EQ(-1, quill_delete_menu_item(output, "x", 0));
  EQ(1, quill_destroy_soft_key(output));

  size = sizeof text;
  EQ(1, quill_translate_toolkit_error(0, text, &size));
  TEXT_EQ("No Error", text);
  TEXT_EQ("the handle is 0", quill_error_text(QUILL_E_NULL));
  TEXT_EQ("the thread is inside another call", quill_error_text(QUILL_E_NESTED));
  TEXT_EQ("", quill_error_text(QUILL_E_FORKED - 1));
  TEXT_EQ("", quill_error_text(0));
  TEXT_EQ(QUILLKIT_VERSION, quill_version());
  EQ(QUILL_CONTRACT, quill_contract());
  ClearStage();
}

// -------------------------------------------------------------------------------------------

static void CheckImport(void) {
  static const char kPath[] = "quillkit_c_test.csv";
  const quill_import_options options = {1, 0, 1, 1, 9, {1, 0, -1, -1}};
  FILE* file = fopen(kPath, "wb");
  int32_t before;
  scene = "import";
  SetStage();
  before = SimulatorBookSize(1, "", NULL);
  EQ(1, file != NULL && fputs("address,name\nzoe@mail.example,Zoe\n", file) >= 0);
  if (file != NULL) fclose(file);
  EQ(0, quill_import_address_book(box, kPath, &options));
  EQ(before + 1, SimulatorBookSize(1, "", NULL));
  EQ(-3, quill_import_address_book(box, kPath, NULL));
  EQ(-1, quill_import_address_book(box, NULL, &options));
  remove(kPath);
  ClearStage();
}

static void CheckSession(void) {
  uint32_t number;
  quill_handle again;
  scene = "session";
  SetStage();
  TEXT_EQ("127.0.0.1", TextOf(quill_get_scanner_name, box));
  TEXT_EQ("Quillbox 40 ", TextOf(quill_get_scanner_model, box));
  TEXT_EQ("3.1 ", TextOf(quill_get_scanner_version, box));
  EQ(1, quill_is_admin_connected(0));
  EQ(1, quill_find_soft_key_index(book, "Desks"));
  EQ(-1, quill_find_soft_key_index(book, "Desk"));
  EQ(1, quill_get_key_at(book, 1, &again));
  EQ(1, key2 == again);
  EQ(0, quill_is_soft_key_empty(key));

  EQ(1, quill_set_ip_address(madeItem, "files.example"));
  EQ(1, quill_set_path(madeItem, "/in"));
  EQ(1, quill_set_app_tag(madeItem, "ledger"));
  EQ(1, quill_set_file_format(madeItem, 3));
  EQ(1, quill_set_settings(madeItem, UINT32_MAX));
  TEXT_EQ("Photographs", TextOf(quill_get_item_name, madeItem));
  TEXT_EQ("files.example", TextOf(quill_ip_address, madeItem));
  TEXT_EQ("/in", TextOf(quill_path, madeItem));
  TEXT_EQ("ledger", TextOf(quill_app_tag, madeItem));
  EQ(1, quill_file_format(madeItem, &number));
  EQ(3, number);
  EQ(1, quill_settings(madeItem, &number));
  EQ(UINT32_MAX, number);
  EQ(1, quill_find_next_item(key, 0));  // without a pattern the search starts at the second item
  EQ(-1, quill_find_first_item(key, "P", 1));
  EQ(4, quill_find_first_item(key, "P", 0));
  EQ(-1, quill_find_next_item(key, 1));
  EQ(5, quill_find_next_item(key, 0));
  EQ(5, quill_find_menu_item_index(key, madeItem));
  EQ(0, quill_get_db_item_count(key, &number));
  EQ(6, number);

  SimulatorFail("IMSPDeleteEntry", 1, 8);
  EQ(8, quill_delete_menu_item(key, "Invoices", 1));
  EQ(8, quill_get_last_toolkit_error());
  TEXT_EQ("IMSPDeleteEntry 512:Archive Invoices", SimulatorCallText(SimulatorCallCount() - 1));
  EQ(1, quill_logout());
  EQ(0, quill_get_top_level_abook(box, &again));
  EQ(1, again == 0);
  EQ(10, quill_add_key(book, "More", 1));
  ClearStage();
}

// Each call gives its own error. The last error stays what the latest server call made it.
static void CheckErrors(void) {
  char longName[33] = "nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn";
  int32_t error = 99;
#define FAILS(result, status, call) (error = 99, EQ(result, call), EQ(status, error))
  scene = "errors";
  SetStage();
  FAILS(1, 0, quill_load_items(book, "Desks", &output, &error));
  FAILS(-1, 14, quill_fast_key_add(book, key, &error));
  FAILS(0, 4, quill_fast_key_rename(book, "None", madeKey, &error));
  FAILS(-1, 4, quill_fast_item_remove(key2, madeItem, &error));
  FAILS(QUILL_E_NULL, QUILL_E_NULL, quill_fast_item_add(0, item, &error));
  FAILS(0, QUILL_STATUS_REFUSED,
        quill_log_to_quillbox("127.0.0.1", longName, "", "", 1, &output, &error));
  EQ(4, quill_get_last_toolkit_error());
  FAILS(0, 2, quill_log_to_quillbox("127.0.0.1", "ADMINISTRATOR", "no", "", 1, &output, &error));
  ClearStage();
}

// -------------------------------------------------------------------------------------------

// Adds, reads, changes and deletes an entry of each book, and of a list made for it.
static void CheckEntries(void) {
  static const struct {
    int32_t kind;
    const char* list;
    const char* texts[3];
  } kBooks[] = {{QUILL_BOOK_EMAIL, "", {"zz@mail.example", "", ""}},
                {QUILL_BOOK_FAX, "", {"1234", "abc", ""}},
                {QUILL_BOOK_USERS, "", {"secret", "3rd", "4th"}},
                {QUILL_BOOK_PRINTERS, "", {"By the door", "", ""}},
                {QUILL_BOOK_PRIVATE_EMAIL, "", {"zz@mail.example", "", ""}},
                {QUILL_LIST_EMAIL, "New", {"zz@mail.example", "", ""}},
                {QUILL_LIST_PRIVATE_EMAIL, "New", {"zz@mail.example", "", ""}},
                {QUILL_LIST_FAX, "New", {"1234", "", ""}}};
  char names[8][16];
  size_t i, j;
  SetStage();
  for (i = 0; i < sizeof kBooks / sizeof *kBooks; ++i) {
    quill_entry entry = {"Zz", {"", "", ""}, {1, 0, 0}}, found, page[3];
    uint32_t before = 0, after = 0, count = 3;
    quill_handle opened;
    const int isList = *kBooks[i].list != '\0';
    sprintf(names[i], "entries of %d", (int)kBooks[i].kind);
    scene = names[i];
    for (j = 0; j < 3; ++j) strcpy(entry.texts[j], kBooks[i].texts[j]);
    EQ(0, quill_open_entries(box, kBooks[i].kind, kBooks[i].list, &opened));
    EQ(isList ? 0 : QUILL_E_ARGUMENT, quill_create_list(opened));
    if (isList) EQ(0, quill_enumerate_lists(box, kBooks[i].kind, page, &count));
    if (!isList) EQ(0, quill_entry_count(opened, &before));
    EQ(0, quill_add_entry(opened, &entry));
    EQ(0, quill_entry_count(opened, &after));
    EQ(before + 1, after);
    EQ(0, quill_read_entry(opened, "Zz", &found));
    for (j = 0; j < 3; ++j) TEXT_EQ(entry.texts[j], found.texts[j]);
    count = 3;
    EQ(0, quill_read_entries(opened, "Zy", "Z*", 0, 1, page, &count));
    EQ(1, count);
    TEXT_EQ("Zz", page[0].name);
    strcpy(found.name, "Zzz");
    EQ(QUILL_STATUS_DATA_NOT_FOUND, quill_modify_entry(opened, &found));
    EQ(0, quill_rename_entry(opened, "Zz", &found));
    EQ(QUILL_STATUS_DATA_NOT_FOUND, quill_read_entry(opened, "Zz", &entry));
    EQ(0, quill_delete_entry(opened, "Zzz"));
    memset(found.texts[0], 'x', sizeof found.texts[0]);
    EQ(QUILL_STATUS_REFUSED, quill_add_entry(opened, &found));
    EQ(isList ? 0 : QUILL_E_ARGUMENT, quill_delete_list(opened));
    EQ(0, quill_close_entries(opened));
    EQ(QUILL_E_STALE, quill_entry_count(opened, &after));
  }
  ClearStage();
}

// Reads the e-mail book by page in both directions, and through a view.
static void CheckPages(void) {
  static const struct {
    int32_t find, what;  // QUILL_FIND_ or QUILL_GO_
    const char* key;
    const char* expected;
    int32_t absent;  // the modes without such an entry, each as bit 1 << mode
  } kSteps[] = {{0, QUILL_GO_FIRST, "", "Agnes Moreau", 0},
                {0, QUILL_GO_AT, "", "Harbour Insurance", 0},
                {0, QUILL_GO_PREV, "", "Gareth Pugh", 0},
                {0, QUILL_GO_NEXT, "", "Harbour Insurance", 0},
                {1, QUILL_FIND_NAME, "Ewa Nowicka", "Ewa Nowicka", 0},
                {1, QUILL_FIND_NAME, "Ewa", "no such name", 7},
                {1, QUILL_FIND_PREFIX, "Ewb", "no such prefix", 7},
                {1, QUILL_FIND_LETTER, "#", "no such letter", 7},
                {1, QUILL_FIND_PREFIX, "A", "Agnes Moreau", 0},
                {1, QUILL_FIND_NEXT, "", "All staff", 1 << QUILL_VIEW_FULL},
                {1, QUILL_FIND_LETTER, "G", "Gareth Pugh", 0},
                {0, QUILL_GO_LAST, "", "\xD8", 0},
                {0, QUILL_GO_NEXT, "", "Harbour", 1 << QUILL_VIEW_SLIDING | 1 << QUILL_VIEW_FULL}};
  quill_entry page[4], entry;
  quill_handle opened, view;
  uint32_t count = 4;
  int32_t mode;
  size_t i;
  scene = "pages";
  SetStage();
  EQ(0, quill_open_entries(box, QUILL_BOOK_EMAIL, "", &opened));
  EQ(21, quill_read_entries(opened, "", "", 1, 1, page, &count));
  EQ(4, count);
  TEXT_EQ("All staff", page[0].name);
  count = 2;
  EQ(21, quill_read_entries(opened, "Ewa Nowicka", "*", 0, 0, page + 1, &count));
  EQ(2, count);
  EQ(1, strcmp(page[1].name, page[2].name) < 0 && strcmp(page[2].name, "Ewa Nowicka") < 0);
  EQ(QUILL_E_ARGUMENT, quill_read_entries(opened, "", "", -1, 1, page, &count));
  EQ(0, count);
  EQ(QUILL_STATUS_REFUSED, quill_read_entries(opened, "", "", 0, 1, page, &count));
  EQ(QUILL_E_FOREIGN, quill_enumerate_lists(user, QUILL_LIST_FAX, page, (count = 4, &count)));
  EQ(0, count);
  EQ(QUILL_E_ARGUMENT, quill_open_entries(box, 3, "", &output));
  EQ(QUILL_E_ARGUMENT, quill_open_view(box, 3, &view));
  for (mode = QUILL_VIEW_FULL; mode >= QUILL_VIEW_SLIDING; --mode) {
    EQ(0, quill_open_view(box, mode, &view));
    for (i = 0; i < sizeof kSteps / sizeof *kSteps; ++i) {
      const int isAbsent = kSteps[i].absent >> mode & 1;
      scene = kSteps[i].expected;
      EQ(isAbsent ? QUILL_STATUS_DATA_NOT_FOUND : 0,
         kSteps[i].find ? quill_view_find(view, kSteps[i].what, kSteps[i].key, &entry)
                        : quill_view_go(view, kSteps[i].what, 13, &entry));
      if (!isAbsent) EQ(0, strncmp(kSteps[i].expected, entry.name, strlen(kSteps[i].expected)));
    }
    EQ(4, quill_view_go(view, QUILL_GO_AT, 1000, &entry));
    EQ(0, quill_close_view(view));
  }
  SimulatorFail("IMSPReadAB", 1, 8);
  EQ(8, quill_open_view(box, QUILL_VIEW_FULL, &view));
  EQ(0, quill_open_view(box, QUILL_VIEW_SLIDING, &view));
  EQ(0, quill_view_go(view, QUILL_GO_FIRST, 0, &entry));
  EQ(1, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &output));
  EQ(QUILL_E_STALE, quill_view_go(view, QUILL_GO_NEXT, 0, &entry));
  EQ(QUILL_E_STALE, quill_delete_entry(opened, "All staff"));
  EQ(0, quill_close_view(view));
  EQ(0, quill_close_entries(opened));
  ClearStage();
}

// A wait sends the keep-alive.
static void CheckWait(void) {
  scene = "wait";
  SetStage();
  SimulatorSetWakeupPeriod(20);
  quill_logout();
  EQ(1, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &box));
  EQ(1, quill_wait(200));
  TEXT_EQ("IMSPWakeup", SimulatorCallText(SimulatorCallCount() - 1));
  EQ(1, quill_event_descriptor() >= -1);
  EQ(1, quill_dispatch_events() >= 0);
  ClearStage();
}

// Runs last: after it the process has no server.
static void CheckExit(void) {
  scene = "exit";
  SetStage();
  EQ(1, quill_exit());
  TEXT_EQ("MmO", Living());
  EQ(0, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &output));
  EQ(20, quill_get_last_toolkit_error());
  EQ(1, quill_destroy_soft_key(madeKey));
  EQ(1, quill_destroy_menu_item(madeItem));
  EQ(QUILL_E_STALE, quill_destroy_menu_item(madeItem));
  EQ(QUILL_E_FOREIGN, quill_destroy_menu_item(madeItem + 1));  // a free slot's next generation
  TEXT_EQ("", Living());
}

int main(void) {
  CheckSession();
  CheckErrors();
  CheckEntries();
  CheckPages();
  CheckWait();
  CheckImport();
  CheckArguments();
  CheckLives();
  CheckWrongHandles();
  CheckTwoAppliances();
  CheckExit();
  printf("quillkit_c %s: %d failures\n", quill_version(), failures);
  return failures != 0;
}
