#include "contacts/headings.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "contacts/lower_case.h"

namespace contacts {
namespace {

struct Heading {
  std::string_view text;  // as Normalised() returns it
  Meaning meaning;
};

constexpr Meaning kWhole = {Part::kName};
constexpr Meaning kShown = {Part::kName, 2};
constexpr Meaning kWholeOrGiven = {Part::kName, 1, Part::kGivenName};
constexpr Meaning kWholeOrFamily = {Part::kName, 1, Part::kFamilyName};
constexpr Meaning kGiven = {Part::kGivenName};
constexpr Meaning kFamily = {Part::kFamilyName};
constexpr Meaning kMail = {Part::kEmail};
constexpr Meaning kWorkMail = {Part::kEmail, 1, {}, Place::kWork};
constexpr Meaning kHomeMail = {Part::kEmail, 1, {}, Place::kHome};
constexpr Meaning kFaxNumber = {Part::kFax};
constexpr Meaning kWorkFax = {Part::kFax, 1, {}, Place::kWork};
constexpr Meaning kHomeFax = {Part::kFax, 1, {}, Place::kHome};

constexpr Heading kHeadings[] = {
    // English, and the names of attributes
    {"name", kWholeOrFamily},
    {"fullname", kWhole},
    {"displayname", kShown},
    {"cn", kWhole},
    {"commonname", kWhole},
    {"contactname", kWhole},
    {"firstname", kGiven},
    {"givenname", kGiven},
    {"forename", kGiven},
    {"lastname", kFamily},
    {"familyname", kFamily},
    {"surname", kFamily},
    {"sn", kFamily},
    {"mail", kMail},
    {"email", kMail},
    {"emailaddress", kMail},
    {"emailvalue", kMail},
    {"mailaddress", kMail},
    {"primaryemail", kMail},
    {"secondaryemail", kMail},
    {"workemail", kWorkMail},
    {"emailwork", kWorkMail},
    {"businessemail", kWorkMail},
    {"homeemail", kHomeMail},
    {"emailhome", kHomeMail},
    {"personalemail", kHomeMail},
    {"fax", kFaxNumber},
    {"faxnumber", kFaxNumber},
    {"facsimiletelephonenumber", kFaxNumber},
    {"otherfax", kFaxNumber},
    {"businessfax", kWorkFax},
    {"workfax", kWorkFax},
    {"faxwork", kWorkFax},
    {"homefax", kHomeFax},
    {"faxhome", kHomeFax},
    // German
    {"anzeigename", kShown},
    {"vollständigername", kWhole},
    {"vorname", kGiven},
    {"nachname", kFamily},
    {"familienname", kFamily},
    {"emailadresse", kMail},
    {"mailadresse", kMail},
    {"primäreemailadresse", kMail},
    {"sekundäreemailadresse", kMail},
    {"emailgeschäftlich", kWorkMail},
    {"emailprivat", kHomeMail},
    {"faxnummer", kFaxNumber},
    {"telefax", kFaxNumber},
    {"faxgeschäftlich", kWorkFax},
    {"faxprivat", kHomeFax},
    // French
    {"nom", kWholeOrFamily},
    {"nomcomplet", kWhole},
    {"nomàafficher", kShown},
    {"nomaffiché", kShown},
    {"prénom", kGiven},
    {"prenom", kGiven},
    {"nomdefamille", kFamily},
    {"adresseemail", kMail},
    {"adressedemessagerie", kMail},
    {"adresseélectronique", kMail},
    {"courriel", kMail},
    {"adressecourriel", kMail},
    {"télécopie", kFaxNumber},
    {"télécopieur", kFaxNumber},
    {"numérodefax", kFaxNumber},
    {"numérodetélécopie", kFaxNumber},
    {"faxprofessionnel", kWorkFax},
    {"télécopiebureau", kWorkFax},
    {"faxpersonnel", kHomeFax},
    {"télécopiedomicile", kHomeFax},
    // Spanish
    {"nombre", kWholeOrGiven},
    {"nombrecompleto", kWhole},
    {"nombreparamostrar", kShown},
    {"nombredepila", kGiven},
    {"apellido", kFamily},
    {"apellidos", kFamily},
    {"correo", kMail},
    {"correoelectrónico", kMail},
    {"correoelectronico", kMail},
    {"direccióndecorreoelectrónico", kMail},
    {"direccióndecorreo", kMail},
    {"númerodefax", kFaxNumber},
    {"faxdeltrabajo", kWorkFax},
    {"faxparticular", kHomeFax},
    // Italian
    {"nome", kWholeOrGiven},
    {"nomecompleto", kWhole},
    {"nomevisualizzato", kShown},
    {"cognome", kFamily},
    {"indirizzoemail", kMail},
    {"indirizzodipostaelettronica", kMail},
    {"postaelettronica", kMail},
    {"indirizzodiposta", kMail},
    {"numerodifax", kFaxNumber},
    {"numerofax", kFaxNumber},
    {"faxufficio", kWorkFax},
    {"faxabitazione", kHomeFax},
    // Dutch
    {"naam", kWholeOrFamily},
    {"volledigenaam", kWhole},
    {"weergavenaam", kShown},
    {"voornaam", kGiven},
    {"achternaam", kFamily},
    {"familienaam", kFamily},
    {"emailadres", kMail},
    {"mailadres", kMail},
    {"werkemail", kWorkMail},
    {"faxwerk", kWorkFax},
    {"faxopwerk", kWorkFax},
    {"faxthuis", kHomeFax}};

constexpr Heading kAttributes[] = {{"cn", kWhole},
                                   {"commonname", kWhole},
                                   {"displayname", kShown},
                                   {"givenname", kGiven},
                                   {"gn", kGiven},
                                   {"sn", kFamily},
                                   {"surname", kFamily},
                                   {"mail", kMail},
                                   {"rfc822mailbox", kMail},
                                   {"email", kMail},
                                   {"mozillasecondemail", {Part::kEmail, 2}},
                                   {"facsimiletelephonenumber", kFaxNumber},
                                   {"fax", kFaxNumber},
                                   {"tel", kFaxNumber},
                                   {"description", {Part::kNote}},
                                   {"note", {Part::kNote}},
                                   {"fn", kWhole},
                                   {"n", {Part::kName, 3}}};

// Returns the letters of the text, in lower case.
std::string Normalised(std::string_view text) {
  std::string letters;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    // The capital letters of Latin-1 in UTF-8 are C3 80 to C3 9E.
    const bool isLatinCapital = letters.ends_with('\xC3') && byte >= 0x80 && byte <= 0x9E;
    const char lower = isLatinCapital ? static_cast<char>(byte + 0x20) : LowerCase(c);
    if (byte >= 0x80 || (lower >= 'a' && lower <= 'z')) letters += lower;
  }
  return letters;
}

template <std::size_t kSize>
std::optional<Meaning> Find(const Heading (&headings)[kSize], std::string_view text) {
  const auto* found = std::ranges::find(headings, text, &Heading::text);
  return found != std::end(headings) ? std::optional(found->meaning) : std::nullopt;
}

}  // namespace

std::optional<Meaning> MeaningOfHeading(std::string_view heading) {
  return Find(kHeadings, Normalised(heading));
}

std::optional<Meaning> MeaningOfAttribute(std::string_view name) {
  return Find(kAttributes, name);
}

}  // namespace contacts
