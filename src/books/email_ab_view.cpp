// What the public e-mail book passes on to its view.

#include "books/email_ab.h"
#include "views/entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kEditableMode = 2;

}  // namespace

CEmailEntry* CEmailAB::First() {
  return view != nullptr ? view->First() : nullptr;
}

CEmailEntry* CEmailAB::Last() {
  return view != nullptr ? view->Last() : nullptr;
}

CEmailEntry* CEmailAB::Next() {
  return view != nullptr ? view->Next() : nullptr;
}

CEmailEntry* CEmailAB::Prev() {
  return view != nullptr ? view->Prev() : nullptr;
}

CEmailEntry* CEmailAB::GetAt(std::int32_t index) {
  return view != nullptr ? view->GetAt(index) : nullptr;
}

CEmailEntry* CEmailAB::Find(std::string_view key, std::int32_t flag) {
  return view != nullptr ? view->Find(key, flag) : nullptr;
}

CEmailEntry* CEmailAB::FindLetter(char letter) {
  return view != nullptr ? view->FindLetter(letter) : nullptr;
}

CEmailEntry* CEmailAB::FindNext(std::int32_t exact) {
  return view != nullptr ? view->FindNext(exact) : nullptr;
}

CEmailEntry* CEmailAB::FindPrev(std::int32_t exact) {
  return view != nullptr ? view->FindPrev(exact) : nullptr;
}

CEmailEntry* CEmailAB::FindPrefix(std::string_view key) {
  return view != nullptr ? view->FindPrefix(key) : nullptr;
}

CEmailEntry* CEmailAB::FindNextPrefix() {
  return view != nullptr ? view->FindNextPrefix() : nullptr;
}

Status CEmailAB::Remove(CEmailEntry* entry, std::int32_t flag) {
  return view != nullptr ? view->Remove(entry, flag) : kRefused;
}

Status CEmailAB::Modify(CEmailEntry* entry, std::int32_t flag) {
  return view != nullptr ? view->Modify(entry, flag) : kRefused;
}

Status CEmailAB::ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) {
  return view != nullptr ? view->ModifyByKey(key, entry, flag) : kRefused;
}

char CEmailAB::FirstLetter() {
  return view != nullptr ? view->FirstLetter() : '\0';
}

char CEmailAB::NextLetter(char letter) {
  return view != nullptr ? view->NextLetter(letter) : '\0';
}

std::int32_t CEmailAB::LetterStart(char letter) {
  return view != nullptr ? view->LetterStart(letter) : -1;
}

std::int32_t CEmailAB::LetterOfIndex(std::int32_t index, char* letter) {
  return view != nullptr ? view->LetterOfIndex(index, letter) : -1;
}

// The view that changes its entries in place, or null.
CEntryView* CEmailAB::EditableView() const {
  return viewMode == kEditableMode ? view.get() : nullptr;
}

std::int32_t CEmailAB::AddLocal(CEmailEntry* entry) {
  CEntryView* editable = EditableView();
  return editable != nullptr ? editable->AddLocal(entry) : -1;
}

std::int32_t CEmailAB::RemoveLocal(CEmailEntry* entry) {
  CEntryView* editable = EditableView();
  return editable != nullptr ? editable->RemoveLocal(entry) : -1;
}

std::int32_t CEmailAB::ModifyLocal(CEmailEntry* entry) {
  CEntryView* editable = EditableView();
  return editable != nullptr ? editable->ModifyLocal(entry) : 0;
}

std::int32_t CEmailAB::ModifyLocalByKey(std::string_view key, CEmailEntry* entry) {
  CEntryView* editable = EditableView();
  return editable != nullptr ? editable->ModifyLocalByKey(key, entry) : 0;
}

}  // namespace quillkit
