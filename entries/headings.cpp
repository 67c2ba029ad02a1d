#include "entries/headings.h"

#include <cstddef>
#include <span>
#include <string>

#include "contacts/ascii.h"

namespace entries {

using contacts::LowerCase;
using contacts::Place;

namespace {

// Headings with one meaning, each between spaces, as Normalised() returns them.
struct Headings {
  Meaning meaning;
  std::string_view words;
};

constexpr Meaning kWork(Part part) {
  return {part, 1, {}, Place::kWork};
}
constexpr Meaning kHome(Part part) {
  return {part, 1, {}, Place::kHome};
}

// In English, German, French, Spanish, Italian and Dutch. Some exports have names of attributes.
constexpr Headings kHeadings[] = {
    {{Part::kName},
     " fullname cn commonname contactname vollständigername nomcomplet nombrecompleto nomecompleto"
     " volledigenaam "},
    {{Part::kName, 2},
     " displayname anzeigename nomàafficher nomaffiché nombreparamostrar nomevisualizzato"
     " weergavenaam "},
    {{Part::kName, 1, Part::kFamilyName}, " name nom naam "},
    {{Part::kName, 1, Part::kGivenName}, " nombre nome "},
    {{Part::kGivenName},
     " firstname givenname forename vorname prénom prenom nombredepila voornaam "},
    {{Part::kFamilyName},
     " lastname familyname surname sn nachname familienname nomdefamille apellido apellidos"
     " cognome achternaam familienaam "},
    {{Part::kEmail},
     " mail email emailaddress emailvalue mailaddress primaryemail secondaryemail emailadresse"
     " mailadresse primäreemailadresse sekundäreemailadresse adresseemail adressedemessagerie"
     " adresseélectronique courriel adressecourriel correo correoelectrónico correoelectronico"
     " direccióndecorreo direccióndecorreoelectrónico indirizzoemail indirizzodiposta"
     " indirizzodipostaelettronica postaelettronica emailadres mailadres "},
    {kWork(Part::kEmail), " workemail emailwork businessemail emailgeschäftlich werkemail "},
    {kHome(Part::kEmail), " homeemail emailhome personalemail emailprivat "},
    {{Part::kPlace}, " emailtype emaillabel "},
    {{Part::kFax},
     " fax faxnumber facsimiletelephonenumber otherfax faxnummer telefax télécopie télécopieur"
     " numérodefax numérodetélécopie númerodefax numerodifax numerofax "},
    {kWork(Part::kFax),
     " businessfax workfax faxwork faxgeschäftlich faxprofessionnel télécopiebureau"
     " faxdeltrabajo faxufficio faxwerk faxopwerk "},
    {kHome(Part::kFax),
     " homefax faxhome faxprivat faxpersonnel télécopiedomicile faxparticular faxabitazione"
     " faxthuis "}};

constexpr Headings kAttributes[] = {{{Part::kName}, " cn commonname fn "},
                                    {{Part::kName, 2}, " displayname "},
                                    {{Part::kName, 3}, " n "},
                                    {{Part::kGivenName}, " givenname gn "},
                                    {{Part::kFamilyName}, " sn surname "},
                                    {{Part::kEmail}, " mail email rfc822mailbox "},
                                    {{Part::kEmail, 2}, " mozillasecondemail "},
                                    {{Part::kFax}, " facsimiletelephonenumber fax tel "},
                                    {{Part::kNote}, " description note "}};

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

std::optional<Meaning> Find(std::span<const Headings> headings, std::string_view word) {
  const std::string bounded = ' ' + std::string(word) + ' ';
  for (const Headings& each : headings) {
    if (each.words.find(bounded) != each.words.npos) return each.meaning;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Meaning> MeaningOfHeading(std::string_view heading) {
  return Find(kHeadings, Normalised(heading));
}

std::optional<Meaning> MeaningOfAttribute(std::string_view name) {
  return Find(kAttributes, name);
}

}  // namespace entries
