#include "entries/entries.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "contacts/ascii.h"

namespace entries {

using contacts::Encoding;
using contacts::Finding;
using contacts::Form;
using contacts::Format;
using contacts::FormError;
using contacts::IsBlank;
using contacts::Problem;
using contacts::Value;

namespace {

// Removes the apostrophe that keeps a spreadsheet from reading a formula.
void RemoveFormulaMark(std::string& text) {
  const bool isMarked = text.size() > 1 && text.front() == '\'' &&
                        std::string_view("=+-@\t\r'").find(text[1]) != std::string_view::npos;
  if (isMarked) text.erase(0, 1);
}

void Reject(Entry& entry, Finding finding) {
  if (entry.fault.problem == nullptr) entry.fault = std::move(finding);
}

}  // namespace

EntryReader::EntryReader(std::istream& source, const Form& newForm, Mapping newMapping,
                         const EntryOptions& newOptions)
    : form(newForm),
      mapping(std::move(newMapping)),
      options(newOptions),
      reader(contacts::MakeReader(source, newForm)) {
  if (form.format != Format::kCsv) return;
  hasFirst = reader->Next(record);
  if (hasFirst && form.hasHeadings && record.fault.problem != nullptr) {
    throw FormError("cannot read the headings: " + std::string(record.fault.problem->reason));
  }
  if (hasFirst) mapping.SetColumns(record, form.hasHeadings);
  if (form.hasHeadings) hasFirst = false;
}

bool EntryReader::Next(Entry& entry) {
  if (!hasFirst && !reader->Next(record)) return false;
  hasFirst = false;
  SetEntry(entry);
  return true;
}

void EntryReader::SetEntry(Entry& entry) {
  entry.line = record.line;
  entry.begin = record.begin;
  entry.end = record.end;
  entry.fault.problem = nullptr;
  entry.notes.clear();
  entry.values.resize(mapping.Fields().size());
  entry.isPassedOver = record.isGroup && record.fault.problem == nullptr;
  for (std::string& each : entry.values) each.clear();
  if (record.fault.problem != nullptr) {
    entry.fault = record.fault;
    entry.fault.heading = HeadingOf(record.fault.column, {});
  } else if (RepeatsHeadings()) {
    entry.isPassedOver = true;
    entry.notes.push_back({.problem = &contacts::kRepeatedHeadings});
  } else if (record.isGroup) {
    entry.notes.push_back({.problem = &contacts::kGroup});
  } else {
    mapping.Map(record, values, further);
    Check(entry);
  }
}

std::string EntryReader::HeadingOf(unsigned column, std::string_view name) const {
  const std::vector<std::string>& headings = mapping.Headings();
  return column != 0 && column <= headings.size() ? headings[column - 1] : std::string(name);
}

Finding EntryReader::FindingOf(const Problem& problem, const EntryValue& value,
                               std::size_t width) const {
  return {&problem, value.column, HeadingOf(value.column, value.heading), width};
}

// As where files were put one after another.
bool EntryReader::RepeatsHeadings() const {
  const auto cells = std::as_const(record).Values();
  return !mapping.Headings().empty() &&
         std::ranges::equal(cells, mapping.Headings(), {}, &Value::text);
}

void EntryReader::RejectExtraColumns(Entry& entry) const {
  for (const Value& each : record.Values()) {
    if (each.column > mapping.Headings().size() && !each.text.empty()) {
      return Reject(entry, {.problem = &contacts::kExtraColumn, .column = each.column});
    }
  }
}

void EntryReader::Check(Entry& entry) {
  if (form.hasHeadings && form.format == Format::kCsv) RejectExtraColumns(entry);
  for (EntryValue& each : values) {
    if (each.fault != nullptr) Reject(entry, FindingOf(*each.fault, each));
    if (form.hasMark && mapping.IsOwnExport()) RemoveFormulaMark(each.text);
  }
  const std::vector<Field>& fields = mapping.Fields();
  EntryValue& name = values.front();
  const bool isEmpty =
      std::ranges::all_of(values, [](const EntryValue& each) { return each.text.empty(); });
  if (isEmpty && form.format == Format::kLdif && entry.fault.problem == nullptr) {
    entry.isPassedOver = true;
    entry.notes.push_back({.problem = &contacts::kOtherKind});
    return;
  }
  if (record.isFragment) Reject(entry, {.problem = &contacts::kBadLine});
  for (std::size_t i = 1; i < fields.size(); ++i) {
    if (fields[i].isRequired && IsBlank(values[i].text))
      Reject(entry, {.problem = &contacts::kNoAddress});
  }
  if (IsBlank(name.text) && fields.size() > 1 && fields[1].isRequired) {
    name = values[1];
    if (entry.fault.problem == nullptr)
      entry.notes.push_back({.problem = &contacts::kNameFromAddress});
  }
  if (IsBlank(name.text)) Reject(entry, {.problem = &contacts::kNoName});
  for (const Value& each : record.Values()) {
    if (each.fault == &contacts::kUrlReference)
      entry.notes.push_back({&contacts::kUrlReference, each.column, each.name, 0});
  }
  if (further.column != 0) entry.notes.push_back(FindingOf(contacts::kSecondAddress, further));
  for (std::size_t i = 0; i < fields.size() && entry.fault.problem == nullptr; ++i) {
    StoreValue(entry, i);
  }
}

void EntryReader::StoreValue(Entry& entry, std::size_t field) {
  const EntryValue& value = values[field];
  const std::size_t width = mapping.Fields()[field].width;
  std::string& stored = entry.values[field];
  if (value.isBytes || options.storeAs == Encoding::kUtf8) {
    stored = value.text;
  } else if (!contacts::AppendWindows1252(stored, value.text)) {
    return Reject(entry, FindingOf(contacts::kNotStorable, value));
  }
  if (stored.size() <= width) return;
  if (!options.shorten || field != 0)
    return Reject(entry, FindingOf(contacts::kTooLong, value, width));
  const bool isUtf8 = options.storeAs == Encoding::kUtf8 && !value.isBytes;
  stored.resize(isUtf8 ? contacts::CutUtf8(stored, width).size() : width);
  entry.notes.push_back(FindingOf(contacts::kShortened, value, width));
}

}  // namespace entries
