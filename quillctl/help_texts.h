// What --help and --version show beside the commands and their options.

#ifndef QUILLKIT_EXAMPLES_HELP_TEXTS_H_
#define QUILLKIT_EXAMPLES_HELP_TEXTS_H_

#include <CLI/CLI.hpp>

namespace quillctl {

// For a program that has all its commands.
void AddHelpTexts(CLI::App& app);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_HELP_TEXTS_H_
