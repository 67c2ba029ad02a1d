// The entry points for books as a whole.

#include <string_view>

#include "bridge/imsp_api.h"
#include "simulator/call.h"
#include "simulator/reading.h"
#include "simulator/rights.h"
#include "simulator/selection.h"

namespace quillbox {
namespace {

// Serves a call that changes a book. `work` receives the store and the path of the book.
template <class Work>
Status ChangeBook(Appliance& appliance, const ABIdent* book, Work work) {
  if (book == nullptr) return kInvalidField;
  const Status status = Permit(appliance.session.User(), *book, Action::kChange);
  return status == kNoError ? work(appliance.contents.store, appliance.PathOf(*book)) : status;
}

Status Measure(Appliance& appliance, const ABIdent& book, std::string_view filter,
               std::uint32_t* count) {
  const Status status = Permit(appliance.session.User(), book, Action::kRead);
  if (status != kNoError) return status;
  if (book.kind == BookKind::kLog) {
    *count = appliance.defects.Size(appliance.log.Size(filter));
    return kNoError;
  }
  const Book* const found = appliance.contents.store.Find(appliance.PathOf(book));
  if (found == nullptr) return kNoSuchBook;
  *count = appliance.defects.Size(NameFilter(filter).Matches(*found).Size());
  return kNoError;
}

Status Enumerate(Appliance& appliance, const ABIdent& selector, const ReadRequest& request,
                 ABIdent* rows) {
  const std::string& user = appliance.session.User();
  const Status status = Permit(user, selector, Action::kRead);
  if (status != kNoError) return status;
  if (!selector.name.IsEmpty()) return kInvalidField;
  const BookSet* const books = appliance.contents.store.BooksOf(selector.kind, user);
  if (books == nullptr) return kNoSuchBook;
  if (rows != nullptr) return ReadBooks(*books, selector.kind, appliance.defects, request, rows);
  *request.count = appliance.defects.Size(MatchesOf(*books, request.range, 1).Size());
  return kNoError;
}

}  // namespace
}  // namespace quillbox

namespace quillkit {

using namespace quillbox;

extern "C" {

Status IMSPCreateAB(ABIdent* book) {
  return Serve(
      {"IMSPCreateAB"},
      [book](Appliance& appliance) {
        return ChangeBook(appliance, book, [&](Store& store, const BookPath& path) {
          return store.CreateBook(path, appliance.settings.limits);
        });
      },
      book);
}

Status IMSPDeleteAB(ABIdent* book) {
  return Serve(
      {"IMSPDeleteAB"},
      [book](Appliance& appliance) {
        return ChangeBook(appliance, book, [](Store& store, const BookPath& path) {
          return store.DeleteBook(path);
        });
      },
      book);
}

Status IMSPClearAB(ABIdent* book, const char* filter) {
  return Serve(
      {"IMSPClearAB"},
      [=](Appliance& appliance) {
        return ChangeBook(appliance, book, [&](Store& store, const BookPath& path) {
          if (path.kind != BookKind::kLog) return store.ClearBook(path, TextOf(filter));
          appliance.log.Clear(TextOf(filter));
          return kNoError;
        });
      },
      book, filter);
}

Status IMSPSizeofAB(ABIdent* book, const char* filter, std::uint32_t* count) {
  return Serve(
      {"IMSPSizeofAB", Precondition::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || count == nullptr) return kInvalidField;
        return Measure(appliance, *book, TextOf(filter), count);
      },
      book, filter);
}

Status IMSPListAB(ABIdent* selector, KeyRange* range, ABIdent* books, std::uint32_t* count,
                  std::int32_t direction) {
  return Serve(
      {"IMSPListAB", Precondition::kSession, count},
      [=](Appliance& appliance) {
        if (selector == nullptr || count == nullptr) return kInvalidField;
        return Enumerate(appliance, *selector, {range, count, direction}, books);
      },
      selector, range, CountArgument{books != nullptr ? count : nullptr}, direction);
}

}  // extern "C"

}  // namespace quillkit
