// What can be said of a record of a contact file, other than that it is imported as it stands.

#ifndef CONTACTS_PROBLEM_H_
#define CONTACTS_PROBLEM_H_

#include <string_view>

namespace contacts {

// A kind of rejection or note. Each kind is one object; compare addresses.
struct Problem {
  std::string_view code;    // for programs
  std::string_view reason;  // for people, a clause such as "the record has no address"
};

// Rejections: the record is not imported.
inline constexpr Problem kNoAddress{"no-address", "the row has no address"};
inline constexpr Problem kNoName{"no-name", "the row has no name"};
inline constexpr Problem kTooLong{"too-long", "the text is too long"};
inline constexpr Problem kNotDecodable{"not-decodable",
                                       "the text is not valid in the file's encoding"};
inline constexpr Problem kUnknownCharset{"unknown-charset", "the character set is not supported"};
inline constexpr Problem kNotStorable{"not-storable",
                                      "a character cannot be stored in the chosen encoding"};
inline constexpr Problem kNul{"nul", "the row contains a NUL character"};
inline constexpr Problem kOpenQuote{"open-quote", "a double quote is not closed"};
inline constexpr Problem kBadQuote{"bad-quote", "text follows a closing double quote"};
inline constexpr Problem kExtraColumn{"extra-column", "the row has more columns than headings"};
inline constexpr Problem kTooManyValues{"too-many-values", "the row has more than 1,000 values"};
inline constexpr Problem kRecordTooLong{"record-too-long", "the record is longer than 1 MiB"};
inline constexpr Problem kBadBase64{"bad-base64", "the base64 text is not valid"};
inline constexpr Problem kBadQuotedPrintable{"bad-quoted-printable",
                                             "the quoted-printable text is not valid"};
inline constexpr Problem kUrlReference{"url-reference",
                                       "the value is elsewhere; references are not followed"};
inline constexpr Problem kBadAddress{"bad-address", "the text is not one address"};
inline constexpr Problem kBadNumber{"bad-number", "a spreadsheet shortened the number"};
inline constexpr Problem kChangeRecord{"change-record", "change records are not imported"};
inline constexpr Problem kBadLine{"bad-line", "the text does not have the form of this format"};
inline constexpr Problem kTruncated{"truncated", "the record has no end"};

// Notes: the record is imported, with this remark, or is of a kind that is passed over.
inline constexpr Problem kSecondAddress{"second-address",
                                        "a further address of the row is not imported"};
inline constexpr Problem kNameFromAddress{"name-from-address",
                                          "the row has no name; its address is used"};
inline constexpr Problem kShortened{"shortened", "the text was shortened"};
inline constexpr Problem kOtherKind{"other-kind", "the entry has neither a name nor an address"};
inline constexpr Problem kRepeatedHeadings{"headings", "the row repeats the headings"};
inline constexpr Problem kGroup{"group", "groups and distribution lists are not imported"};

}  // namespace contacts

#endif  // CONTACTS_PROBLEM_H_
