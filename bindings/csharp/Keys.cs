using System;
using System.Collections;
using System.Collections.Generic;

namespace Quillkit
{
    // A menu item. The name identifies it in its key.
    public class Item
    {
        public string Name = "", Address = "", Path = "", Tag = "";
        public uint FileFormat, Settings;
    }

    // An item of this process, with the fields of `item`.
    internal sealed class ItemHandle : Owned
    {
        internal ItemHandle(Item item) : base(Create())
        {
            foreach (int stored in new[] {
                Native.quill_set_name(Handle, Library.Bytes(item.Name)),
                Native.quill_set_ip_address(Handle, Library.Bytes(item.Address)),
                Native.quill_set_path(Handle, Library.Bytes(item.Path)),
                Native.quill_set_app_tag(Handle, Library.Bytes(item.Tag)),
                Native.quill_set_file_format(Handle, item.FileFormat),
                Native.quill_set_settings(Handle, item.Settings) })
                Library.Reported(stored, 0, stored == 0 ? Native.StatusRefused : stored);  // 0: a text is too long
        }

        private static ulong Create()
        {
            Library.Check();
            Library.Reported(Native.quill_create_menu_item(out ulong handle), 0, Native.EMemory);
            return handle;
        }

        protected override void End(ulong handle)
        {
            Native.quill_destroy_menu_item(handle);
        }
    }

    // A key of this process, with a name.
    internal sealed class KeyHandle : Owned
    {
        internal KeyHandle(string name, ulong book) : base(Create(name, book)) { }

        private static ulong Create(string name, ulong book)
        {
            int made = Native.quill_create_soft_key(Library.Name(name), book, out ulong handle);
            Library.Reported(made, 0, made == 0 ? Native.EMemory : made);
            return handle;
        }

        protected override void End(ulong handle)
        {
            Native.quill_destroy_soft_key(handle);
        }
    }

    // A soft key in memory. It ends when its book is loaded again, or when the key is removed.
    public class Key : IEnumerable<Item>
    {
        public ulong Handle { get; }

        internal Key(ulong handle)
        {
            Handle = handle;
        }

        public string Name => Library.Text(Native.quill_get_key_name, Handle);
        public int Count => Library.Number(Native.quill_get_item_count(Handle));

        public Item this[int index]
        {
            get
            {
                if (Library.Number(Native.quill_get_item_at(Handle, index, out ulong item)) == 0)
                    throw new ArgumentOutOfRangeException(nameof(index));
                Library.Number(Native.quill_file_format(item, out uint format));
                Library.Number(Native.quill_settings(item, out uint settings));
                return new Item {
                    Name = Library.Text(Native.quill_get_item_name, item),
                    Address = Library.Text(Native.quill_ip_address, item),
                    Path = Library.Text(Native.quill_path, item),
                    Tag = Library.Text(Native.quill_app_tag, item),
                    FileFormat = format, Settings = settings };
            }
        }

        public Item this[string name]
        {
            get
            {
                int found = Library.Number(Native.quill_find_first_item(Handle, Library.Bytes(name), 1));
                return found >= 0 ? this[found] : throw new KeyNotFoundException(name);
            }
        }

        // The items of now: the loop may change the key.
        public IEnumerator<Item> GetEnumerator()
        {
            var items = new List<Item>();
            for (int i = 0; i < Count; ++i) items.Add(this[i]);
            return items.GetEnumerator();
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();

        public void Add(Item item)
        {
            using (var made = new ItemHandle(item))
                Library.Reported(Native.quill_fast_item_add(Handle, made.Handle, out int error), -1, error);
        }

        // Replaces the item with the name of `item`.
        public void Modify(Item item)
        {
            using (var made = new ItemHandle(item))
                Library.Reported(Native.quill_fast_item_modify(Handle, made.Handle, out int error), 0, error);
        }

        // Replaces the item `oldName` by `item`.
        public void Rename(string oldName, Item item)
        {
            using (var made = new ItemHandle(item))
                Library.Reported(Native.quill_fast_item_rename(Handle, Library.Name(oldName), made.Handle,
                                                               out int error), 0, error);
        }

        public void Remove(string name)
        {
            using (var made = new ItemHandle(new Item { Name = name }))
                Library.Reported(Native.quill_fast_item_remove(Handle, made.Handle, out int error), -1, error);
        }
    }

    // The soft keys of an appliance, as they were loaded. Changes are made on the server too.
    public class Keys : IEnumerable<Key>
    {
        public ulong Handle { get; }

        internal Keys(ulong book)
        {
            Handle = book;
        }

        public int Count => Library.Number(Native.quill_get_count(Handle));

        public Key this[int index]
        {
            get
            {
                if (Library.Number(Native.quill_get_key_at(Handle, index, out ulong key)) == 0)
                    throw new ArgumentOutOfRangeException(nameof(index));
                return new Key(key);
            }
        }

        public Key this[string name]
        {
            get
            {
                int found = IndexOf(name);
                return found >= 0 ? this[found] : throw new KeyNotFoundException(name);
            }
        }

        // The index of a key, or -1.
        public int IndexOf(string name)
        {
            return Library.Number(Native.quill_find_soft_key_index(Handle, Library.Bytes(name)));
        }

        // The keys of now: the loop may add and delete keys.
        public IEnumerator<Key> GetEnumerator()
        {
            var keys = new List<Key>();
            for (int i = 0; i < Count; ++i) keys.Add(this[i]);
            return keys.GetEnumerator();
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();

        // Adds a key without items.
        public Key Add(string name)
        {
            using (var made = new KeyHandle(name, Handle))
                Library.Reported(Native.quill_fast_key_add(Handle, made.Handle, out int error), -1, error);
            return this[name];
        }

        public void Delete(string name)
        {
            using (var made = new KeyHandle(name, Handle))
                Library.Reported(Native.quill_fast_key_remove(Handle, made.Handle, out int error), -1, error);
        }

        public void Rename(string oldName, string newName)
        {
            using (var made = new KeyHandle(newName, Handle))
                Library.Reported(Native.quill_fast_key_rename(Handle, Library.Name(oldName), made.Handle,
                                                              out int error), 0, error);
        }

        // Loads all keys again. The Key objects of before end.
        public void Reload()
        {
            Library.Status(Native.quill_load_top_level_abook(Handle, 1));
        }
    }
}
