"""What the story does not use. Layers.cs does the same in C# and prints the same lines."""
import concurrent.futures

import quillkit
from quillkit import EmailEntry, FaxEntry, Item, PrinterEntry, UserEntry


def expect_errors(kind, *calls):
    for i, call in enumerate(calls):
        try:
            call()
        except kind:
            continue
        print(kind.__name__, i, "is missing")


def expect_failure(call):
    try:
        call()
    except quillkit.QuillError as error:
        print("failure", error)
    except LookupError:
        print("absent")


with quillkit.Session("127.0.0.1", "ADMINISTRATOR", "quill") as box:
    print(box.name, box.address, box.model.strip(), box.version.strip(), box.is_administrator)
    key = box.keys["Desks"]
    key.add(Item("One", "a.example", "/one", "tag", 3, 4))
    key.modify(Item("One", "b.example"))
    key.rename("One", Item("Two", settings=4294967295))
    print(key["Two"].name, key["Two"].settings, len(key))
    key.remove("Two")
    expect_failure(lambda: key["Two"])
    expect_failure(lambda: key[9])
    expect_failure(lambda: key.remove("Two"))
    expect_failure(lambda: key.add(Item("n" * 32)))
    expect_failure(lambda: box.keys["None"])
    for each in box.keys:
        if each.name.startswith("D"):
            box.keys.delete(each.name)
    print([each.name for each in box.keys])

    for book, entry in [(box.email, EmailEntry("Zz", "zz@mail.example")), (box.fax, FaxEntry("Zz", "1", "2")),
                        (box.printers, PrinterEntry("Zz", "stairs", "", 1)),
                        (box.users, UserEntry("Zz", "secret", "3rd", "4th", 0, 1, 2)),
                        (box.private, EmailEntry("Zz", "zz@mail.example"))]:
        before = len(book)
        book.add(entry)
        print(len(book) - before, book["Zz"] == entry, len(book.page("Zy", 5, filter="Z*")), len(list(book)) - before)
        book.delete("Zz")
        expect_failure(lambda: book["Zz"])
        expect_failure(lambda: book.delete("Zz"))
    long_name = "n" * 32
    for call in [lambda: box.email.add(EmailEntry(long_name)), lambda: box.email.page(long_name),
                 lambda: box.email.get(long_name), lambda: box.email_lists.create(long_name),
                 lambda: box.keys.add(long_name)]:
        expect_failure(call)
    print([each.name for each in box.email.page("Gareth Pugh", 2, backward=True)], len(box.email.page(size=5289369)))

    expect_errors(TypeError, lambda: box.fax.add(FaxEntry("Int", 5551234)), lambda: 5 in box.email,
                  lambda: 5 in box.email_lists, lambda: 5 in box.keys, lambda: Item("x") in box.keys[0],
                  lambda: box.email.add(EmailEntry("Text", flags="1")),
                  lambda: box.email.add(UserEntry("User", "secret")), lambda: box.email.modify(FaxEntry("Zz")),
                  lambda: box.email.rename("Zz", FaxEntry("Zz")))
    expect_errors(OverflowError, lambda: box.email.add(EmailEntry("Big", flags=1 << 32)), lambda: box.keys[1 << 32],
                  lambda: box.email.page(skip=-1 << 32), lambda: box.import_file("x", columns=[1 << 32, 1]))
    expect_errors(ValueError, lambda: box.import_file("a\0b"), lambda: box.email.page(size=0))

    board = box.email_lists.create("Board")
    board.add(EmailEntry("Fenna de Wit", "fenna.dewit@office.example"))
    board.rename("Fenna de Wit", EmailEntry("Fenna", "fenna@office.example"))
    board.modify(EmailEntry("Fenna", "f@office.example"))
    print(list(box.email_lists), [each.address for each in box.email_lists["Board"]])
    box.email_lists.delete("Board")
    expect_failure(lambda: box.email_lists["Board"])
    print(list(box.private_lists), list(box.fax_lists))

    view = box.view()
    print(view.first().name, view.next().name, view.prev().name, view.at(13).name, view.find("Ewa Nowicka").name,
          view.find_prefix("A").name, view.find_next().name, view.find_letter("G").name, view.last() is None,
          view.at(1000) is None)
    box.wait(0.05)
    box.dispatch()
expect_failure(lambda: view.at(0))
expect_failure(lambda: box.keys)
with quillkit.Session("127.0.0.1", "ADMINISTRATOR", "quill") as later:
    box.close()
    print(len(later.email) > 0)
    expect_errors(ValueError, lambda: later.wait(-1))
    with concurrent.futures.ThreadPoolExecutor() as pool:
        for call in (later.dispatch, later.fileno, lambda: later.wait(0)):
            expect_errors(RuntimeError, pool.submit(call).result)
expect_failure(lambda: quillkit.Session("127.0.0.1", "ADMINISTRATOR", "no"))
