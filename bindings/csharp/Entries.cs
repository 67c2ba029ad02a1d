using System;
using System.Collections;
using System.Collections.Generic;

namespace Quillkit
{
    // An entry of a book, or a member of a list. The kinds of books have classes of their own below.
    public abstract class Entry
    {
        public string Name = "";
        internal readonly string[] Texts = { "", "", "" };
        internal readonly uint[] Numbers = new uint[Native.EntryNumbers];

        // The entry as the bytes of a structure.
        internal byte[] ToNative()
        {
            var bytes = new byte[Native.EntrySize];
            Library.Name(Name).CopyTo(bytes, Native.EntryNameOffset);
            for (int i = 0; i < Texts.Length; ++i)
                Library.Bytes(Texts[i], Native.EntryTextSize - 1)
                    .CopyTo(bytes, Native.EntryTextsOffset + i * Native.EntryTextSize);
            Buffer.BlockCopy(Numbers, 0, bytes, Native.EntryNumbersOffset, Buffer.ByteLength(Numbers));
            return bytes;
        }

        internal static T From<T>(byte[] bytes, int start) where T : Entry, new()
        {
            var entry = new T { Name = Library.TextAt(bytes, start + Native.EntryNameOffset) };
            for (int i = 0; i < entry.Texts.Length; ++i)
                entry.Texts[i] = Library.TextAt(bytes, start + Native.EntryTextsOffset + i * Native.EntryTextSize);
            Buffer.BlockCopy(bytes, start + Native.EntryNumbersOffset, entry.Numbers, 0, Buffer.ByteLength(entry.Numbers));
            return entry;
        }
    }

    // In a private list, Flags is 1 for an entry of the private book.
    public class EmailEntry : Entry
    {
        public string Address { get => Texts[0]; set => Texts[0] = value; }
        public uint Flags { get => Numbers[0]; set => Numbers[0] = value; }
    }

    public class FaxEntry : Entry
    {
        public string Number { get => Texts[0]; set => Texts[0] = value; }
        public string Third { get => Texts[1]; set => Texts[1] = value; }
    }

    public class PrinterEntry : Entry
    {
        public string Description { get => Texts[0]; set => Texts[0] = value; }
        public string Model { get => Texts[1]; set => Texts[1] = value; }
        public bool IsDefault { get => Numbers[0] != 0; set => Numbers[0] = value ? 1u : 0; }
    }

    public class UserEntry : Entry
    {
        public string Password { get => Texts[0]; set => Texts[0] = value; }
        public string Third { get => Texts[1]; set => Texts[1] = value; }
        public string Fourth { get => Texts[2]; set => Texts[2] = value; }
        public uint Tag { get => Numbers[0]; set => Numbers[0] = value; }
        public uint Flags { get => Numbers[1]; set => Numbers[1] = value; }
        public uint Nibbles { get => Numbers[2]; set => Numbers[2] = value; }
    }

    // The entries of a book, or the members of a list, on the server. Nothing is cached.
    public class Entries<T> : Owned, IEnumerable<T> where T : Entry, new()
    {
        private const int PageSize = 64;  // entries that an iteration reads at once

        internal Entries(ulong scanner, int kind, string name = "") : base(Open(scanner, kind, name)) { }

        private static ulong Open(ulong scanner, int kind, string name)
        {
            Library.Status(Native.quill_open_entries(scanner, kind, Library.Name(name), out ulong handle));
            return handle;
        }

        protected override void End(ulong handle)
        {
            Native.quill_close_entries(handle);
        }

        public int Count
        {
            get
            {
                Status(Native.quill_entry_count(Handle, out uint count));
                return (int)count;
            }
        }

        // Reads up to `size` entries after the name `after`, or before it. `filter` is "*", or the
        // beginning of names and "*". Returns an empty list at the end of the book.
        public List<T> Page(string after = "", int size = PageSize, string filter = "*", int skip = 0,
                            bool backward = false)
        {
            if (size < 1) throw new ArgumentOutOfRangeException(nameof(size));
            size = Math.Min(size, Native.MaxEmailEntries);
            var records = new byte[size * Native.EntrySize];
            var count = (uint)size;
            int status = Status(
                Native.quill_read_entries(Handle, Library.Name(after), Library.Name(filter), skip,
                                          backward ? 0 : 1, records, ref count),
                Native.StatusDataNotFound, Native.StatusMoreData);
            var page = new List<T>();
            for (int i = 0; status != Native.StatusDataNotFound && i < count; ++i)
                page.Add(Entry.From<T>(records, i * Native.EntrySize));
            return page;
        }

