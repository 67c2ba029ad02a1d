// The encodings that carry any bytes through ASCII text.

#ifndef CONTACTS_TRANSFER_ENCODING_H_
#define CONTACTS_TRANSFER_ENCODING_H_

#include <string>
#include <string_view>

namespace contacts {

std::string EncodeBase64(std::string_view bytes);

// Append the decoded bytes. Return false if the text is not valid; some bytes may have been
// appended. Base64 may contain white space. Quoted-printable may end with a soft line break.
bool DecodeBase64(std::string& bytes, std::string_view text);
bool DecodeQuotedPrintable(std::string& bytes, std::string_view text);

// Appends the byte of two hexadecimal digits. Returns false if `digits` are not two digits.
bool AppendHexadecimal(std::string& bytes, std::string_view digits);

}  // namespace contacts

#endif  // CONTACTS_TRANSFER_ENCODING_H_
