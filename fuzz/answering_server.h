// A server library that gives the answers of a text, for the fuzz target "server". It implements
// all entry points of bridge/imsp_api.h.
//
// The text has a word for each call but IMSPWakeup, which always succeeds. Words are separated by
// spaces. A word is four characters, each of which chooses a value by a digit, and a text:
//
//   status   0 is success; the others are those of kStatuses
//   number   of the records that are written, as many as fit, or the size that is reported:
//            0 to 8, 9: 600, H: 5000, M: 2^32 - 1, once in a session
//   count    what is reported: 0 the number of records written, 1 as many as fit, 2 one more, 3
//            2^31 - 1, 4 2^32 - 1, 5 nothing, 6 one record too many, 7 no change of the variable.
//            A size: 0 the number, all others no change
//   form     of the records: 0 short texts, names that consist of the text and a letter; 1 the text
//            again and again, without a NUL; 2 zeroes; 3 bytes of 255; 4 the text, then zeroes.
//            5 to 9: the same, and the arguments of the call are overwritten
//   text     all other characters of the word
//
// A missing word is "0200", and a missing character is that of this word: two records.
//
// Each call checks what the library promises to a server: the texts of its arguments end inside
// their fields, buffers have the size that is reported, and no call is made outside of IMSPInit and
// IMSPTerminate. Otherwise it aborts the process.

#ifndef QUILLKIT_FUZZ_ANSWERING_SERVER_H_
#define QUILLKIT_FUZZ_ANSWERING_SERVER_H_

#include <cstddef>

// Sets the answers of the next calls.
extern "C" void AnsweringServerTake(const char* text, std::size_t size);

#endif  // QUILLKIT_FUZZ_ANSWERING_SERVER_H_
