#include "simulator/fault_script.h"

#include <cstdint>
#include <utility>

#include "simulator/entry_points.h"
#include "simulator/escaped_text.h"
#include "simulator/whole_number.h"

namespace quillbox {
namespace {

// Splits a text at the first `separator`. Without one, the second part is empty.
std::pair<std::string_view, std::string_view> Split(std::string_view text, char separator) {
  const std::size_t at = text.find(separator);
  return {text.substr(0, at), at == text.npos ? std::string_view() : text.substr(at + 1)};
}

std::string AddFault(std::string_view text, Faults& faults) {
  const auto [call, statusText] = Split(text, '=');
  const auto [entry, occurrenceText] = Split(call, ':');
  const auto status = WholeNumber<std::int32_t>(statusText);
  const auto occurrence = WholeNumber<std::int32_t>(occurrenceText);
  if (!status || !occurrence || *occurrence < 0) {
    return '"' + Escaped(text) + "\" does not have the form ENTRY:OCCURRENCE=STATUS";
  }
  if (!IsEntryPoint(entry)) {
    return "unknown entry point \"" + Escaped(entry) + '"';
  }
  faults.Add(entry == "*" ? std::string_view() : entry, *occurrence, *status);
  return {};
}

}  // namespace

std::string ScriptFaults(std::string_view text, Faults& faults) {
  if (text.empty()) return {};
  Faults added = faults;
  for (std::size_t end = 0; end != text.npos;) {
    end = text.find(',');
    std::string fault = AddFault(text.substr(0, end), added);
    if (!fault.empty()) return fault;
    if (end != text.npos) text.remove_prefix(end + 1);
  }
  faults = std::move(added);
  return {};
}

}  // namespace quillbox
