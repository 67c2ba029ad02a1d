// quillkit_c from C, on the simulated appliance: a story, the course of handles, and wrong calls.

#include "capi/quillkit_c.h"

#include <stdio.h>
#include <string.h>

// The appliance's control; simulator/simulator.h tells of it in C++.
void SimulatorSeed(void);
void SimulatorRecordCalls(int32_t record);
int32_t SimulatorCallCount(void);
const char* SimulatorCallText(int32_t index);
void SimulatorFail(const char* entry, int32_t occurrence, int32_t status);
int32_t SimulatorBookSize(int32_t kind, const char* book, const char* user);

enum { kEmailBook = 1, kNotTheServers = -1000 };

static int checks, failures;
static const char* scene = "";

static void Check(int line, const char* what, int64_t expected, int64_t found) {
  ++checks;
  if (expected == found) return;
  ++failures;
  printf("line %d, %s: %s is %.0f, not %.0f\n", line, scene, what, (double)found, (double)expected);
}

static void CheckText(int line, const char* what, const char* expected, const char* found) {
  ++checks;
  if (found != NULL && strcmp(expected, found) == 0) return;
  ++failures;
  printf("line %d, %s: %s is \"%s\", not \"%s\"\n", line, scene, what,
         found != NULL ? found : "null", expected);
}

#define EQ(expected, expression) Check(__LINE__, #expression, (expected), (expression))
#define TEXT_EQ(expected, expression) CheckText(__LINE__, #expression, (expected), (expression))

// What a text function gives of a handle; "!" for an error. Good until the next call.
static const char* TextOf(int32_t (*function)(quill_handle, char*, uint32_t*), quill_handle of) {
  static char text[600];
  uint32_t size = sizeof text;
  return function(of, text, &size) == 1 ? text : "!";
}

// -------------------------------------------------------------------------------------------

// One object of each kind and owner, as a session has them. The second key and item are another
// key's; the made key bears the first key's name.
static quill_handle box, user, book, key, item, key2, item2, madeKey, madeKeyItem, madeItem;

static int32_t LogIn(const char* host, const char* name, const char* password, quill_handle* to) {
  return quill_log_to_quillbox(host, name, password, "", 1, to);
}

static void SetStage(void) {
  SimulatorSeed();
  SimulatorRecordCalls(1);
  EQ(1, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &box));
  EQ(1, quill_get_current_connected_user(box, &user));
  EQ(1, quill_get_top_level_abook(box, &book));
  EQ(1, quill_get_key_at(book, 0, &key));
  EQ(1, quill_get_item_at(key, 0, &item));
  EQ(1, quill_load_items(book, "Desks", &key2));
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

// A letter for each object of the stage whose handle still names it, and "s" where the made key
// still reaches the server.
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
  if (quill_get_db_item_count(madeKey, &number) > kNotTheServers) *end++ = 's';
  if (quill_settings(madeItem, &number) == 1) *end++ = 'O';
  *end = '\0';
  return living;
}

static quill_handle nobody;

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
  LIVES("same address", "MmO", 1, LogIn("/127.0.0.1", "ADMINISTRATOR", "quill", &nobody));
  LIVES("other address", "XBKIkiMmsO", 1, LogIn("127.0.0.2", "TOOLKIT", "KELP", &nobody));
  LIVES("refused", "MmO", 0, LogIn("127.0.0.1", "ADMINISTRATOR", "no", &nobody));
  LIVES("long user", "XUBKIkiMmsO", 0, LogIn("127.0.0.1", longName, "", &nobody));
  LIVES("no host", "XUBKIkiMmsO", 0, LogIn("", "TOOLKIT", "KELP", &nobody));

  LIVES("load", "XUBMmsO", 0, quill_load_top_level_abook(book, 0));
  LIVES("add", "XUBKIkiMmsO", 0, quill_add_key(book, "New", 0));
  LIVES("add, reload", "XUBMmsO", 0, quill_add_key(book, "New", 1));
  LIVES("delete, reload", "XUBMmsO", 0, quill_delete_key(book, "Desks", 1));
  LIVES("modify itself, reload", "XUBMmsO", 0, quill_modify_key(book, key, 1));
  LIVES("rename to another", "XUBKIkiMmsO", 14, quill_rename_soft_key(book, "Workshop", key2));
  LIVES("fast add", "XUBKIkiMmsO", -1, quill_fast_key_add(book, madeKey));
  LIVES("fast remove", "XUBkiMmsO", 2, quill_fast_key_remove(book, madeKey));
  LIVES("fast remove itself", "XUBkiMmsO", 2, quill_fast_key_remove(book, key));
  LIVES("fast modify", "XUBKkiMsO", 1, quill_fast_key_modify(book, madeKey));
  LIVES("fast modify itself", "XUBKIkiMmsO", 1, quill_fast_key_modify(book, key));
  LIVES("fast rename", "XUBKIkiMmsO", 1, quill_fast_key_rename(book, "Archive", madeKey));
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
  LIVES("fast item add", "XUBKkiMmsO", 7, quill_fast_item_add(key, item2));
  LIVES("fast item remove", "XUBKkiMmsO", 5, quill_fast_item_remove(key, item));
  LIVES("fast item modify", "XUBKkiMmsO", 1, quill_fast_item_modify(key, madeItem));
  LIVES("no item", "XUBKIkiMmsO", 0, quill_fast_item_modify(key2, madeItem));
  LIVES("fast item rename", "XUBKkiMmsO", 1, quill_fast_item_rename(key, "Invoices", item2));
  LIVES("destroy item", "XUBKIkiMms", 1, quill_destroy_menu_item(madeItem));
}

