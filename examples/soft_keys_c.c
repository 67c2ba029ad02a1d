// Soft keys in C: logs in, adds a key with two items, renames it, lists all keys, and shows how a
// call reports that it failed.

#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include "capi/quillkit_c.h"

// Whether the result of a call is 0. If not, prints its message: that of the appliance's code, or
// of an error of quillkit_c such as an invalid handle.
static bool succeeded(int32_t status) {
  char message[64] = "";
  uint32_t size = sizeof message;
  if (status == 0) return true;
  if (status > QUILL_E_NULL) quill_translate_toolkit_error(status, message, &size);
  printf("Refused: %s%s\n", message, quill_error_text(status));
  return false;
}

static bool add_item(quill_handle key, const char* name, const char* address, const char* path) {
  quill_handle item;
  bool added;
  if (quill_create_menu_item(&item) != 1) return false;
  added = quill_set_name(item, name) == 1 && quill_set_ip_address(item, address) == 1 &&
          quill_set_path(item, path) == 1 && quill_fast_item_add(key, item, NULL) >= 0;
  quill_destroy_menu_item(item);
  return added;
}

static bool add_accounting(quill_handle keys) {
  quill_handle key;
  if (!succeeded(quill_add_key(keys, "Accounting", 1))) return false;
  return quill_get_key_at(keys, quill_find_soft_key_index(keys, "Accounting"), &key) == 1 &&
         add_item(key, "Invoices in", "files.example.com", "/in") &&
         add_item(key, "Tax office", "tax.example.org", "/upload");
}

// Renames the key on the appliance, and reads all keys again.
static bool rename_key(quill_handle keys, const char* old_name, const char* new_name) {
  quill_handle named;
  const bool renamed = quill_create_soft_key(new_name, keys, &named) == 1 &&
                       succeeded(quill_rename_soft_key(keys, old_name, named));
  quill_destroy_soft_key(named);
  return renamed && succeeded(quill_load_top_level_abook(keys, 1));
}

// The buffers have room for the longest name, address and path.
static void list_items(quill_handle key) {
  quill_handle item;
  char name[32], address[256], path[128];
  for (int32_t i = 0; quill_get_item_at(key, i, &item) == 1; ++i) {
    uint32_t name_size = sizeof name, address_size = sizeof address, path_size = sizeof path;
    if (quill_get_item_name(item, name, &name_size) == 1 &&
        quill_ip_address(item, address, &address_size) == 1 &&
        quill_path(item, path, &path_size) == 1) {
      printf("  %-16s%-20s%s\n", name, address, path);
    }
  }
}

static void list_keys(quill_handle keys) {
  quill_handle key;
  char name[32];
  for (int32_t i = 0; quill_get_key_at(keys, i, &key) == 1; ++i) {
    uint32_t size = sizeof name;
    if (quill_get_key_name(key, name, &size) == 1) printf("%s\n", name);
    list_items(key);
  }
}

int main(void) {
  quill_handle box, keys;
  int32_t error = 0;
  char host[64];
  uint32_t size = sizeof host;
  if (quill_log_to_quillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1, &box, &error) != 1 ||
      quill_get_top_level_abook(box, &keys) != 1) {
    fprintf(stderr, "no login: code %d\n", (int)error);
    return EXIT_FAILURE;
  }
  if (quill_get_scanner_name(box, host, &size) == 1) printf("Connected to %s\n", host);
  if (!add_accounting(keys) || !rename_key(keys, "Accounting", "Bookkeeping")) return EXIT_FAILURE;
  list_keys(keys);
  succeeded(quill_add_key(keys, "Archive", 0));  // already exists
  quill_logout();
  succeeded(quill_add_key(keys, "Late", 0));
  quill_exit();
  return EXIT_SUCCESS;
}
