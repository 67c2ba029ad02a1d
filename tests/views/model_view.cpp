#include "tests/views/model_views.h"

namespace quillkit {
std::string Shown(const CEmailEntry* first, std::int32_t count) {
  std::string text = std::to_string(count) + "(";
  for (std::int32_t i = 0; i < count; ++i) {
    text += std::string(first[i].Name()) + "=" + first[i].Address() + ":" +
            std::to_string(first[i].flags) + " ";
  }
  return text + ")";
}

bool ModelView::IsGood(Status status) {
  return status == 0 || status == 4 || status == 21;
}

std::string ModelView::LetterText(char letter) {
  return {letter, '*'};
}

Status ModelView::LoadCensus() {
  if (census) return kNoError;
  const ModelBook::Census read = book->ReadCensus();
  if (read.status == 0 || read.status == 21) census = read.letters;
  return read.status;
}

char ModelView::FirstLetter() {
  LoadCensus();
  return census && !census->empty() ? census->front().letter : '\0';
}

char ModelView::NextLetter(char letter) {
  LoadCensus();
  if (!census || census->empty()) return '\0';
  for (std::size_t i = 0; i + 1 < census->size(); ++i) {
    if (census->at(i).letter == letter) return census->at(i + 1).letter;
  }
  return census->back().letter;
}

std::int32_t ModelView::LetterStart(char letter) {
  LoadCensus();
  std::int32_t sum = 0;
  for (const auto& each : census.value_or(std::vector<ModelBook::Letter>())) {
    if (each.letter == letter) return sum;
    sum += each.count;
  }
  return -1;
}

std::int32_t ModelView::LetterOfIndex(std::int32_t index, char* letter) {
  LoadCensus();
  std::int32_t sum = 0;
  for (const auto& each : census.value_or(std::vector<ModelBook::Letter>())) {
    if (sum + each.count >= index) {
      *letter = each.letter;
      return sum;
    }
    sum += each.count;
  }
  return -1;
}

int ModelView::RowOf(std::int32_t index, std::int32_t* before) const {
  *before = 0;
  for (std::size_t i = 0; i < census->size(); ++i) {
    if (*before + census->at(i).count > index) return static_cast<int>(i);
    *before += census->at(i).count;
  }
  return -1;
}

const CEmailEntry* ModelView::IfMatches(const CEmailEntry* entry, std::int32_t exact) const {
  return entry != nullptr && ModelMatches(*entry, sought, exact) ? entry : nullptr;
}

int ModelView::Locate(const Entries& page, std::string_view key, std::int32_t exact) {
  if (ModelMatches(page.front(), key, exact)) return 0;
  if (page.front().name.View() > key) return -1;
  if (ModelMatches(page.back(), key, exact)) return static_cast<int>(page.size()) - 1;
  if (page.back().name.View() < key) return -2;
  for (std::size_t i = 0; i < page.size(); ++i) {
    if (ModelMatches(page[i], key, exact)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace quillkit
