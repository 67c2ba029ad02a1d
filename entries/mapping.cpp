#include "entries/mapping.h"

#include <algorithm>
#include <charconv>
#include <tuple>
#include <utility>

#include "contacts/ascii.h"

namespace entries {

using contacts::BeginsInAnyCase;
using contacts::EqualInAnyCase;
using contacts::FormError;
using contacts::Place;
using contacts::Problem;
using contacts::Record;
using contacts::Trimmed;
using contacts::Value;

namespace {

// A field's own name as a heading: it counts if there is no other source.
constexpr unsigned kRankOfField = 9;

bool IsAddress(Part part) {
  return part == Part::kEmail || part == Part::kFax;
}

bool IsName(Part part) {
  return part == Part::kName || part == Part::kGivenName || part == Part::kFamilyName;
}

// Returns the number that the text is, or 0.
unsigned NumberOf(std::string_view text) {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

std::string Listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& each : texts) list += (list.empty() ? "\"" : ", \"") + each + '"';
  return list.empty() ? "none" : list;
}

// Removes the first of several addresses from a text, and returns it.
std::string_view TakeAddress(std::string_view& text, std::string_view separators) {
  const std::size_t end = text.find_first_of(separators);
  const std::string_view address = Trimmed(text.substr(0, end));
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  return address;
}

// Returns the characters between the addresses in a text; none for a single address.
std::string_view SeparatorsOf(std::string_view text, Part part) {
  const std::string_view separators = part == Part::kFax ? ";:\n" : ";,:\n";
  const std::string_view needed = part == Part::kFax ? "0123456789" : "@";
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view address = TakeAddress(rest, separators);
    if (!address.empty() && address.find_first_of(needed) == address.npos) return {};
  }
  return text.find_first_of(separators) != text.npos ? separators : std::string_view();
}

bool IsRequired(const Field& field) {
  return field.isRequired;
}

// Returns the number in "tel:+49;ext=1", in "+49$twoDimensional" and in a spreadsheet's "=\"049\"".
std::string_view BareNumber(std::string_view text) {
  if (text.starts_with("=\"") && text.ends_with('"') && text.size() > 2) {
    text = text.substr(2, text.size() - 3);
  }
  return text.substr(0, text.find_first_of(";$"));
}

// Returns the address in a form such as "mailto:ann@x.example" or "Ann <ann@x.example>", or the
// number.
std::string_view BareAddress(std::string_view text, Part part) {
  for (const std::string_view scheme : {"mailto:", "smtp:", "tel:"}) {
    if (BeginsInAnyCase(text, scheme)) text.remove_prefix(scheme.size());
  }
  if (part == Part::kFax) return BareNumber(text);
  const std::size_t open = text.find('<');
  const bool isInBrackets =
      open != text.npos && text.ends_with('>') && text.find('@', open) != text.npos;
  return isInBrackets ? text.substr(open + 1, text.size() - open - 2) : text;
}

// Returns whether a spreadsheet shortened the number, as in 4,91E+10.
bool IsShortened(std::string_view number) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::size_t at = number.find("E+");
  return at != number.npos && at > 0 && at + 2 < number.size() && isDigit(number[at - 1]) &&
         isDigit(number[at + 2]);
}

// Returns what is wrong with an address: text beside it, or a number such as 4,91E+10.
const Problem* FaultOf(std::string_view address, Part part) {
  if (part == Part::kFax) return IsShortened(address) ? &contacts::kBadNumber : nullptr;
  const bool isOne =
      address.find('@') == address.npos || address.find_first_of(" \t") == address.npos;
  return isOne ? nullptr : &contacts::kBadAddress;
}

// What the column before an address tells of it, such as "* Work"; the asterisk marks the preferred
// one.
struct Label {
  Label() = default;
  explicit Label(std::string_view text) : isPreferred(text.starts_with('*')) {
    const std::string lower = contacts::LowerCase(text);
    if (lower.find("work") != lower.npos) place = Place::kWork;
    if (lower.find("home") != lower.npos) place = Place::kHome;
  }

  Place place = Place::kNone;
  bool isPreferred = false;
};

void Store(EntryValue& into, const Value& from, std::string_view text) {
  into.text = text;
  into.isBytes = from.isBytes;
  into.fault = from.fault;
  into.column = from.column;
  into.heading = from.name;
}

}  // namespace

Mapping::Mapping(std::vector<Field> newFields, std::vector<FieldSource> newSources, Place newPlace)
    : fields(std::move(newFields)), sources(std::move(newSources)), place(newPlace) {
  for (const FieldSource& each : sources) {
    if (UseOfField(each.field)) continue;
    std::vector<std::string> words;
    for (const Field& field : fields) words.push_back(field.word);
    throw FormError("the address book has no field \"" + each.field +
                    "\"; its fields: " + Listed(words));
  }
}

