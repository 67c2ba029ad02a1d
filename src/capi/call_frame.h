// The frame of every function: waits for its turn, checks and converts the arguments, does the work
// and converts exceptions to errors.
//
// An argument class stores an argument of the caller. Check() runs inside the turn and returns 0 or
// a QUILL_E_ value; Value() is valid if it returned 0. Arguments are checked in their order.

#ifndef QUILLKIT_CAPI_CALL_FRAME_H_
#define QUILLKIT_CAPI_CALL_FRAME_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <type_traits>

#include "base/secret.h"
#include "capi/call_turn.h"
#include "capi/handle_table.h"
#include "capi/recorded_status.h"
#include "platform/thread_timer.h"
#include "toolkit/quillkit.h"

namespace quillkit {
class CEmailAB;
}

namespace quillkit::capi {

struct OpenEntries;

template <class Object>
inline constexpr HandleKind kKindOf{};
template <>
inline constexpr HandleKind kKindOf<CScanner> = HandleKind::kScanner;
template <>
inline constexpr HandleKind kKindOf<CTopLevelAB> = HandleKind::kBook;
template <>
inline constexpr HandleKind kKindOf<CSoftKey> = HandleKind::kKey;
template <>
inline constexpr HandleKind kKindOf<CMenuItem> = HandleKind::kItem;
template <>
inline constexpr HandleKind kKindOf<CUserRecord> = HandleKind::kUser;
template <>
inline constexpr HandleKind kKindOf<OpenEntries> = HandleKind::kEntries;
template <>
inline constexpr HandleKind kKindOf<CEmailAB> = HandleKind::kView;

// What a function requires of an object.
enum class Need {
  kAlive,
  kAliveOrNone,  // the handle may be 0
  kParentAlive,  // belongs to no object, or to one that is alive
  kOwnership     // owned by the application
};

template <class Object, Need kNeed = Need::kAlive>
class ObjectArgument {
 public:
  explicit ObjectArgument(quill_handle newHandle) : handle(newHandle) {}

  std::int32_t Check() {
    if (kNeed == Need::kAliveOrNone && handle == 0) return 0;
    std::int32_t fault = 0;
    const HandleEntry* entry = Handles().Find(handle, kKindOf<Object>, &fault);
    if (entry == nullptr) return fault;
    object = static_cast<Object*>(entry->object);
    if (kNeed == Need::kOwnership && !entry->isAppOwned) return QUILL_E_OWNER;
    if (kNeed == Need::kParentAlive && entry->parent != 0 && !Handles().IsLive(entry->parent)) {
      return QUILL_E_STALE;
    }
    return 0;
  }
  Object* Value() const { return object; }

 private:
  quill_handle handle;
  Object* object = nullptr;
};

using ScannerArgument = ObjectArgument<CScanner>;
using BookArgument = ObjectArgument<CTopLevelAB>;
using KeyArgument = ObjectArgument<CSoftKey>;
using KeyOnServerArgument = ObjectArgument<CSoftKey, Need::kParentAlive>;
using ItemArgument = ObjectArgument<CMenuItem>;

// Passes a text to the work as a copy that is wiped afterwards: it may be a password.
class TextArgument {
 public:
  explicit TextArgument(const char* newText) : text(newText) {}

  std::int32_t Check() const { return text != nullptr ? 0 : QUILL_E_ARGUMENT; }
  SecretText Value() const { return SecretText(text); }

 private:
  const char* text;
};

// A pointer that must not be null.
template <class Object>
class Pointer {
 public:
  explicit Pointer(Object* newTarget) : target(newTarget) {}

  std::int32_t Check() const { return target != nullptr ? 0 : QUILL_E_ARGUMENT; }
  Object* Value() const { return target; }

 private:
  Object* target;
};

// A number from 0 to `newLast`.
class Choice {
 public:
  Choice(std::int32_t newNumber, std::int32_t newLast) : number(newNumber), last(newLast) {}

  std::int32_t Check() const { return number >= 0 && number <= last ? 0 : QUILL_E_ARGUMENT; }
  std::int32_t Value() const { return number; }

 private:
  std::int32_t number;
  std::int32_t last;
};

// An argument that receives a number.
class NumberResult {
 public:
  explicit NumberResult(std::uint32_t* newTarget) : target(newTarget) {}

  std::int32_t Check() const { return target != nullptr ? 0 : QUILL_E_ARGUMENT; }
  const NumberResult& Value() const { return *this; }

  std::uint32_t* Target() const { return target; }

  // Stores the number. Returns 1.
  std::int32_t Store(std::uint32_t number) const {
    *target = number;
    return 1;
  }

 private:
  std::uint32_t* target;
};

// An argument that receives a text.
class TextResult {
 public:
  TextResult(char* newBuffer, std::uint32_t* newSize) : buffer(newBuffer), size(newSize) {}

  std::int32_t Check() const {
    return size != nullptr && (buffer != nullptr || *size == 0) ? 0 : QUILL_E_ARGUMENT;
  }
  const TextResult& Value() const { return *this; }

  // Stores the size that the text needs, with its NUL, and the text. Returns 1; or QUILL_E_BUFFER,
  // without the text, if the buffer is too small.
  std::int32_t Store(const char* text) const {
    const std::size_t needed = std::strlen(text) + 1;
    const bool fits = needed <= *size;
    *size = static_cast<std::uint32_t>(needed);
    if (!fits) return QUILL_E_BUFFER;
    std::memcpy(buffer, text, needed);
    return 1;
  }