// -------------------------------------------------------------------------------------------

// Functions that take a handle of the kinds named, one of each sort of argument and use of it.
static void Refuse(const char* kinds, int32_t expected, quill_handle h) {
  char text[300];
  uint32_t size = sizeof text, number;
  scene = kinds;
  if (strchr(kinds, 'X') != NULL) {
    EQ(expected, quill_get_scanner_name(h, text, &size));
    EQ(expected, quill_get_scanner_address(h, &number));
    EQ(expected, quill_get_top_level_abook(h, &nobody));
    EQ(expected, quill_import_address_book(h, "x", NULL));
    EQ(h != 0 ? expected : 1, quill_get_current_connected_user(h, &nobody));
    EQ(h != 0 ? expected : 1, quill_is_admin_connected(h));
  }
  if (strchr(kinds, 'B') != NULL) {
    EQ(expected, quill_get_count(h));
    EQ(expected, quill_load_top_level_abook(h, 1));
    EQ(expected, quill_delete_key(h, "Desks", 1));
    EQ(expected, quill_fast_key_modify(h, key));
    EQ(expected, quill_load_items(h, "Desks", &nobody));
    if (h != 0) EQ(expected, quill_create_soft_key("x", h, &nobody));
  }
  if (strchr(kinds, 'K') != NULL) {
    EQ(expected, quill_modify_key(book, h, 1));
    EQ(expected, quill_fast_key_remove(book, h));
    EQ(expected, quill_fast_key_modify(book, h));
    EQ(expected, quill_destroy_soft_key(h));
    EQ(expected, quill_get_key_name(h, text, &size));
    EQ(expected, quill_get_db_item_count(h, &number));
    EQ(expected, quill_get_item_at(h, 0, &nobody));
    EQ(expected, quill_remove_item_at(h, 0));
    EQ(expected, quill_fast_item_rename(h, "x", madeItem));
  }
  if (strchr(kinds, 'I') != NULL) {
    EQ(expected, quill_set_item_at(key, 0, h));
    EQ(expected, quill_add_menu_item(key, h, 1));
    EQ(expected, quill_destroy_menu_item(h));
    EQ(expected, quill_path(h, text, &size));
    EQ(expected, quill_settings(h, &number));
    EQ(expected, quill_set_name(h, "x"));
  }
}

// A wrong handle is refused before anything happens.
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
  Refuse("a book for XKI", QUILL_E_FOREIGN, book);
  Refuse("a key for XBI", QUILL_E_FOREIGN, key);
  Refuse("an item for XBK", QUILL_E_FOREIGN, item);
  Refuse("a user for XBKI", QUILL_E_FOREIGN, user);
  Refuse("1 for XBKI", QUILL_E_FOREIGN, 1);
  Refuse("all bits for XBKI", QUILL_E_FOREIGN, UINT64_MAX);
  Refuse("a generation to come, X", QUILL_E_FOREIGN, box + 1);
  Refuse("a slot not there, K", QUILL_E_FOREIGN, key | (uint64_t)0xFFFF << 32);
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

