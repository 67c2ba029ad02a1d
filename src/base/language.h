// Stops a compiler that reads an earlier language than C++20 with one message, before it reports
// everything in these headers that it does not know. MSVC leaves __cplusplus at its oldest value.

#ifndef QUILLKIT_BASE_LANGUAGE_H_
#define QUILLKIT_BASE_LANGUAGE_H_

#if defined(_MSVC_LANG) ? _MSVC_LANG <= 201703L : __cplusplus <= 201703L
#error "Quillkit needs C++20: compile with -std=c++20, or with /std:c++20"
// Others than MSVC go on after #error; none does after a header that does not exist.
#include "Quillkit needs C++20"
#endif

#endif  // QUILLKIT_BASE_LANGUAGE_H_
