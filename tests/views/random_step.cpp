#include "tests/views/random_step.h"

#include <functional>

#include "tests/support/email_entry.h"

namespace quillkit {
namespace {

// How often an operation is drawn, whether its number is an index or a size and not a flag, its
// name, what it gives.
#define VIEW_OPERATIONS(X)                                                     \
  X(1, false, First, Text(view.First()))                                       \
  X(1, false, Last, Text(view.Last()))                                         \
  X(7, false, Next, Text(view.Next()))                                         \
  X(6, false, Prev, Text(view.Prev()))                                         \
  X(3, true, GetAt, Text(view.GetAt(step.number)))                             \
  X(1, false, Add, Text(view.Add(argument, step.number)))                      \
  X(1, false, Remove, Text(view.Remove(argument, step.number)))                \
  X(1, true, RemoveAt, Text(view.RemoveAt(step.number)))                       \
  X(2, false, Find, Text(view.Find(key, step.number)))                         \
  X(2, false, FindLetter, Text(view.FindLetter(step.letter)))                  \
  X(1, false, FindNext, Text(view.FindNext(step.number)))                      \
  X(1, false, FindPrev, Text(view.FindPrev(step.number)))                      \
  X(2, false, FindPrefix, Text(view.FindPrefix(key)))                          \
  X(2, false, FindNextPrefix, Text(view.FindNextPrefix()))                     \
  X(1, false, Modify, Text(view.Modify(argument, step.number)))                \
  X(1, false, ModifyByKey, Text(view.ModifyByKey(key, argument, step.number))) \
  X(1, false, AddLocal, Text(view.AddLocal(argument)))                         \
  X(1, false, ModifyLocal, Text(view.ModifyLocal(argument)))                   \
  X(1, false, ModifyLocalByKey, Text(view.ModifyLocalByKey(key, argument)))    \
  X(1, false, RemoveLocal, Text(view.RemoveLocal(argument)))                   \
  X(1, false, Reset, (view.Reset(), std::string()))                            \
  X(1, true, SetPageSize, Text(view.SetPageSize(step.number)))                 \
  X(1, false, FirstLetter, std::string(1, view.FirstLetter()))                 \
  X(1, false, NextLetter, std::string(1, view.NextLetter(step.letter)))        \
  X(1, false, LetterStart, Text(view.LetterStart(step.letter)))                \
  X(1, true, LetterOfIndex, Text(view.LetterOfIndex(step.number, &letter)) + letter)

struct ViewOperation {
  std::int32_t weight;
  bool takesIndex;
  const char* name;
};

#define ROW(weight, takesIndex, name, result) {weight, takesIndex, #name},
constexpr ViewOperation kOperations[] = {VIEW_OPERATIONS(ROW)};

std::string Text(std::int32_t number) {
  return std::to_string(number);
}
std::string Text(const CEmailEntry* entry) {
  return entry != nullptr ? Shown(entry, 1) : "null";
}

// The entry is `argument`, in the form in which this kind of view takes it.
template <class View, class Argument>
std::string Run(View& view, const Step& step, std::string_view key, Argument argument) {
  char letter = '?';
  int operation = 0;
#define RUN(weight, takesIndex, name, result) \
  if (step.operation == operation++) return result;
  VIEW_OPERATIONS(RUN)
  return {};
}

class Dice {
 public:
  explicit Dice(std::mt19937& random) : random_(random) {}

  // From 0 to `sides` - 1. Not std::uniform_int_distribution, which differs between libraries.
  std::int32_t Roll(std::size_t sides) {
    return static_cast<std::int32_t>(random_() % static_cast<std::mt19937::result_type>(sides));
  }

 private:
  std::mt19937& random_;
};

// A name of the book, one that begins such a name, or one that the book lacks.
std::string DrawKey(Dice& dice, const Entries& content) {
  const std::int32_t kind = dice.Roll(20);
  if (kind == 0) return {};
  if (kind == 1) return std::string(40, 'n');
  if (content.empty() || kind == 2) return "n" + std::to_string(dice.Roll(3000));
  const auto& entry = content[static_cast<std::size_t>(dice.Roll(content.size()))];
  std::string name(entry.name.View());
  if (kind < 7) name.resize(1 + static_cast<std::size_t>(dice.Roll(name.size())));
  if (kind == 7) name += "x";
  return name;
}

int DrawOperation(Dice& dice) {
  std::int32_t all = 0;
  for (const ViewOperation& each : kOperations) all += each.weight;
  std::int32_t left = dice.Roll(static_cast<std::size_t>(all));
  int operation = 0;
  while (left >= kOperations[operation].weight) left -= kOperations[operation++].weight;
  return operation;
}

}  // namespace

Step DrawStep(std::mt19937& random, const Entries& content) {
  Dice dice(random);
  Step step;
  step.operation = DrawOperation(dice);
  step.key = DrawKey(dice, content);
  step.number =
      kOperations[step.operation].takesIndex ? dice.Roll(content.size() + 2) - 1 : dice.Roll(2);
  step.letter = step.key.empty() ? static_cast<char>(dice.Roll(256)) : step.key.front();
  step.entry = MakeEntry(DrawKey(dice, content).substr(0, 31), std::to_string(dice.Roll(1000)));
  step.entry.flags = dice.Roll(2);
  return step;
}

std::string Text(const Step& step) {
  return std::string(kOperations[step.operation].name) + " key '" + step.key + "' number " +
         std::to_string(step.number) + " letter " +
         std::to_string(static_cast<unsigned char>(step.letter)) + " entry " + Text(&step.entry);
}

std::string RunStep(CEntryView& view, const Step& step, std::string_view key, CEmailEntry& entry) {
  return Run(view, step, key, &entry);
}

std::string RunStep(ModelView& view, const Step& step, std::string_view key, CEmailEntry& entry) {
  return Run(view, step, key, std::cref(entry));
}

}  // namespace quillkit
