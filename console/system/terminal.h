// The terminal of the standard streams.

#ifndef CONSOLE_SYSTEM_TERMINAL_H_
#define CONSOLE_SYSTEM_TERMINAL_H_

#include <cstddef>
#include <string>

namespace console {

// Returns whether standard input is a terminal.
bool StdinIsTerminal();

// Reads a line that the user types, and returns it without its end; empty at the end of the input.
// Keeps the session alive meanwhile. REQUIRES: standard input is a terminal.
std::string ReadLineFromTerminal();

// From now on, standard input is read without conversion of line ends.
void ReadStdinAsBinary();

// Runs the keep-alive of the session if it is due. Call it between the parts of long work.
void KeepSessionAlive();

// Waits until a line can be written to standard output, and keeps the session alive meanwhile: what
// reads a pipe may pause. On Windows, only runs the keep-alive if it is due.
void WaitForStdout();

// Return the width of the terminal in columns; 0 if the stream is not a terminal.
std::size_t StdoutColumns();
std::size_t StderrColumns();

// Returns whether standard output is a terminal that shows colours.
bool StdoutHasColours();

// While this object exists, the terminal does not echo what is typed. The destructor restores the
// echo, and so does Ctrl-C. The user cannot suspend the program during this time. If the program is
// in the background, the constructor waits until it is in the foreground. No effect if standard
// input is not a terminal. Only one object may exist at a time.
class EchoOff {
 public:
  EchoOff();
  EchoOff(const EchoOff&) = delete;
  EchoOff& operator=(const EchoOff&) = delete;
  ~EchoOff();
};

}  // namespace console

#endif  // CONSOLE_SYSTEM_TERMINAL_H_
