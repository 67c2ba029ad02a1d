"""The files of the import benchmark, and mawk programs that convert them."""

GIVEN = ("Ann", "Bartholomew", "Cy", "Dominique", "Eve")
FAMILY = ("Lee", "Featherstone", "Okafor", "Ng")


def delimited(i, given, family, mail):
    name = f'"{family} {i:06}, {given}"' if i % 2 else f"{given} {family} {i:06}"
    return (f"{name},{mail},+44 20 7946 {i % 10000:04},Engineering Department,"
            f"Building {i % 30} Room {i % 400},\n")


def directory(i, given, family, mail):
    return (f"dn: cn={given} {family} {i:06},ou=people,o=example\nobjectclass: person\n"
            f"cn: {given} {family} {i:06}\nsn: {family}\nmail: {mail}\n"
            f"telephonenumber: +44 20 7946 {i % 10000:04}\n\n")


def mailserver(i, given, family, mail):
    return (f"Mailbox,{given},{family},{given} {family} {i:06},Engineering Department,"
            f"Site {i % 30},%SMTP:{mail}%X400:c=US;a= ;p=Example;o=Site {i % 30};s={family};"
            f"g={given};\n")


# The mawk programs. They search for quotes only in lines that contain one.
PRINT = r'{ print "SE emailab \"" substr(name, 1, 31) "\" \"" substr(mail, 1, 255) "\"" }'
DELIMITED_MAWK = r'''
function field(text, quotes) {
  text = $(++at)
  while ((quotes += gsub(/"/, "", text)) % 2) text = text "," $(++at)
  return text
}
BEGIN { FS = "," }
/"/ { at = 0; name = field(); mail = field() }
!/"/ { name = $1; mail = $2 }
''' + PRINT
DIRECTORY_MAWK = r'''
/^dn:/ { inside = 1; name = mail = ""; next }
!inside { next }
/^cn:/ { if (name == "") { name = substr($0, 4, 31); sub(/^ +/, "", name) } }
/^mail:/ { if (mail == "") { mail = substr($0, 6, 255); sub(/^ +/, "", mail) } }
name != "" && mail != "" { inside = 0 }
inside { next }
''' + PRINT
MAILSERVER_MAWK = r'''
BEGIN { FS = "," }
$1 != "Mailbox" || !match($0, /SMTP:[^%,"]*/) { next }
{ name = $4; mail = substr($0, RSTART + 5, RLENGTH - 5) }
''' + PRINT

# The generator of the rows, the program, and the minimum ratio of mawk's time to the conversion's.
FORMATS = {
    "delimited": (delimited, DELIMITED_MAWK, 2.5),
    "directory": (directory, DIRECTORY_MAWK, 5.0),
    "mailserver": (mailserver, MAILSERVER_MAWK, 2.5),
}


def write_file(path, row, entries):
    with open(path, "w", encoding="ascii") as file:
        for i in range(entries):
            given, family = GIVEN[i % len(GIVEN)], FAMILY[i % len(FAMILY)]
            file.write(row(i, given, family, f"{given}.{family}.{i:06}@mail.example.org".lower()))
