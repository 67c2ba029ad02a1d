// Scripts by which a shell completes quillctl's commands and options. They are made from the
// command line's own description.

#ifndef QUILLKIT_EXAMPLES_COMPLETION_H_
#define QUILLKIT_EXAMPLES_COMPLETION_H_

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace quillctl {

// The shells that there is a script for.
std::vector<std::string> CompletionShells();

// The script for one of them. An option of the program that stands under several commands takes a
// value, and the same choices, under each.
std::string CompletionScript(const CLI::App& app, const std::string& shell);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_COMPLETION_H_
