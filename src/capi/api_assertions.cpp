// Generated from src/toolkit/api.json by scripts/make_bindings. Do not edit.

#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "bridge/records.h"
#include "capi/handle_table.h"
#include "import/import_options.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

using capi::HandleKind;

template <class Number>
constexpr long long Value(Number number) {
  return static_cast<long long>(number);
}

static_assert(QUILL_CONTRACT == 1);
static_assert(HandleKind::kScanner == HandleKind{1});
static_assert(HandleKind::kBook == HandleKind{2});
static_assert(HandleKind::kKey == HandleKind{3});
static_assert(HandleKind::kItem == HandleKind{4});
static_assert(HandleKind::kUser == HandleKind{5});
static_assert(HandleKind::kEntries == HandleKind{6});
static_assert(HandleKind::kView == HandleKind{7});
static_assert(QUILL_E_NULL == -1001);
static_assert(QUILL_E_STALE == -1002);
static_assert(QUILL_E_FOREIGN == -1003);
static_assert(QUILL_E_OWNER == -1004);
static_assert(QUILL_E_ARGUMENT == -1005);
static_assert(QUILL_E_BUFFER == -1006);
static_assert(QUILL_E_MEMORY == -1007);
static_assert(QUILL_E_INTERNAL == -1008);
static_assert(QUILL_E_NESTED == -1009);
static_assert(QUILL_E_FORKED == -1010);
static_assert(QUILL_STATUS_NO_ERROR == 0);
static_assert(Value(kNoError) == QUILL_STATUS_NO_ERROR);
static_assert(QUILL_STATUS_DUPLICATE_LOGIN == 1);
static_assert(Value(kDuplicateLogin) == QUILL_STATUS_DUPLICATE_LOGIN);
static_assert(QUILL_STATUS_WRONG_USER == 2);
static_assert(Value(kWrongUser) == QUILL_STATUS_WRONG_USER);
static_assert(QUILL_STATUS_NO_SUCH_BOOK == 3);
static_assert(Value(kNoSuchBook) == QUILL_STATUS_NO_SUCH_BOOK);
static_assert(QUILL_STATUS_DATA_NOT_FOUND == 4);
static_assert(Value(kDataNotFound) == QUILL_STATUS_DATA_NOT_FOUND);
static_assert(QUILL_STATUS_NO_MORE_ADDRESSES == 5);
static_assert(Value(kNoMoreAddresses) == QUILL_STATUS_NO_MORE_ADDRESSES);
static_assert(QUILL_STATUS_GENERAL_FAILURE == 6);
static_assert(Value(kGeneralFailure) == QUILL_STATUS_GENERAL_FAILURE);
static_assert(QUILL_STATUS_INVALID_FIELD == 7);
static_assert(Value(kInvalidField) == QUILL_STATUS_INVALID_FIELD);
static_assert(QUILL_STATUS_BOOK_LOCKED == 8);
static_assert(Value(kBookLocked) == QUILL_STATUS_BOOK_LOCKED);
static_assert(QUILL_STATUS_DUPLICATE_BOOK == 9);
static_assert(Value(kDuplicateBook) == QUILL_STATUS_DUPLICATE_BOOK);
static_assert(QUILL_STATUS_NOT_LOGGED_IN == 10);
static_assert(Value(kNotLoggedIn) == QUILL_STATUS_NOT_LOGGED_IN);
static_assert(QUILL_STATUS_ACCESS_DENIED == 11);
static_assert(Value(kAccessDenied) == QUILL_STATUS_ACCESS_DENIED);
static_assert(QUILL_STATUS_STATIC_BOOK == 12);
static_assert(Value(kStaticBook) == QUILL_STATUS_STATIC_BOOK);
static_assert(QUILL_STATUS_NOT_IMPLEMENTED == 13);
static_assert(Value(kNotImplemented) == QUILL_STATUS_NOT_IMPLEMENTED);
static_assert(QUILL_STATUS_NAME_CONFLICT == 14);
static_assert(Value(kNameConflict) == QUILL_STATUS_NAME_CONFLICT);
static_assert(QUILL_STATUS_SERVER_IDLE == 15);
static_assert(Value(kServerIdle) == QUILL_STATUS_SERVER_IDLE);
static_assert(QUILL_STATUS_SERVER_BUSY == 16);
static_assert(Value(kServerBusy) == QUILL_STATUS_SERVER_BUSY);
static_assert(QUILL_STATUS_BAD_COMMAND == 17);
static_assert(Value(kBadCommand) == QUILL_STATUS_BAD_COMMAND);
static_assert(QUILL_STATUS_SERVER_FAILURE == 18);
static_assert(Value(kServerFailure) == QUILL_STATUS_SERVER_FAILURE);
static_assert(QUILL_STATUS_TIMEOUT_EXPIRED == 19);
static_assert(Value(kTimeoutExpired) == QUILL_STATUS_TIMEOUT_EXPIRED);
static_assert(QUILL_STATUS_NOT_INITIALISED == 20);
static_assert(Value(kNotInitialised) == QUILL_STATUS_NOT_INITIALISED);
static_assert(QUILL_STATUS_MORE_DATA == 21);
static_assert(Value(kMoreData) == QUILL_STATUS_MORE_DATA);
static_assert(QUILL_STATUS_BUSY == 22);
static_assert(Value(kBusy) == QUILL_STATUS_BUSY);
static_assert(QUILL_STATUS_BOOK_FULL == 24);
static_assert(Value(kBookFull) == QUILL_STATUS_BOOK_FULL);
static_assert(QUILL_STATUS_INVALID_HOST == 25);
static_assert(Value(kInvalidHost) == QUILL_STATUS_INVALID_HOST);
static_assert(QUILL_STATUS_REFUSED == -1);
static_assert(Value(kRefused) == QUILL_STATUS_REFUSED);
static_assert(QUILL_STATUS_UNUSABLE_INPUT == -2);
static_assert(Value(kUnusableInput) == QUILL_STATUS_UNUSABLE_INPUT);
static_assert(QUILL_STATUS_MISSING_ARGUMENT == -3);
static_assert(Value(kMissingArgument) == QUILL_STATUS_MISSING_ARGUMENT);
static_assert(QUILL_STATUS_UNKNOWN_FORMAT == -11);
static_assert(Value(kUnknownFormat) == QUILL_STATUS_UNKNOWN_FORMAT);
static_assert(QUILL_MAX_KEYS == 11);
static_assert(Value(MaxSoftKeys) == QUILL_MAX_KEYS);
static_assert(QUILL_MAX_ITEMS == 512);
static_assert(Value(MaxKeyItems) == QUILL_MAX_ITEMS);
static_assert(QUILL_MAX_NAME == 31);
static_assert(Value(decltype(CMenuItem::name)::kMaxLength) == QUILL_MAX_NAME);
static_assert(QUILL_MAX_IP_ADDRESS == 255);
static_assert(Value(decltype(CMenuItem::ipAddress)::kMaxLength) == QUILL_MAX_IP_ADDRESS);
static_assert(QUILL_MAX_PATH == 127);
static_assert(Value(decltype(CMenuItem::path)::kMaxLength) == QUILL_MAX_PATH);
static_assert(QUILL_MAX_APP_TAG == 127);
static_assert(Value(decltype(CMenuItem::appTag)::kMaxLength) == QUILL_MAX_APP_TAG);
static_assert(QUILL_MAX_PASSWORD == 15);
static_assert(Value(decltype(CUserEntry::password)::kMaxLength) == QUILL_MAX_PASSWORD);
static_assert(QUILL_MAX_THIRD == 255);
static_assert(Value(decltype(CUserEntry::third)::kMaxLength) == QUILL_MAX_THIRD);
static_assert(QUILL_MAX_EMAIL_ENTRIES == 200000);
static_assert(Value(MaxEmailEntries) == QUILL_MAX_EMAIL_ENTRIES);
static_assert(QUILL_MAX_FAX_ENTRIES == 2048);
static_assert(Value(MaxFaxEntries) == QUILL_MAX_FAX_ENTRIES);
static_assert(QUILL_MAX_LISTS == 512);
static_assert(Value(MaxPublicLists) == QUILL_MAX_LISTS);
static_assert(QUILL_MAX_MEMBERS == 512);
static_assert(Value(MaxListMembers) == QUILL_MAX_MEMBERS);
static_assert(QUILL_BOOK_EMAIL == 1);
static_assert(Value(BookKind::kEmail) == QUILL_BOOK_EMAIL);
static_assert(QUILL_BOOK_FAX == 2);
static_assert(Value(BookKind::kFax) == QUILL_BOOK_FAX);
static_assert(QUILL_BOOK_USERS == 4);
static_assert(Value(BookKind::kUsers) == QUILL_BOOK_USERS);
static_assert(QUILL_BOOK_PRINTERS == 8);
static_assert(Value(BookKind::kPrinters) == QUILL_BOOK_PRINTERS);
static_assert(QUILL_BOOK_PRIVATE_EMAIL == 16);
static_assert(Value(BookKind::kPrivateEmail) == QUILL_BOOK_PRIVATE_EMAIL);
static_assert(QUILL_LIST_EMAIL == 64);
static_assert(Value(BookKind::kPublicList) == QUILL_LIST_EMAIL);
static_assert(QUILL_LIST_PRIVATE_EMAIL == 128);
static_assert(Value(BookKind::kPrivateList) == QUILL_LIST_PRIVATE_EMAIL);
static_assert(QUILL_LIST_FAX == 768);
static_assert(Value(BookKind::kFaxList) == QUILL_LIST_FAX);
static_assert(QUILL_VIEW_SLIDING == 0);
static_assert(QUILL_VIEW_LETTER == 1);
static_assert(QUILL_VIEW_FULL == 2);
static_assert(QUILL_GO_FIRST == 0);
static_assert(QUILL_GO_LAST == 1);
static_assert(QUILL_GO_NEXT == 2);
static_assert(QUILL_GO_PREV == 3);
static_assert(QUILL_GO_AT == 4);
static_assert(QUILL_FIND_NAME == 0);
static_assert(QUILL_FIND_PREFIX == 1);
static_assert(QUILL_FIND_LETTER == 2);
static_assert(QUILL_FIND_NEXT == 3);
static_assert(QUILL_FORMAT_DELIMITED == 1);
static_assert(Value(ImportFormatDelimited) == QUILL_FORMAT_DELIMITED);
static_assert(QUILL_FORMAT_DIRECTORY == 16);
static_assert(Value(ImportFormatDirectory) == QUILL_FORMAT_DIRECTORY);
static_assert(QUILL_FORMAT_MAIL_SERVER == 256);
static_assert(Value(ImportFormatMailServer) == QUILL_FORMAT_MAIL_SERVER);
static_assert(QUILL_FORMAT_SCRIPT == 4096);
static_assert(Value(ImportFormatScript) == QUILL_FORMAT_SCRIPT);
static_assert(QUILL_TARGET_EMAIL == 1);
static_assert(Value(TargetEmail) == QUILL_TARGET_EMAIL);
static_assert(QUILL_TARGET_FAX == 2);
static_assert(Value(TargetFax) == QUILL_TARGET_FAX);
static_assert(QUILL_TARGET_PRINTERS == 3);
static_assert(Value(TargetPrinters) == QUILL_TARGET_PRINTERS);
static_assert(QUILL_TARGET_USERS == 4);
static_assert(Value(TargetUsers) == QUILL_TARGET_USERS);
static_assert(QUILL_ENTRY_TEXTS == 3);
static_assert(QUILL_ENTRY_NUMBERS == 3);
static_assert(QUILL_ENTRY_TEXT_SIZE == 256);
static_assert(QUILL_IMPORT_COLUMNS == 4);
static_assert(sizeof(quill_entry) == 812);
static_assert(offsetof(quill_entry, name) == 0);
static_assert(offsetof(quill_entry, texts) == 32);
static_assert(offsetof(quill_entry, numbers) == 800);
static_assert(sizeof(quill_import_options) == 36);
static_assert(offsetof(quill_import_options, skip_header) == 0);
static_assert(offsetof(quill_import_options, clear_first) == 4);
static_assert(offsetof(quill_import_options, format) == 8);
static_assert(offsetof(quill_import_options, target_book) == 12);
static_assert(offsetof(quill_import_options, column_count) == 16);
static_assert(offsetof(quill_import_options, column_map) == 20);
static_assert(sizeof(ImportOptions) == 28);
static_assert(offsetof(ImportOptions, skipHeader) == 0);
static_assert(offsetof(ImportOptions, clearFirst) == 4);
static_assert(offsetof(ImportOptions, format) == 8);
static_assert(offsetof(ImportOptions, importContext) == 12);
static_assert(offsetof(ImportOptions, targetBook) == 16);
static_assert(offsetof(ImportOptions, columnCount) == 20);
static_assert(offsetof(ImportOptions, columnMap) == 24);

}  // namespace
}  // namespace quillkit
