// Every record that crosses the server boundary. Sizes and offsets are a wire format: each record
// asserts its own beside its declaration.

#ifndef QUILLKIT_BRIDGE_RECORDS_H_
#define QUILLKIT_BRIDGE_RECORDS_H_

#include <bit>

#include "base/language.h"
#include "bridge/ab_ident.h"
#include "bridge/address_entries.h"
#include "bridge/call_records.h"
#include "bridge/entry_key.h"
#include "bridge/menu_item.h"
#include "bridge/printer_records.h"
#include "bridge/status.h"
#include "bridge/user_entry.h"

static_assert(std::endian::native == std::endian::little, "the wire is little-endian");

#endif  // QUILLKIT_BRIDGE_RECORDS_H_
