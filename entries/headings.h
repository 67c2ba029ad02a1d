// The meaning of the headings, attributes and properties that programs give to the parts of a
// contact.

#ifndef ENTRIES_HEADINGS_H_
#define ENTRIES_HEADINGS_H_

#include <cstdint>
#include <optional>
#include <string_view>

#include "contacts/record.h"

namespace entries {

enum class Part : std::uint8_t { kName, kGivenName, kFamilyName, kEmail, kFax, kNote, kPlace };

struct Meaning {
  Part part;
  // Of several parts that are present, the one with the smallest rank counts.
  unsigned rank = 1;
  // A heading such as "Nom", which means the whole name, or this part beside a column of the other
  // part of the name.
  std::optional<Part> beside = {};
  contacts::Place place = contacts::Place::kNone;
};

// Returns the meaning of a heading of a csv file: in English, German, French, Spanish, Italian or
// Dutch, in any case, with any numbers, spaces and punctuation.
std::optional<Meaning> MeaningOfHeading(std::string_view heading);

// Returns the meaning of an attribute of LDIF or a property of a vCard, in lower case. The property
// "tel" means a fax number; it is for the caller to find out whether it is one.
std::optional<Meaning> MeaningOfAttribute(std::string_view name);

}  // namespace entries

#endif  // ENTRIES_HEADINGS_H_