std::optional<Mapping::Use> Mapping::UseOfField(std::string_view name) const {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!EqualInAnyCase(fields[i].word, name)) continue;
    return Use{i, {fields[i].part.value_or(Part::kNote), kRankOfField}, true};
  }
  return std::nullopt;
}

std::optional<Mapping::Use> Mapping::UseOfMeaning(std::string_view name, bool isHeading) const {
  const std::optional<Meaning> meaning =
      isHeading ? MeaningOfHeading(name) : MeaningOfAttribute(name);
  if (!meaning) return std::nullopt;
  if (IsName(meaning->part)) return Use{0, *meaning};
  if (meaning->part == Part::kPlace) return Use{kNoField, *meaning};
  const auto field = std::ranges::find(fields, meaning->part, &Field::part);
  if (field == fields.end()) return std::nullopt;
  return Use{static_cast<std::size_t>(field - fields.begin()), *meaning};
}

const FieldSource* Mapping::SourceFor(std::size_t field) const {
  const auto found = std::ranges::find_if(sources, [&](const FieldSource& each) {
    return EqualInAnyCase(each.field, fields[field].word);
  });
  return found != sources.end() ? &*found : nullptr;
}

std::optional<Mapping::Use> Mapping::UseOf(std::string_view name, unsigned column,
                                           bool isHeading) const {
  for (const FieldSource& each : sources) {
    if (each.source.empty()) continue;
    const unsigned number = isHeading ? NumberOf(each.source) : 0;
    if (number != 0 ? number != column : !EqualInAnyCase(each.source, name)) continue;
    Use use = *UseOfField(each.field);
    use.isExact = EqualInAnyCase(each.field, name);
    return use;
  }
  std::optional<Use> use = UseOfMeaning(name, isHeading);
  if (!use) use = UseOfField(name);
  if (use && use->field != kNoField && SourceFor(use->field) != nullptr) return std::nullopt;
  return use;
}

std::size_t Mapping::KnownHeadings(const Record& record) const {
  std::size_t known = 0;
  for (const Value& each : record.Values()) {
    if (each.text.find('@') != each.text.npos) return 0;
    if (!each.text.empty() && UseOf(each.text, 0, true)) ++known;
  }
  return known;
}

void Mapping::SetColumns(const Record& record, bool hasHeadings) {
  headings.clear();
  columns.clear();
  for (const Value& each : record.Values()) {
    columns.push_back(UseOf(hasHeadings ? each.text : "", each.column, true));
    if (hasHeadings) headings.push_back(each.text);
  }
  ResolveNames();
  isOwnExport = !headings.empty() && std::ranges::all_of(headings, [&](const std::string& each) {
    return UseOfField(each).has_value();
  });
  // In another program's file, "Address" is a street.
  for (std::optional<Use>& each : columns) {
    const bool isOwn = each && each->meaning.rank == kRankOfField;
    if (isOwn && !isOwnExport && SourceFor(each->field) == nullptr) each.reset();
  }
  RequireColumns();
}

// Decides what headings such as "Nom" mean: a part of the name, if there is a column for the other
// part and none for this one.
void Mapping::ResolveNames() {
  const auto has = [&](Part part) {
    return std::ranges::any_of(columns, [&](const std::optional<Use>& each) {
      return each && each->meaning.part == part;
    });
  };
  const bool hasGiven = has(Part::kGivenName);
  const bool hasFamily = has(Part::kFamilyName);
  for (std::optional<Use>& each : columns) {
    if (!each || !each->meaning.beside || hasGiven == hasFamily) continue;
    const bool isFamily = *each->meaning.beside == Part::kFamilyName;
    if (isFamily ? hasGiven : hasFamily) each->meaning.part = *each->meaning.beside;
  }
}

bool Mapping::HasColumn(std::size_t field) const {
  return std::ranges::any_of(
      columns, [&](const std::optional<Use>& each) { return each && each->field == field; });
}

void Mapping::RequireColumns() const {
  const std::string known = headings.empty() ? "; the first line has no known headings"
                                             : "; the headings: " + Listed(headings);
  for (const FieldSource& each : sources) {
    const bool isNone = each.source.empty();
    const std::size_t field = UseOfField(each.field)->field;
    if (!isNone && !HasColumn(field)) {
      throw FormError("no column is \"" + each.source + '"' + known);
    }
    const auto count = std::ranges::count_if(
        headings, [&](const std::string& text) { return EqualInAnyCase(text, each.source); });
    if (count > 1) throw FormError("more than one column has the heading \"" + each.source + '"');
  }
  // A name can be taken from the address.
  const bool hasAddress = std::any_of(fields.begin() + 1, fields.end(), &IsRequired);
  for (std::size_t i = hasAddress ? 1 : 0; i < fields.size(); ++i) {
    if (!fields[i].isRequired || HasColumn(i)) continue;
    throw FormError("no column is known to hold the " + fields[i].word + known +
                    "; --map names the columns");
  }
}