 private:
  char* buffer;
  std::uint32_t* size;
};

// An argument that receives a handle. It is 0 until one is stored. `newParent` is the handle of the
// object that the stored one belongs to, or 0.
class HandleResult {
 public:
  explicit HandleResult(quill_handle* newTarget, quill_handle newParent = 0)
      : target(newTarget), defaultParent(newParent) {
    if (target != nullptr) *target = 0;
  }

  std::int32_t Check() const { return target != nullptr ? 0 : QUILL_E_ARGUMENT; }
  const HandleResult& Value() const { return *this; }

  // Stores the handle of an object of the library. Returns 1, or 0 for null.
  template <class Object>
  std::int32_t Store(Object* object) const {
    return StoreUnder(defaultParent, object);
  }
  template <class Object>
  std::int32_t StoreUnder(quill_handle parent, Object* object) const {
    return StoreHandle(object, parent, false);
  }

  // The same, for an object that the application owns from now on. Destroys the object if memory
  // for the handle cannot be allocated.
  template <class Object, class Destroy>
  std::int32_t StoreForApplication(Object* object, Destroy destroy) const {
    std::unique_ptr<Object, Destroy> held(object, destroy);
    const std::int32_t stored = StoreHandle(object, defaultParent, true);
    (void)held.release();
    return stored;
  }

 private:
  template <class Object>
  std::int32_t StoreHandle(Object* object, quill_handle parent, bool isAppOwned) const {
    if (object == nullptr) return 0;
    *target = Handles().FindOrAdd(kKindOf<Object>, object, parent, isAppOwned);
    return 1;
  }

  quill_handle* target;
  quill_handle defaultParent;
};

template <class Argument>
std::int32_t Check(Argument& argument) {
  if constexpr (std::is_integral_v<Argument>) {
    return 0;
  } else {
    return argument.Check();
  }
}

template <class Argument>
decltype(auto) ValueOf(const Argument& argument) {
  if constexpr (std::is_integral_v<Argument>) {
    return argument;
  } else {
    return argument.Value();
  }
}

// Calls `work` with the values of the arguments and returns its result, or 1 if it has none. If the
// turn or an argument has an error, returns the first one and does nothing.
template <class Work, class... Arguments>
std::int32_t InTurn(Work work, Arguments... arguments) noexcept {
  try {
    const CallTurn turn;
    std::int32_t fault = turn.Fault();
    ((fault = fault != 0 ? fault : Check(arguments)), ...);
    if (fault != 0) return fault;
    EnterLibrary();
    if constexpr (std::is_void_v<decltype(work(ValueOf(arguments)...))>) {
      work(ValueOf(arguments)...);
      return 1;
    } else {
      return work(ValueOf(arguments)...);
    }
  } catch (const std::bad_alloc&) {
    return QUILL_E_MEMORY;
  } catch (...) {
    return QUILL_E_INTERNAL;
  }
}

// The same for a function whose result `failure` does not say what failed. Stores the error of the
// call in `*error` unless it is null.
template <class Work, class... Arguments>
std::int32_t InTurnReporting(std::int32_t* error, std::int32_t failure, Work work,
                             Arguments... arguments) noexcept {
  Status status = kNoError;
  const std::int32_t result = InTurn(
      [&](const auto&... values) {
        const RecordedStatus recorded;
        const std::int32_t returned = work(values...);
        status = recorded.Get();
        return returned;
      },
      arguments...);
  if (result <= QUILL_E_NULL) status = result;
  if (result == failure && status == kNoError) status = kRefused;
  if (error != nullptr) *error = status;
  return result;
}

// Work that stores its result, a text, a number or a handle, in its first argument.
template <auto kFunction>
inline constexpr auto kStoreResult = [](const auto& result, const auto&... arguments) {
  return result.Store(kFunction(arguments...));
};

// Work that destroys an object of the application and ends its handle.
template <auto kFunction>
inline constexpr auto kDestroy = [](auto* object) {
  Handles().End(object);
  kFunction(object);
};

// Runs an action at the end of a block, also after an exception, unless it is released.
template <class Action>
class ScopeExit {
 public:
  explicit ScopeExit(Action newAction) : action(newAction) {}
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;
  ~ScopeExit() {
    if (isArmed) action();
  }

  void Release() { isArmed = false; }

 private:
  Action action;
  bool isArmed = true;
};

// Work that ends the handles below its first argument, unless the function returns `kUnchanged`.
template <auto kFunction, std::int32_t kUnchanged>
inline constexpr auto kInvalidateOnChange = [](auto* changed, const auto&... arguments) {
  ScopeExit end([=] { Handles().EndBelow(changed); });
  const std::int32_t result = kFunction(changed, arguments...);
  if (result == kUnchanged) end.Release();
  return result;
};

// Work that ends the handles below `changed` if `reload` is set. Passes `reload` as the last
// argument of the function.
template <auto kFunction>
inline constexpr auto kInvalidateOnReload =
    [](std::int32_t reload, auto* changed, const auto&... arguments) {
      ScopeExit end([=] { Handles().EndBelow(changed); });
      if (reload == 0) end.Release();
      return kFunction(changed, arguments..., reload);
    };

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_CALL_FRAME_H_
