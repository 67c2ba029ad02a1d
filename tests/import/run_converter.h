// The converters behind one call, for whoever has a model of what they must write.

#ifndef QUILLKIT_TESTS_IMPORT_RUN_CONVERTER_H_
#define QUILLKIT_TESTS_IMPORT_RUN_CONVERTER_H_

#include <cstdint>

#include "tests/import/conversion_model.h"

namespace quillkit {

enum class Converter { kDelimited, kDirectory, kMailServer };

inline constexpr Converter kConverters[] = {Converter::kDelimited, Converter::kDirectory,
                                            Converter::kMailServer};

// Runs the converter on two paths, without a window.
std::int32_t RunConverter(Converter converter, const char* source, const char* script,
                          const model::Request& request);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_IMPORT_RUN_CONVERTER_H_
