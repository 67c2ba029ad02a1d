// What the story does not use. layers.py does the same in Python and prints the same lines.
using System;
using System.Collections.Generic;
using System.Linq;
using System.Threading;
using Quillkit;

static class Layers
{
    static void ExpectFailure(Action call)
    {
        try
        {
            call();
        }
        catch (QuillException error)
        {
            Console.WriteLine("failure " + error.Message);
        }
        catch (Exception error) when (error is KeyNotFoundException || error is ArgumentOutOfRangeException)
        {
            Console.WriteLine("absent");
        }
    }

    static void ExpectErrors<T>(params Action[] calls) where T : Exception
    {
        for (int i = 0; i < calls.Length; ++i)
        {
            try
            {
                calls[i]();
            }
            catch (T)
            {
                continue;
            }
            Console.WriteLine(typeof(T).Name + " " + i + " is missing");
        }
    }

    static string Shown(IEnumerable<string> names)
    {
        return "[" + string.Join(", ", names.Select(each => "'" + each + "'")) + "]";
    }

    static void Try<T>(Entries<T> book, T entry, Func<T, T, bool> equal) where T : Entry, new()
    {
        entry.Name = "Zz";
        int before = book.Count;
        book.Add(entry);
        Console.WriteLine($"{book.Count - before} {equal(book["Zz"], entry)} {book.Page("Zy", 5, "Z*").Count} " +
                          $"{book.Count() - before}");
        book.Delete("Zz");
        ExpectFailure(() => Console.WriteLine(book["Zz"]));
        ExpectFailure(() => book.Delete("Zz"));
    }

    static void Main()
    {
        var box = new Session("127.0.0.1", "ADMINISTRATOR", "quill");
        Console.WriteLine($"{box.Name} {box.Address} {box.Model.Trim()} {box.Version.Trim()} {box.IsAdministrator}");
        Key key = box.Keys["Desks"];
        key.Add(new Item { Name = "One", Address = "a.example", Path = "/one", Tag = "tag", FileFormat = 3, Settings = 4 });
        key.Modify(new Item { Name = "One", Address = "b.example" });
        key.Rename("One", new Item { Name = "Two", Settings = uint.MaxValue });
        Console.WriteLine($"{key["Two"].Name} {key["Two"].Settings} {key.Count}");
        key.Remove("Two");
        ExpectFailure(() => Console.WriteLine(key["Two"]));
        ExpectFailure(() => Console.WriteLine(key[9]));
        ExpectFailure(() => key.Remove("Two"));
        ExpectFailure(() => key.Add(new Item { Name = new string('n', 32) }));
        ExpectFailure(() => Console.WriteLine(box.Keys["None"]));
        foreach (Key each in box.Keys)
            if (each.Name.StartsWith("D")) box.Keys.Delete(each.Name);
        Console.WriteLine(Shown(box.Keys.Select(each => each.Name)));

        Try(box.Email, new EmailEntry { Address = "zz@mail.example" }, (a, b) => a.Address == b.Address);
        Try(box.Fax, new FaxEntry { Number = "1", Third = "2" }, (a, b) => a.Number == b.Number && a.Third == b.Third);
        Try(box.Printers, new PrinterEntry { Description = "stairs", IsDefault = true },
            (a, b) => a.Description == b.Description && a.Model == b.Model && a.IsDefault == b.IsDefault);
        Try(box.Users, new UserEntry { Password = "secret", Third = "3rd", Fourth = "4th", Flags = 1, Nibbles = 2 },
            (a, b) => a.Password == b.Password && a.Third == b.Third && a.Fourth == b.Fourth && a.Tag == b.Tag &&
                      a.Flags == b.Flags && a.Nibbles == b.Nibbles);
        Try(box.Private, new EmailEntry { Address = "zz@mail.example" }, (a, b) => a.Address == b.Address);
        string longName = new string('n', 32);
        foreach (Action call in new Action[] { () => box.Email.Add(new EmailEntry { Name = longName }),
                                               () => box.Email.Page(longName), () => box.Email.Find(longName),
                                               () => box.EmailLists.Create(longName), () => box.Keys.Add(longName) })
            ExpectFailure(call);
        ExpectErrors<ArgumentNullException>(() => box.Email.Find(null),
                                            () => box.Fax.Add(new FaxEntry { Number = null }));
        ExpectErrors<LoadException>(() => Library.CheckBits(PlatformID.Win32NT, 8));
        ExpectErrors<ArgumentException>(() => box.Import("x", columns: new int[5]));
        Console.WriteLine(Shown(box.Email.Page("Gareth Pugh", 2, backward: true).Select(each => each.Name)) + " " +
                          box.Email.Page(size: 5289369).Count);

        Entries<EmailEntry> board = box.EmailLists.Create("Board");
        board.Add(new EmailEntry { Name = "Fenna de Wit", Address = "fenna.dewit@office.example" });
        board.Rename("Fenna de Wit", new EmailEntry { Name = "Fenna", Address = "fenna@office.example" });
        board.Modify(new EmailEntry { Name = "Fenna", Address = "f@office.example" });
        Console.WriteLine(Shown(box.EmailLists) + " " + Shown(box.EmailLists["Board"].Select(each => each.Address)));
        box.EmailLists.Delete("Board");
        ExpectFailure(() => Console.WriteLine(box.EmailLists["Board"]));
        Console.WriteLine(Shown(box.PrivateLists) + " " + Shown(box.FaxLists));

        View view = box.OpenView();
        Console.WriteLine($"{view.First().Name} {view.Next().Name} {view.Prev().Name} {view.At(13).Name} " +
                          $"{view.Find("Ewa Nowicka").Name} {view.FindPrefix("A").Name} {view.FindNext().Name} " +
                          $"{view.FindLetter('G').Name} {view.Last() == null} {view.At(1000) == null}");
        box.Wait(TimeSpan.FromSeconds(0.05));
        box.Dispatch();
        box.Dispose();
        ExpectFailure(() => view.At(0));
        ExpectFailure(() => Console.WriteLine(box.Keys));
        using (var later = new Session("127.0.0.1", "ADMINISTRATOR", "quill"))
        {
            box.Dispose();
            Console.WriteLine(later.Email.Count > 0);
            ExpectErrors<ArgumentOutOfRangeException>(() => later.Wait(TimeSpan.FromTicks(-1)),
                                                      () => later.Email.Page(size: 0));
            var other = new Thread(() => ExpectErrors<InvalidOperationException>(
                () => later.Wait(TimeSpan.Zero), () => later.Dispatch()));
            other.Start();
            other.Join();
        }
        ExpectFailure(() => Console.WriteLine(new Session("127.0.0.1", "ADMINISTRATOR", "no")));
    }
}