// A key of one appliance does not bring its book into another's.
static void CheckTwoAppliances(void) {
  quill_handle otherBox, otherBook;
  scene = "two appliances";
  SetStage();
  EQ(1, LogIn("127.0.0.2", "ADMINISTRATOR", "quill", &otherBox));
  EQ(1, quill_get_top_level_abook(otherBox, &otherBook));
  EQ(QUILL_E_OWNER, quill_fast_key_modify(otherBook, key));
  EQ(QUILL_E_OWNER, quill_fast_key_modify(otherBook, madeKey));
  EQ(1, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &nobody));
  EQ(3, quill_get_count(otherBook));
  EQ(QUILL_E_STALE, quill_add_menu_item(madeKey, madeItem, 0));
  EQ(512, quill_get_item_count(madeKey));
  EQ(2, quill_fast_key_remove(otherBook, madeKey));
  ClearStage();
}

// -------------------------------------------------------------------------------------------

static void CheckTexts(void) {
  static const struct {
    uint32_t room;
    int32_t result;
    char last;
  } kRooms[] = {{0, QUILL_E_BUFFER, '#'}, {9, QUILL_E_BUFFER, '#'}, {10, 1, '\0'}, {11, 1, '\0'}};
  char text[12], longText[301];
  uint32_t size;
  size_t i;
  scene = "texts";
  SetStage();
  for (i = 0; i < sizeof kRooms / sizeof *kRooms; ++i) {
    memset(text, '#', sizeof text);
    size = kRooms[i].room;
    EQ(kRooms[i].result, quill_get_item_name(item, text, &size));
    EQ(10, size);
    EQ(kRooms[i].last, text[9]);
    EQ('#', text[10]);
  }
  size = 0;
  EQ(QUILL_E_BUFFER, quill_get_item_name(item, NULL, &size));
  EQ(10, size);
  EQ(QUILL_E_ARGUMENT, quill_get_item_name(item, NULL, &size));
  EQ(QUILL_E_ARGUMENT, quill_get_item_name(item, text, NULL));
  EQ(QUILL_E_ARGUMENT, quill_settings(item, NULL));
  EQ(QUILL_E_ARGUMENT, quill_get_db_item_count(key, NULL));
  EQ(QUILL_E_ARGUMENT, quill_get_key_at(book, 0, NULL));
  EQ(QUILL_E_ARGUMENT, quill_create_menu_item(NULL));
  EQ(QUILL_E_ARGUMENT, quill_set_name(item, NULL));
  EQ(QUILL_E_ARGUMENT, quill_create_soft_key(NULL, book, &nobody));
  EQ(QUILL_E_ARGUMENT, LogIn(NULL, "", "", &nobody));

  memset(longText, 'x', sizeof longText - 1);
  longText[sizeof longText - 1] = '\0';
  EQ(0, quill_set_name(item, longText));
  EQ(0, quill_set_ip_address(item, longText + 44));
  EQ(1, quill_set_ip_address(item, longText + 45));
  EQ(0, quill_set_path(item, longText + 172));
  EQ(0, quill_set_app_tag(item, longText + 172));
  TEXT_EQ("Contracts", TextOf(quill_get_item_name, item));
  EQ(1, quill_create_soft_key(longText, book, &nobody));
  TEXT_EQ(longText, TextOf(quill_get_key_name, nobody));
  EQ(7, quill_add_key(book, longText, 0));
  EQ(1, quill_destroy_soft_key(nobody));
  EQ(0, quill_create_soft_key("x", 0, &nobody));
  EQ(0, quill_get_item_count(nobody));
  EQ(-1, quill_delete_menu_item(nobody, "x", 0));
  EQ(1, quill_destroy_soft_key(nobody));

  size = sizeof text;
  EQ(1, quill_translate_toolkit_error(0, text, &size));
  TEXT_EQ("No Error", text);
  size = 8;
  EQ(QUILL_E_BUFFER, quill_translate_toolkit_error(0, text, &size));
  EQ(9, size);
  TEXT_EQ("the handle is 0", quill_error_text(QUILL_E_NULL));
  TEXT_EQ("internal failure", quill_error_text(QUILL_E_INTERNAL));
  TEXT_EQ("the thread is inside another call", quill_error_text(QUILL_E_NESTED));
  TEXT_EQ("", quill_error_text(QUILL_E_FORKED - 1));
  TEXT_EQ("", quill_error_text(0));
  ClearStage();
}

// -------------------------------------------------------------------------------------------

