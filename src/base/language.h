// Stops compilers in an older mode than C++20 with a single message, before they report every
// unknown construct in these headers. MSVC keeps __cplusplus at its oldest value.

#ifndef QUILLKIT_BASE_LANGUAGE_H_
#define QUILLKIT_BASE_LANGUAGE_H_

#if defined(_MSVC_LANG) ? _MSVC_LANG <= 201703L : __cplusplus <= 201703L
#error "Quillkit needs C++20: compile with -std=c++20, or with /std:c++20"
// Compilers other than MSVC continue after #error, but not after a missing header.
#include "Quillkit needs C++20"
#endif

#endif  // QUILLKIT_BASE_LANGUAGE_H_
