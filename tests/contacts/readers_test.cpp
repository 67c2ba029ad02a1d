// What small files cannot show: rows of any size, and what the readers promise about their bytes.

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "contacts/lines.h"
#include "contacts/writers.h"
#include "entries/entries.h"

namespace contacts {
namespace {

using entries::Entry;
using entries::EntryOptions;
using entries::EntryReader;
using entries::Mapping;
using entries::Part;
using namespace std::string_literals;

using List = std::vector<std::string>;

Mapping EmailMapping() {
  return Mapping({{"name", Part::kName, 31, true}, {"address", Part::kEmail, 255, true}}, {},
                 Place::kNone);
}

// Returns what becomes of each record: "LINE name <address>" or "LINE code".
std::vector<std::string> Outcomes(const std::string& file, EntryOptions options = {},
                                  const KnownForm& known = {},
                                  const Mapping& mapping = EmailMapping()) {
  std::istringstream source(file);
  const Form form = Recognise(std::string_view(file).substr(0, kSampleSize), known,
                              std::bind_front(&Mapping::KnownHeadings, &mapping));
  EntryReader reader(source, form, mapping, options);
  std::vector<std::string> outcomes;
  std::uint64_t position = 0;
  for (Entry entry; reader.Next(entry);) {
    EXPECT_LE(position, entry.begin);  // the records do not overlap, and are within the file
    EXPECT_LT(entry.begin, entry.end);
    EXPECT_LE(entry.end, file.size());
    position = entry.end;
    const std::string line = std::to_string(entry.line) + ' ';
    outcomes.push_back(line + (entry.fault.problem != nullptr
                                   ? std::string(entry.fault.problem->code)
                                   : entry.values[0] + " <" + entry.values[1] + '>'));
  }
  return outcomes;
}

TEST(Readers, RejectNumbersThatASpreadsheetShortened) {
  const Mapping fax({{"name", Part::kName, 31, true}, {"number", Part::kFax, 79, true}}, {},
                    Place::kNone);
  EXPECT_EQ(Outcomes("Name,Fax\nAnn,\"4,91E+10\"\nBob,OFFICE+49 1\nCy,E+\n", {}, {}, fax),
            (List{"2 bad-number", "3 Bob <OFFICE+49 1>", "4 Cy <E+>"}));
}

TEST(Readers, RejectRecordsThatAreTooLargeAndGoOn) {
  const std::string large(kMaxRecord + 100'000, 'x');
  const std::string heading = "Name,E-mail\n";
  const List rest = {"3 Ann <a@b.example>"};
  const std::string row = "\nAnn,a@b.example\n";
  EXPECT_EQ(Outcomes(heading + large + ",c@d.example" + row), (List{"2 record-too-long", rest[0]}));
  EXPECT_EQ(Outcomes(heading + std::string(2'000, ',') + row),
            (List{"2 too-many-values", rest[0]}));

  std::string lines;  // a quoted value over many lines
  for (int i = 0; i < 120'000; ++i) lines += "0123456789\n";
  EXPECT_EQ(Outcomes(heading + '"' + lines + '"' + row)[0], "2 record-too-long");

  const std::string card = "BEGIN:VCARD\nFN:Ann\nEMAIL:a@b.example\nEND:VCARD\n";
  EXPECT_EQ(Outcomes("BEGIN:VCARD\nNOTE:" + large + "\nEND:VCARD\n" + card),
            (List{"1 record-too-long", "4 Ann <a@b.example>"}));
  std::string photo = "BEGIN:VCARD\nPHOTO;ENCODING=b:\n";
  for (int i = 0; i < 20'000; ++i) photo += " " + std::string(74, 'A') + '\n';
  EXPECT_EQ(Outcomes(photo + "END:VCARD\n" + card).size(), 2U);

  const std::string entry = "dn: cn=Ann\ncn: Ann\nmail: a@b.example\n";
  EXPECT_EQ(Outcomes("dn: x\ncn: " + large + "\nmail: c@d.example\n\n" + entry),
            (List{"1 record-too-long", "5 Ann <a@b.example>"}));
  EXPECT_EQ(Outcomes(R"({"entries": [{"name": ")" + large + R"(", "address": "c"},)" +
                     R"({"name": "Ann", "address": "a@b.example"}]})"),
            (List{"1 record-too-long", "1 Ann <a@b.example>"}));
}

TEST(Readers, LoseNoRecordAfterABrokenOne) {
  const struct {
    std::string file;
    List outcomes;
  } cases[] = {
      // csv: the text of a large quoted value is no row; files one after another
      {"Name,E-mail\nA,a@x.example,\"" + std::string(kMaxRecord, 'x') +
           "\nEvil,e@x.example\n\"\nB,b@x.example\n",
       {"2 record-too-long", "5 B <b@x.example>"}},
      {"Name,E-mail\nA,a@x.example\n\xEF\xBB\xBFName,E-mail\nB,b@x.example\n",
       {"2 A <a@x.example>", "3  <>", "4 B <b@x.example>"}},
      // vCard: a soft line break at the end of an ignored property; a version after a name
      {"BEGIN:VCARD\nKEY;QUOTED-PRINTABLE:a=\nb\nFN:A\nEMAIL:a@x.example\nEND:VCARD \n"
       "BEGIN:VCARD \nN:O\\Neil;B\nVERSION:2.1\nEMAIL:b@x.example\nEND:VCARD\n",
       {"1 A <a@x.example>", "7 bad-line"}},
      {"BEGIN:VCARD\nFN;X=,,,,:A\nEMAIL;TYPE=\"home,pref\":a@x.example\nEMAIL:b@x.example\nEND:"
       "VCARD",
       {"1 A <a@x.example>"}},
      // LDIF: base64 is UTF-8 whatever the encoding of the file is
      {"dn: a\nou: \xFC\ncn:: Wm/DqQ==\nmail: a@x.example\n", {"1 Zo\xC3\xA9 <a@x.example>"}},
      // JSON: a member twice; another list; text after the list; nested lists
      {R"({"tags": ["x"], "entries": [{"name":"A","name":"B","address":"a@x"}, [1,[2]], "x", )"
       R"({"name-bytes":"C3","address":"c@x"}], "more": []} {"entries": []})",
       {"1 bad-line", "1 bad-line", "1 bad-line", "1 \xC3 <c@x>", "1 bad-line"}},
      {"[{\"name\":" + std::string(200'000, '[') + "\"]}, {\"name\":\"B\",\"address\":\"b@x\"}]",
       {"1 truncated"}},
      // Windows-1252 without evidence: a row with UTF-8 is not decoded another way
      {"Name,E-mail\nZo\xC3\xA9,a@x\nM\xC3\xBCll\xC3,b@x\n\xDCnal,c@x\n",
       {"2 not-decodable", "3 not-decodable", "4 \xC3\x9Cnal <c@x>"}},
  };
  for (const auto& each : cases)
    EXPECT_EQ(Outcomes(each.file), each.outcomes) << each.file.substr(0, 300);
}

// The block of the reader ends between any two bytes.
TEST(Readers, FindLineEndsAtAnyPosition) {
  for (const char* const end : {"\n", "\r\n", "\r"}) {
    for (std::size_t size = 65'500; size < 65'540; ++size) {
      const std::string first = "Name,E-mail"s + end + std::string(size, 'x') + ",x" + end;
      EXPECT_EQ(Outcomes(first + "Ann,a@b.example" + end + "Bob,b@c.example"),
                (List{"2 too-long", "3 Ann <a@b.example>", "4 Bob <b@c.example>"}));
    }
  }
}

TEST(Readers, GiveBackWhatTheWritersWrote) {
  const std::vector<std::string> values = {
      "a",          " a ",          "=1+1",
      "'=1",        "a;b,c|d\te",   "say \"x\"",
      "two\nlines", "back\\slash;", "\xC3\xA9t\xC3\xA9",
      "<x>",        ":y",           "long " + std::string(200, 'w') + " \xE2\x82\xAC"};
  std::string csv = "Name,Address\r\n";
  std::string ldif(kLdifHeading);
  std::string vcard;
  List expected;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string name = std::to_string(i);
    AppendCsv(csv, std::vector<std::string>{name, values[i]});
    AppendLdif(ldif, {name, values[i], {}, {}});
    AppendVcard(vcard, {name, values[i], {}, {}});
    expected.push_back(name + " <" + values[i] + '>');
  }
  for (const std::string& file : {csv, ldif, vcard}) {
    List found = Outcomes(file);
    for (std::string& each : found) each.erase(0, each.find(' ') + 1);
    EXPECT_EQ(found, expected);
  }
}

TEST(EntryReader, StoresInTheChosenEncodingAndShortensBetweenCharacters) {
  const std::string file =
      "Name,E-mail\n" + std::string(30, 'n') + "\xC3\xA9,a@\xC3\xA9\nx,\xE2\x98\x83@b\n";
  EXPECT_EQ(Outcomes(file), (List{"2 too-long", "3 x <\xE2\x98\x83@b>"}));
  EXPECT_EQ(Outcomes(file, {Encoding::kUtf8, true})[0],
            "2 " + std::string(30, 'n') + " <a@\xC3\xA9>");
  EXPECT_EQ(Outcomes(file, {Encoding::kWindows1252, false}),
            (List{"2 " + std::string(30, 'n') + "\xE9 <a@\xE9>", "3 not-storable"}));
}

}  // namespace
}  // namespace contacts
