// The JSON output of the commands.

#ifndef CONSOLE_JSON_OUTPUT_H_
#define CONSOLE_JSON_OUTPUT_H_

#include <nlohmann/json.hpp>

#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/displayed_text.h"
#include "console/text_table.h"

namespace console {

using Json = nlohmann::ordered_json;

// Sets the member to the text as UTF-8. If that differs from the bytes of the text, also sets the
// member `name`-bytes to them in hexadecimal digits, so that the text can be restored exactly.
inline void SetText(Json& json, const std::string& name, const std::string& text) {
  std::string utf8 = Utf8Text(text);
  const bool isExact = utf8 == text;
  json[name] = std::move(utf8);
  if (!isExact) json[name + "-bytes"] = HexadecimalBytes(text);
}

// Returns a row of a table as an object. Its members are the headings in lower case.
inline Json ShownRow(const Row& headings, const Row& row) {
  Json json;
  for (std::size_t i = 0; i < row.size(); ++i) SetText(json, LowerCase(headings[i]), row[i]);
  return json;
}

// Prints a value and a newline.
inline void PrintJson(const Json& json) {
  std::cout << json.dump(2) << '\n';
}

// Prints a list in one of its two forms.
inline void PrintList(const TextTable& table, const Json& list, bool json) {
  if (json) {
    PrintJson(list);
  } else {
    table.Print();
  }
}

// Prints rows in one of the two forms. In JSON, the values of `flag`, "yes" or "no", are Booleans,
// and with `isObject` the only row is an object, not an array.
inline void PrintRows(const Row& headings, const std::vector<Row>& rows, bool json,
                      const char* flag = nullptr, bool isObject = false) {
  TextTable table(headings);
  Json list = Json::array();
  for (const Row& row : rows) {
    table.AddRow(row);
    list.push_back(ShownRow(headings, row));
    if (flag != nullptr) list.back()[flag] = list.back()[flag] == "yes";
  }
  PrintList(table, isObject ? list.front() : list, json);
}

}  // namespace console

#endif  // CONSOLE_JSON_OUTPUT_H_