        public IEnumerator<T> GetEnumerator()
        {
            for (List<T> page = Page(); page.Count != 0; page = Page(page[page.Count - 1].Name))
                foreach (T each in page) yield return each;
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();

        // The entry of this name, or null.
        public T Find(string name)
        {
            var bytes = new byte[Native.EntrySize];
            int status = Status(Native.quill_read_entry(Handle, Library.Name(name), bytes),
                                Native.StatusDataNotFound);
            return status == 0 ? Entry.From<T>(bytes, 0) : null;
        }

        public T this[string name] => Find(name) ?? throw new KeyNotFoundException(name);

        public void Add(T entry)
        {
            Status(Native.quill_add_entry(Handle, entry.ToNative()));
        }

        // Replaces the entry with the name of `entry`.
        public void Modify(T entry)
        {
            Status(Native.quill_modify_entry(Handle, entry.ToNative()));
        }

        // Replaces the entry `oldName` by `entry`.
        public void Rename(string oldName, T entry)
        {
            Status(Native.quill_rename_entry(Handle, Library.Name(oldName), entry.ToNative()));
        }

        public void Delete(string name)
        {
            Status(Native.quill_delete_entry(Handle, Library.Name(name)));
        }
    }

    // The distribution lists of a kind, by name.
    public class Lists<T> : IEnumerable<string> where T : Entry, new()
    {
        private readonly ulong scanner;
        private readonly int kind;

        internal Lists(ulong scanner, int kind)
        {
            this.scanner = scanner;
            this.kind = kind;
        }

        public IEnumerator<string> GetEnumerator()
        {
            var records = new byte[Native.MaxLists * Native.EntrySize];
            uint count = Native.MaxLists;
            Library.Status(Native.quill_enumerate_lists(scanner, kind, records, ref count),
                           Native.StatusDataNotFound, Native.StatusMoreData);
            for (int i = 0; i < count; ++i) yield return Library.TextAt(records, i * Native.EntrySize);
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();

        // The members of a list.
        public Entries<T> this[string name]
        {
            get
            {
                foreach (string each in this)
                    if (each == name) return new Entries<T>(scanner, kind, name);
                throw new KeyNotFoundException(name);
            }
        }

        // Creates a list without members.
        public Entries<T> Create(string name)
        {
            var members = new Entries<T>(scanner, kind, name);
            Library.Status(Native.quill_create_list(members.Handle));
            return members;
        }

        // Deletes a list with its members.
        public void Delete(string name)
        {
            using (var members = new Entries<T>(scanner, kind, name))
                Library.Status(Native.quill_delete_list(members.Handle));
        }
    }

    // A position in the public e-mail book. Each operation returns the entry there, or null.
    public class View : Owned
    {
        internal View(ulong scanner, int mode) : base(Open(scanner, mode)) { }

        private static ulong Open(ulong scanner, int mode)
        {
            Library.Status(Native.quill_open_view(scanner, mode, out ulong handle));
            return handle;
        }

        protected override void End(ulong handle)
        {
            Native.quill_close_view(handle);
        }

        private EmailEntry Go(int where, int index = 0)
        {
            var bytes = new byte[Native.EntrySize];
            return Found(Native.quill_view_go(Handle, where, index, bytes), bytes);
        }

        private EmailEntry FindBy(int what, string key)
        {
            var bytes = new byte[Native.EntrySize];
            return Found(Native.quill_view_find(Handle, what, Library.Name(key), bytes), bytes);
        }

        private EmailEntry Found(int status, byte[] bytes)
        {
            return Status(status, Native.StatusDataNotFound) == 0 ? Entry.From<EmailEntry>(bytes, 0) : null;
        }

        public EmailEntry First() => Go(Native.GoFirst);
        public EmailEntry Last() => Go(Native.GoLast);
        public EmailEntry Next() => Go(Native.GoNext);
        public EmailEntry Prev() => Go(Native.GoPrev);
        public EmailEntry At(int index) => Go(Native.GoAt, index);
        public EmailEntry Find(string name) => FindBy(Native.FindName, name);
        public EmailEntry FindPrefix(string prefix) => FindBy(Native.FindPrefix, prefix);

        // The first entry whose name begins with this letter.
        public EmailEntry FindLetter(char letter) => FindBy(Native.FindLetter, letter.ToString());

        // The next entry for the prefix of the latest search.
        public EmailEntry FindNext() => FindBy(Native.FindNext, "");
    }
}
