#include "tests/views/random_step.h"

#include "tests/support/email_entry.h"

namespace quillkit {
namespace {

using Operation = ViewOperation;

// As often as the operation stands here.
constexpr Operation kDrawn[] = {
    Operation::kFirst,
    Operation::kLast,
    Operation::kNext,
    Operation::kNext,
    Operation::kNext,
    Operation::kNext,
    Operation::kNext,
    Operation::kNext,
    Operation::kNext,
    Operation::kPrev,
    Operation::kPrev,
    Operation::kPrev,
    Operation::kPrev,
    Operation::kPrev,
    Operation::kPrev,
    Operation::kGetAt,
    Operation::kGetAt,
    Operation::kGetAt,
    Operation::kAdd,
    Operation::kRemove,
    Operation::kRemoveAt,
    Operation::kFind,
    Operation::kFind,
    Operation::kFindLetter,
    Operation::kFindLetter,
    Operation::kFindNext,
    Operation::kFindPrev,
    Operation::kFindPrefix,
    Operation::kFindPrefix,
    Operation::kFindNextPrefix,
    Operation::kFindNextPrefix,
    Operation::kModify,
    Operation::kModifyByKey,
    Operation::kAddLocal,
    Operation::kModifyLocal,
    Operation::kModifyLocalByKey,
    Operation::kRemoveLocal,
    Operation::kReset,
    Operation::kSetPageSize,
    Operation::kFirstLetter,
    Operation::kNextLetter,
    Operation::kLetterStart,
    Operation::kLetterOfIndex,
};

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

}  // namespace

Step DrawStep(std::mt19937& random, const Entries& content) {
  Dice dice(random);
  Step step;
  step.operation = kDrawn[dice.Roll(std::size(kDrawn))];
  step.key = DrawKey(dice, content);
  const bool isFlag =
      step.operation != Operation::kGetAt && step.operation != Operation::kRemoveAt &&
      step.operation != Operation::kSetPageSize && step.operation != Operation::kLetterOfIndex;
  step.number = isFlag ? dice.Roll(2) : dice.Roll(content.size() + 2) - 1;
  step.letter = step.key.empty() ? static_cast<char>(dice.Roll(256)) : step.key.front();
  step.entry = MakeEntry(DrawKey(dice, content).substr(0, 31), std::to_string(dice.Roll(1000)));
  step.entry.flags = dice.Roll(2);
  return step;
}

std::string Text(const Step& step) {
  return "operation " + std::to_string(static_cast<int>(step.operation)) + " key '" + step.key +
         "' number " + std::to_string(step.number) + " letter " +
         std::to_string(static_cast<unsigned char>(step.letter)) + " entry " + Text(&step.entry);
}

}  // namespace quillkit
