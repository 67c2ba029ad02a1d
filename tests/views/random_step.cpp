#include "tests/views/random_step.h"

#include "tests/support/email_entry.h"

namespace quillkit {
namespace {

std::string Text(std::int32_t number) {
  return std::to_string(number);
}
std::string Text(const CEmailEntry* entry) {
  return entry != nullptr ? Shown(entry, 1) : "null";
}

struct ViewOperation {
  std::size_t weight;  // how often it is drawn
  bool takesIndex;     // the number is an index or a size, and not a flag
  const char* name;
  std::string (*run)(CEntryView& view, const Step& step, std::string_view key, CEmailEntry* entry);
};

#define ROW(weight, takesIndex, call)                                            \
  {                                                                              \
    weight, takesIndex, #call,                                                   \
        []([[maybe_unused]] CEntryView& view, [[maybe_unused]] const Step& step, \
           [[maybe_unused]] std::string_view key,                                \
           [[maybe_unused]] CEmailEntry* entry) { return Text(call); }           \
  }

constexpr ViewOperation kOperations[] = {
    ROW(1, false, view.First()),
    ROW(1, false, view.Last()),
    ROW(7, false, view.Next()),
    ROW(6, false, view.Prev()),
    ROW(3, true, view.GetAt(step.number)),
    ROW(1, false, view.Add(entry, step.number)),
    ROW(1, false, view.Remove(entry, step.number)),
    ROW(1, true, view.RemoveAt(step.number)),
    ROW(2, false, view.Find(key, step.number)),
    ROW(2, false, view.FindLetter(step.letter)),
    ROW(1, false, view.FindNext(step.number)),
    ROW(1, false, view.FindPrev(step.number)),
    ROW(2, false, view.FindPrefix(key)),
    ROW(2, false, view.FindNextPrefix()),
    ROW(1, false, view.Modify(entry, step.number)),
    ROW(1, false, view.ModifyByKey(key, entry, step.number)),
    ROW(1, false, view.AddLocal(entry)),
    ROW(1, false, view.ModifyLocal(entry)),
    ROW(1, false, view.ModifyLocalByKey(key, entry)),
    ROW(1, false, view.RemoveLocal(entry)),
    ROW(1, false, (view.Reset(), 0)),
    ROW(1, true, view.SetPageSize(step.number)),
};

class Dice {
 public:
  explicit Dice(std::mt19937& generator) : random(generator) {}

  // From 0 to `sides` - 1. Not std::uniform_int_distribution, which differs between libraries.
  std::int32_t Roll(std::size_t sides) {
    return static_cast<std::int32_t>(random() % static_cast<std::mt19937::result_type>(sides));
  }

 private:
  std::mt19937& random;
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

std::size_t DrawOperation(Dice& dice) {
  std::size_t all = 0;
  for (const ViewOperation& each : kOperations) all += each.weight;
  auto left = static_cast<std::size_t>(dice.Roll(all));
  std::size_t operation = 0;
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
  step.entry = MakeEntry(DrawKey(dice, content).substr(0, 31), std::to_string(dice.Roll(1000)),
                         dice.Roll(2));
  return step;
}

std::string Text(const Step& step) {
  return std::string(kOperations[step.operation].name) + " key '" + step.key + "' number " +
         Text(step.number) + " letter " + Text(static_cast<unsigned char>(step.letter)) +
         " entry " + Text(&step.entry);
}

std::string RunStep(CEntryView& view, const Step& step, std::string_view key, CEmailEntry* entry) {
  return kOperations[step.operation].run(view, step, key, entry);
}

}  // namespace quillkit
