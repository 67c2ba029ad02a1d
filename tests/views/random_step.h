// One operation on a view, drawn at random, and how to run it on a view or on a model of one.

#ifndef QUILLKIT_TESTS_VIEWS_RANDOM_STEP_H_
#define QUILLKIT_TESTS_VIEWS_RANDOM_STEP_H_

#include <cstdint>
#include <random>
#include <string>

#include "tests/views/model_views.h"
#include "views/entry_view.h"

namespace quillkit {

enum class ViewOperation {
  kFirst,
  kLast,
  kNext,
  kPrev,
  kGetAt,
  kAdd,
  kRemove,
  kRemoveAt,
  kFind,
  kFindLetter,
  kFindNext,
  kFindPrev,
  kFindPrefix,
  kFindNextPrefix,
  kModify,
  kModifyByKey,
  kAddLocal,
  kModifyLocal,
  kModifyLocalByKey,
  kRemoveLocal,
  kReset,
  kSetPageSize,
  kFirstLetter,
  kNextLetter,
  kLetterStart,
  kLetterOfIndex,
};

struct Step {
  ViewOperation operation = ViewOperation::kFirst;
  std::string key;
  std::int32_t number = 0;  // an index, a size or a flag
  char letter = '\0';
  CEmailEntry entry;
};

// What a failure message tells of a step.
std::string Text(const Step& step);

// Draws a step for a book that holds these entries. Walks are mostly made of Next and Prev.
Step DrawStep(std::mt19937& random, const Entries& content);

inline std::string Text(const CEmailEntry* entry) {
  return entry != nullptr ? Shown(entry, 1) : "null";
}

inline CEmailEntry* Argument(CEntryView&, CEmailEntry& entry) {
  return &entry;
}
inline const CEmailEntry& Argument(ModelView&, CEmailEntry& entry) {
  return entry;
}

// Runs the step and tells what it gave. `key` and `entry` stand for those of the step.
template <class View>
std::string RunStep(View& view, const Step& step, std::string_view key, CEmailEntry& entry) {
  const auto text = [](auto number) { return std::to_string(number); };
  char letter = '?';
  switch (step.operation) {
    case ViewOperation::kFirst:
      return Text(view.First());
    case ViewOperation::kLast:
      return Text(view.Last());
    case ViewOperation::kNext:
      return Text(view.Next());
    case ViewOperation::kPrev:
      return Text(view.Prev());
    case ViewOperation::kGetAt:
      return Text(view.GetAt(step.number));
    case ViewOperation::kAdd:
      return text(view.Add(Argument(view, entry), step.number));
    case ViewOperation::kRemove:
      return text(view.Remove(Argument(view, entry), step.number));
    case ViewOperation::kRemoveAt:
      return text(view.RemoveAt(step.number));
    case ViewOperation::kFind:
      return Text(view.Find(key, step.number));
    case ViewOperation::kFindLetter:
      return Text(view.FindLetter(step.letter));
    case ViewOperation::kFindNext:
      return Text(view.FindNext(step.number));
    case ViewOperation::kFindPrev:
      return Text(view.FindPrev(step.number));
    case ViewOperation::kFindPrefix:
      return Text(view.FindPrefix(key));
    case ViewOperation::kFindNextPrefix:
      return Text(view.FindNextPrefix());
    case ViewOperation::kModify:
      return text(view.Modify(Argument(view, entry), step.number));
    case ViewOperation::kModifyByKey:
      return text(view.ModifyByKey(key, Argument(view, entry), step.number));
    case ViewOperation::kAddLocal:
      return text(view.AddLocal(Argument(view, entry)));
    case ViewOperation::kModifyLocal:
      return text(view.ModifyLocal(Argument(view, entry)));
    case ViewOperation::kModifyLocalByKey:
      return text(view.ModifyLocalByKey(key, Argument(view, entry)));
    case ViewOperation::kRemoveLocal:
      return text(view.RemoveLocal(Argument(view, entry)));
    case ViewOperation::kReset:
      view.Reset();
      return "reset";
    case ViewOperation::kSetPageSize:
      return text(view.SetPageSize(step.number));
    case ViewOperation::kFirstLetter:
      return {view.FirstLetter()};
    case ViewOperation::kNextLetter:
      return {view.NextLetter(step.letter)};
    case ViewOperation::kLetterStart:
      return text(view.LetterStart(step.letter));
    case ViewOperation::kLetterOfIndex:
      return text(view.LetterOfIndex(step.number, &letter)) + letter;
  }
  return {};
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_RANDOM_STEP_H_
