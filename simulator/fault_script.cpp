#include "simulator/fault_script.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

namespace quillkit {
namespace {

constexpr std::string_view kEntryPoints[] = {"IMSPInit",
                                             "IMSPTerminate",
                                             "IMSPLogin",
                                             "IMSPLogout",
                                             "IMSPWakeup",
                                             "IMSPAbort",
                                             "IMSPIOCtl",
                                             "IMSPCheckString",
                                             "IMSPBatchConfiguration",
                                             "IMSPChangeIdentity",
                                             "IMSPCreateAB",
                                             "IMSPDeleteAB",
                                             "IMSPClearAB",
                                             "IMSPSizeofAB",
                                             "IMSPReadAB",
                                             "IMSPListABEntries",
                                             "IMSPListAB",
                                             "IMSPReadPageBoundaries",
                                             "IMSPCreateEntry",
                                             "IMSPReadEntryProperties",
                                             "IMSPModifyEntry",
                                             "IMSPDeleteEntry",
                                             "IMSPExport",
                                             "IMSPGetExportFile",
                                             "IMSPImport",
                                             "IMSPImpExpState",
                                             "IMSPImpExpAbort",
                                             "*"};

std::optional<std::int32_t> NumberOf(std::string_view text) {
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

// Splits a text at the first `separator`; the second part is empty without one.
std::pair<std::string_view, std::string_view> Split(std::string_view text, char separator) {
  const std::size_t at = text.find(separator);
  return {text.substr(0, at), at == text.npos ? std::string_view() : text.substr(at + 1)};
}

std::string AddFault(std::string_view text, Faults& faults) {
  const auto [call, statusText] = Split(text, '=');
  const auto [entry, occurrenceText] = Split(call, ':');
  const auto status = NumberOf(statusText);
  const auto occurrence = NumberOf(occurrenceText);
  if (!status || !occurrence || *occurrence < 0) {
    return '"' + std::string(text) + "\" is not ENTRY:OCCURRENCE=STATUS";
  }
  if (std::ranges::find(kEntryPoints, entry) == std::end(kEntryPoints)) {
    return "there is no entry point \"" + std::string(entry) + '"';
  }
  faults.Add(entry == "*" ? std::string_view() : entry, *occurrence, *status);
  return {};
}

}  // namespace

std::string ScriptFaults(std::string_view text, Faults& faults) {
  Faults added = faults;
  while (!text.empty()) {
    const auto [first, rest] = Split(text, ',');
    std::string fault = AddFault(first, added);
    if (!fault.empty()) return fault;
    text = rest;
  }
  faults = std::move(added);
  return {};
}

}  // namespace quillkit
