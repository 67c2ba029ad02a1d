// Quillkit's version. It stands here alone: the build reads it out of this file. A header for the
// preprocessor of C and of C++.

#ifndef QUILLKIT_TOOLKIT_VERSION_H_
#define QUILLKIT_TOOLKIT_VERSION_H_

#define QUILLKIT_VERSION_MAJOR 0
#define QUILLKIT_VERSION_MINOR 1
#define QUILLKIT_VERSION_PATCH 0

// The same as a text, "0.1.0".
#define QUILLKIT_VERSION \
  QUILLKIT_VERSION_TEXT(QUILLKIT_VERSION_MAJOR.QUILLKIT_VERSION_MINOR.QUILLKIT_VERSION_PATCH)
#define QUILLKIT_VERSION_TEXT(version) QUILLKIT_VERSION_QUOTED(version)
#define QUILLKIT_VERSION_QUOTED(version) #version

#endif  // QUILLKIT_TOOLKIT_VERSION_H_