static void ImportContacts(void) {
  static const char kPath[] = "quillkit_c_test.csv";
  const quill_import_options options = {1, 0, 1, 1, 9, {1, 0, -1, -1}};
  const int32_t before = SimulatorBookSize(kEmailBook, "", NULL);
  FILE* file = fopen(kPath, "wb");
  EQ(1, file != NULL);
  if (file == NULL) return;
  fputs("address,name\nzoe@mail.example,Zoe\nyan@mail.example,Yan\n", file);
  fclose(file);
  EQ(0, quill_import_address_book(box, kPath, &options));
  EQ(before + 2, SimulatorBookSize(kEmailBook, "", NULL));
  EQ(-3, quill_import_address_book(box, kPath, NULL));
  EQ(-1, quill_import_address_book(box, NULL, &options));
  remove(kPath);
}

static void TellStory(void) {
  uint32_t number;
  int32_t calls;
  quill_handle again;
  scene = "story";
  SetStage();
  TEXT_EQ("127.0.0.1", TextOf(quill_get_scanner_name, box));
  TEXT_EQ("Quillbox 40 ", TextOf(quill_get_scanner_model, box));
  TEXT_EQ("3.1 ", TextOf(quill_get_scanner_version, box));
  EQ(1, quill_is_admin_connected(0));

  EQ(0, quill_add_key(book, "Accounts", 1));
  EQ(0, quill_find_soft_key_index(book, "Accounts"));
  EQ(1, quill_get_key_at(book, 0, &key));
  EQ(1, quill_get_key_at(book, 0, &again));
  EQ(1, key == again);
  EQ(1, quill_is_soft_key_empty(key));
  EQ(1, quill_set_name(madeItem, "Invoices"));
  EQ(1, quill_set_ip_address(madeItem, "files.example"));
  EQ(1, quill_set_path(madeItem, "/in"));
  EQ(1, quill_set_app_tag(madeItem, "ledger"));
  EQ(1, quill_set_file_format(madeItem, 3));
  EQ(1, quill_set_settings(madeItem, UINT32_MAX));
  EQ(0, quill_add_menu_item(key, madeItem, 1));
  EQ(1, quill_set_name(madeItem, "Tax office"));
  EQ(2, quill_fast_item_add(key, madeItem));
  EQ(1, quill_find_first_item(key, "Tax", 0));
  EQ(-1, quill_find_next_item(key, 0));
  EQ(1, quill_find_menu_item_index(key, madeItem));
  EQ(0, quill_get_db_item_count(key, &number));
  EQ(2, number);
  EQ(1, quill_get_item_at(key, 0, &item));
  TEXT_EQ("Invoices", TextOf(quill_get_item_name, item));
  TEXT_EQ("files.example", TextOf(quill_ip_address, item));
  TEXT_EQ("/in", TextOf(quill_path, item));
  TEXT_EQ("ledger", TextOf(quill_app_tag, item));
  EQ(1, quill_file_format(item, &number));
  EQ(3, number);
  EQ(1, quill_settings(item, &number));
  EQ(UINT32_MAX, number);

  SimulatorFail("IMSPDeleteEntry", 1, 8);
  calls = SimulatorCallCount();
  EQ(8, quill_delete_menu_item(key, "Invoices", 1));
  EQ(8, quill_get_last_toolkit_error());
  EQ(calls + 1, SimulatorCallCount());
  TEXT_EQ("IMSPDeleteEntry 512:Accounts Invoices", SimulatorCallText(calls));

  ImportContacts();
  EQ(1, quill_logout());
  EQ(0, quill_get_top_level_abook(box, &again));
  EQ(1, again == 0);
  EQ(10, quill_add_key(book, "More", 1));
  ClearStage();
}

// The last scene: the process has no server after it.
static void CheckExit(void) {
  scene = "exit";
  SetStage();
  EQ(1, quill_exit());
  TEXT_EQ("MmO", Living());
  EQ(0, LogIn("127.0.0.1", "ADMINISTRATOR", "quill", &nobody));
  EQ(20, quill_get_last_toolkit_error());
  EQ(1, quill_destroy_soft_key(madeKey));
  EQ(1, quill_destroy_menu_item(madeItem));
  EQ(QUILL_E_STALE, quill_destroy_menu_item(madeItem));
  EQ(QUILL_E_FOREIGN, quill_destroy_menu_item(madeItem + 1));  // the next of a free slot
  TEXT_EQ("", Living());
}

int main(void) {
  TellStory();
  CheckTexts();
  CheckLives();
  CheckWrongHandles();
  CheckTwoAppliances();
  CheckExit();
  printf("quillkit_c %s: %d checks, %d failed\n", quill_version(), checks, failures);
  return failures != 0;
}
