// The file that keeps the books of an appliance between processes, and that processes share.
//
// The file is a text of simulator/state_text.h: a complete state, followed by changes. A change
// appends its resulting records, whatever the size of the state. A checkpoint replaces the file by
// the complete state. A second file, PATH.lock, serialises the calls of all processes. Its size is
// the number of checkpoints, by which a process notices that the file was replaced.

#ifndef QUILLKIT_SIMULATOR_STATE_FILE_H_
#define QUILLKIT_SIMULATOR_STATE_FILE_H_

#include <cstdint>
#include <string>

#include "simulator/store.h"
#include "simulator/system/file_lock.h"

namespace quillbox {

// Fills contents that are in the initial state from the file at `path`. Processes that use the file
// wait until it is read: on Windows, they could not replace it. Returns an empty text, or the
// description of an error; then discard the contents.
std::string ReadStateFile(const std::string& path, Contents& contents);

class StateFile {
 public:
  // Fills the contents from the file at `path`. If there is none, creates it from the contents,
  // readable only by its owner because it contains passwords. Returns an empty text, or why the
  // file cannot be used; then the contents stay unchanged and the file is never written. Called
  // once.
  std::string Open(const std::string& path, Contents& contents);

  bool IsOpen() const { return !keptPath.empty(); }

  // Waits until no other process uses the file, and makes the changes of other processes. Returns
  // an empty text, or the description of a failure; End then does nothing. While the file contains
  // a change that cannot be read, each Begin fails. Without a file, does nothing.
  std::string Begin(Contents& contents);

  // Writes what changed since Begin, and lets other processes use the file. A process that is
  // killed loses at most this change. The result is that of Begin; after a failure, the next Begin
  // replaces the contents by those of the file.
  std::string End(Contents& contents);

  // The same as Begin and End. Makes a checkpoint if the file is small or has grown much.
  std::string Close(Contents& contents);

 private:
  std::string Load(Contents& contents);
  std::string LoadChanges(Contents& contents);
  std::string Append(const std::string& change);
  std::string Checkpoint(Contents& contents);
  std::uintmax_t CountCheckpoints() const;

  std::string keptPath;
  FileLock lock;
  std::uintmax_t size = 0;         // of the file as this process knows it
  std::uintmax_t stateSize = 0;    // of the complete state at its beginning
  std::uintmax_t checkpoints = 0;  // the number that belongs to `size`
  bool endsInLine = true;          // whether the file ends with a line end
  bool mustLoad = false;           // whether the contents differ from what was read and written
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STATE_FILE_H_