// The parts of a name. Of several whole names, the best one counts.
struct Mapping::Name {
  const Value* whole = nullptr;
  unsigned rank = 0;
  const Value* given = nullptr;
  const Value* family = nullptr;

  void Add(const Value& value, const Meaning& meaning) {
    if (value.text.empty() && value.fault == nullptr) return;
    if (meaning.part == Part::kGivenName) {
      if (given == nullptr) given = &value;
    } else if (meaning.part == Part::kFamilyName) {
      if (family == nullptr) family = &value;
    } else if (whole == nullptr ||
               std::tie(meaning.rank, value.preference) < std::tie(rank, whole->preference)) {
      whole = &value;
      rank = meaning.rank;
    }
  }

  void StoreTo(EntryValue& name) const {
    const Value* const first = whole != nullptr ? whole : given != nullptr ? given : family;
    if (first == nullptr) return;
    Store(name, *first, first->text);
    if (whole != nullptr || given == nullptr || family == nullptr) return;
    name.text += ' ';
    name.text += family->text;
    if (name.fault == nullptr) name.fault = family->fault;
  }
};

// Chooses one of the addresses of a record.
class Mapping::Addresses {
 public:
  Addresses(Place newPlace, EntryValue& newFurther) : place(newPlace), further(newFurther) {}

  // Stores the label of the address that follows it.
  void SetLabel(std::string_view text) { label = Label(text); }

  // Only a cell of a csv file has several addresses.
  void Add(const Value& value, const Use& use, EntryValue& into) {
    const bool isCell = value.name.empty() && !use.isExact;
    const std::string_view separators =
        isCell ? SeparatorsOf(value.text, use.meaning.part) : std::string_view();
    std::string_view rest = value.text;
    if (separators.empty()) {
      AddOne(value, use, rest, into);
    } else {
      while (!rest.empty()) AddOne(value, use, TakeAddress(rest, separators), into);
    }
    label = {};
  }

 private:
  void AddOne(const Value& value, const Use& use, std::string_view text, EntryValue& into) {
    if (!use.isExact) text = BareAddress(text, use.meaning.part);
    if (text.empty() && value.fault == nullptr) return;
    if (into.column != 0 && EqualInAnyCase(text, into.text)) return;
    Place there = value.place != Place::kNone ? value.place : use.meaning.place;
    if (there == Place::kNone) there = label.place;
    const unsigned distance = place != Place::kNone && there != place ? 1 : 0;
    const unsigned preference = label.isPreferred ? 1 : value.preference;
    const auto order = std::tuple(distance, preference, use.meaning.rank);
    const bool isBetter = into.column == 0 || order < best;
    if (into.column != 0 && isBetter) further = into;
    EntryValue& stored = isBetter ? into : further;
    Store(stored, value, text);
    if (stored.fault == nullptr && !use.isExact) stored.fault = FaultOf(text, use.meaning.part);
    if (isBetter) best = order;
  }

  Place place;
  EntryValue& further;
  Label label;
  std::tuple<unsigned, unsigned, unsigned> best;
};

void Mapping::Map(const Record& record, std::vector<EntryValue>& values,
                  EntryValue& further) const {
  const auto clear = [](EntryValue& value) {
    value.text.clear();
    value.isBytes = false;
    value.fault = nullptr;
    value.column = 0;
    value.heading = {};
  };
  values.resize(fields.size());
  std::ranges::for_each(values, clear);
  clear(further);
  Name name;
  Addresses addresses(place, further);
  for (const Value& value : record.Values()) {
    if (!columns.empty() && value.column > columns.size()) break;
    const std::optional<Use> use =
        columns.empty() ? UseOf(value, record) : columns[value.column - 1];
    if (!use) continue;
    if (use->field == kNoField) {
      addresses.SetLabel(value.text);
      continue;
    }
    EntryValue& into = values[use->field];
    if (use->field == 0) {
      name.Add(value, use->meaning);
    } else if (IsAddress(use->meaning.part)) {
      addresses.Add(value, *use, into);
    } else if (into.text.empty()) {
      Store(into, value, value.text);
    }
  }
  name.StoreTo(values.front());
}

// Of a value in a file other than csv.
std::optional<Mapping::Use> Mapping::UseOf(const Value& value, const Record& record) const {
  if (record.hasFieldNames) return UseOfField(value.name);
  if (value.name == "tel" && !value.isFax) return std::nullopt;
  return UseOf(value.name, 0, false);
}

std::string Mapping::SourceOf(std::size_t field) const {
  std::string text;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!columns[i] || columns[i]->field != field) continue;
    text += (text.empty() ? "column " : ", column ") + std::to_string(i + 1);
    if (!headings.empty()) text += " \"" + headings[i] + '"';
  }
  const FieldSource* const source = SourceFor(field);
  return text.empty() && source != nullptr ? source->source : text;
}

}  // namespace entries
