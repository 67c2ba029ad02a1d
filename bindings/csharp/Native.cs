// Generated from src/toolkit/api.json by scripts/make_bindings. Do not edit.
using System;
using System.Runtime.InteropServices;

namespace Quillkit
{
    // The functions and constants of quillkit_c, as they are. A structure is passed as
    // its bytes; its fields are at the offsets below.
    public static class Native
    {
        public const string Library = "quillkit_c";
        public const int Contract = 1;

        // Errors of quillkit_c.
        public const int ENull = -1001;
        public const int EStale = -1002;
        public const int EForeign = -1003;
        public const int EOwner = -1004;
        public const int EArgument = -1005;
        public const int EBuffer = -1006;
        public const int EMemory = -1007;
        public const int EInternal = -1008;
        public const int ENested = -1009;
        public const int EForked = -1010;

        // Codes of the server, and local codes below 0.
        public const int StatusNoError = 0;
        public const int StatusDuplicateLogin = 1;
        public const int StatusWrongUser = 2;
        public const int StatusNoSuchBook = 3;
        public const int StatusDataNotFound = 4;
        public const int StatusNoMoreAddresses = 5;
        public const int StatusGeneralFailure = 6;
        public const int StatusInvalidField = 7;
        public const int StatusBookLocked = 8;
        public const int StatusDuplicateBook = 9;
        public const int StatusNotLoggedIn = 10;
        public const int StatusAccessDenied = 11;
        public const int StatusStaticBook = 12;
        public const int StatusNotImplemented = 13;
        public const int StatusNameConflict = 14;
        public const int StatusServerIdle = 15;
        public const int StatusServerBusy = 16;
        public const int StatusBadCommand = 17;
        public const int StatusServerFailure = 18;
        public const int StatusTimeoutExpired = 19;
        public const int StatusNotInitialised = 20;
        public const int StatusMoreData = 21;
        public const int StatusBusy = 22;
        public const int StatusBookFull = 24;
        public const int StatusInvalidHost = 25;
        public const int StatusRefused = -1;
        public const int StatusUnusableInput = -2;
        public const int StatusMissingArgument = -3;
        public const int StatusUnknownFormat = -11;

        // Numbers of objects, and characters of texts without the NUL.
        public const int MaxKeys = 11;
        public const int MaxItems = 512;
        public const int MaxName = 31;
        public const int MaxIpAddress = 255;
        public const int MaxPath = 127;
        public const int MaxAppTag = 127;
        public const int MaxPassword = 15;
        public const int MaxThird = 255;
        public const int MaxEmailEntries = 200000;
        public const int MaxFaxEntries = 2048;
        public const int MaxLists = 512;
        public const int MaxMembers = 512;

        // Books and kinds of lists.
        public const int BookEmail = 1;
        public const int BookFax = 2;
        public const int BookUsers = 4;
        public const int BookPrinters = 8;
        public const int BookPrivateEmail = 16;
        public const int ListEmail = 64;
        public const int ListPrivateEmail = 128;
        public const int ListFax = 768;

        // Kinds of views.
        public const int ViewSliding = 0;
        public const int ViewLetter = 1;
        public const int ViewFull = 2;

        // Where a view moves to.
        public const int GoFirst = 0;
        public const int GoLast = 1;
        public const int GoNext = 2;
        public const int GoPrev = 3;
        public const int GoAt = 4;

        // What a view finds.
        public const int FindName = 0;
        public const int FindPrefix = 1;
        public const int FindLetter = 2;
        public const int FindNext = 3;

        // Formats of an imported file.
        public const int FormatDelimited = 1;
        public const int FormatDirectory = 16;
        public const int FormatMailServer = 256;
        public const int FormatScript = 4096;

        // Books that a delimited file fills.
        public const int TargetEmail = 1;
        public const int TargetFax = 2;
        public const int TargetPrinters = 3;
        public const int TargetUsers = 4;

        // Sizes of arrays in structures.
        public const int EntryTexts = 3;
        public const int EntryNumbers = 3;
        public const int EntryTextSize = 256;
        public const int ImportColumns = 4;

        // An entry of a book, or a member of a list. Its size and the offsets of its fields, in bytes.
        public const int EntrySize = 812;
        public const int EntryNameOffset = 0;
        public const int EntryTextsOffset = 32;
        public const int EntryNumbersOffset = 800;

        // The options of an import. Its size and the offsets of its fields, in bytes.
        public const int ImportOptionsSize = 36;
        public const int ImportOptionsSkipHeaderOffset = 0;
        public const int ImportOptionsClearFirstOffset = 4;
        public const int ImportOptionsFormatOffset = 8;
        public const int ImportOptionsTargetBookOffset = 12;
        public const int ImportOptionsColumnCountOffset = 16;
        public const int ImportOptionsColumnMapOffset = 20;

        // The version of the library.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr quill_version();

        // The number of the library's interface.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_contract();

        // The text of an error of quillkit_c.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr quill_error_text(int error);

        // Waits and keeps the session alive.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_wait(uint milliseconds);

        // The descriptor that is readable while a keep-alive is due.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_event_descriptor();

        // Sends the keep-alive if it is due.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_dispatch_events();

        // Logs in to an appliance.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_log_to_quillbox(byte[] host, byte[] user, byte[] password,
            byte[] third, int load_top_book, out ulong scanner, out int error);

        // Ends the session; the objects stay.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_logout();

        // Destroys the objects that the library owns and unloads the server library.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_exit();

        // The last recorded status.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_last_toolkit_error();

        // The text of a status.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_translate_toolkit_error(int code, byte[] buffer,
            ref uint size);

        // The host as passed at login.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_scanner_name(ulong scanner, byte[] buffer,
            ref uint size);

        // The version that the server reported at login.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_scanner_version(ulong scanner, byte[] buffer,
            ref uint size);

        // The model that the server reported at login.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_scanner_model(ulong scanner, byte[] buffer,
            ref uint size);

        // The IPv4 address, in network byte order.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_scanner_address(ulong scanner, out uint value);

        // The user who is logged in.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_current_connected_user(ulong scanner, out ulong user);

        // Whether ADMINISTRATOR is logged in.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_is_admin_connected(ulong scanner);

        // The top-level book of the open session.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_top_level_abook(ulong scanner, out ulong book);

        // The number of keys in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_count(ulong book);

        // Reads the keys again, with or without items.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_load_top_level_abook(ulong book, int with_items);

        // Adds a key on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_add_key(ulong book, byte[] name, int reload);

        // Deletes a key and its items on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_delete_key(ulong book, byte[] name, int reload);

        // Writes a key on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_modify_key(ulong book, ulong key, int reload);

        // Renames a key on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_rename_soft_key(ulong book, byte[] old_name, ulong key);

        // The key at an index.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_key_at(ulong book, int index, out ulong key);

        // The index of the key with a name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_find_soft_key_index(ulong book, byte[] name);

        // Adds a key on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_key_add(ulong book, ulong key, out int error);

        // Removes a key on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_key_remove(ulong book, ulong key, out int error);

        // Writes a key on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_key_modify(ulong book, ulong key, out int error);

        // Renames a key on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_key_rename(ulong book, byte[] old_name, ulong key,
            out int error);

        // Makes a key that the application owns.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_create_soft_key(byte[] name, ulong book, out ulong key);

        // Frees a key that the application owns.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_destroy_soft_key(ulong key);

        // The key with a name, if its items can be read.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_load_items(ulong book, byte[] name, out ulong key,
            out int error);

        // The key's name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_key_name(ulong key, byte[] buffer, ref uint size);

        // Whether no items are in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_is_soft_key_empty(ulong key);

        // The number of items in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_item_count(ulong key);

        // The number of items on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_db_item_count(ulong key, out uint count);

        // The item at an index.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_item_at(ulong key, int index, out ulong item);

        // Copies an item over the one at an index, in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_item_at(ulong key, int index, ulong item);

        // Removes the item at an index, in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_remove_item_at(ulong key, int index);

        // The first item whose name matches.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_find_first_item(ulong key, byte[] pattern, int whole_name);

        // The next item whose name matches.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_find_next_item(ulong key, int whole_name);

        // The index of the item with an item's name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_find_menu_item_index(ulong key, ulong item);

        // Adds an item on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_add_menu_item(ulong key, ulong item, int reload);

        // Writes an item on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_modify_menu_item(ulong key, ulong item, int reload);

        // Renames an item on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_rename_menu_item(ulong key, byte[] old_name, ulong item,
            int reload);

        // Deletes an item on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_delete_menu_item(ulong key, byte[] name, int reload);

        // Adds an item on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_item_add(ulong key, ulong item, out int error);

        // Removes an item on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_item_remove(ulong key, ulong item, out int error);

        // Writes an item on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_item_modify(ulong key, ulong item, out int error);

        // Renames an item on the server and in memory.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_fast_item_rename(ulong key, byte[] old_name, ulong item,
            out int error);

        // Makes a blank item that the application owns.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_create_menu_item(out ulong item);

        // Frees an item that the application owns.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_destroy_menu_item(ulong item);

        // The item's name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_get_item_name(ulong item, byte[] buffer, ref uint size);

        // The item's address.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_ip_address(ulong item, byte[] buffer, ref uint size);

        // The item's path.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_path(ulong item, byte[] buffer, ref uint size);

        // The item's application tag.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_app_tag(ulong item, byte[] buffer, ref uint size);

        // The item's file format.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_file_format(ulong item, out uint value);

        // The item's settings.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_settings(ulong item, out uint value);

        // Stores the item's name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_name(ulong item, byte[] text);

        // Stores the item's address.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_ip_address(ulong item, byte[] text);

        // Stores the item's path.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_path(ulong item, byte[] text);

        // Stores the item's application tag.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_app_tag(ulong item, byte[] text);

        // Stores the item's file format.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_file_format(ulong item, uint value);

        // Stores the item's settings.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_set_settings(ulong item, uint value);

        // Opens the entries of a book, or the members of a list.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_open_entries(ulong scanner, int kind, byte[] name,
            out ulong entries);

        // Closes them.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_close_entries(ulong entries);

        // The number of entries on the server.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_entry_count(ulong entries, out uint count);

        // Reads a page of entries.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_read_entries(ulong entries, byte[] first, byte[] filter,
            int skip, int direction, byte[] page, ref uint count);

        // Reads one entry by its name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_read_entry(ulong entries, byte[] name, byte[] entry);

        // Adds an entry.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_add_entry(ulong entries, byte[] entry);

        // Replaces the entry with an entry's name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_modify_entry(ulong entries, byte[] entry);

        // Replaces an entry by one with another name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_rename_entry(ulong entries, byte[] old_name, byte[] entry);

        // Deletes an entry by its name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_delete_entry(ulong entries, byte[] name);

        // Reads the names of all lists of a kind.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_enumerate_lists(ulong scanner, int kind, byte[] lists,
            ref uint count);

        // Creates a list without members.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_create_list(ulong entries);

        // Deletes a list with its members.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_delete_list(ulong entries);

        // Opens a view of the public e-mail book.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_open_view(ulong scanner, int mode, out ulong view);

        // Closes a view.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_close_view(ulong view);

        // Moves a view and reads the entry there.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_view_go(ulong view, int where, int index, byte[] entry);

        // Finds an entry by its name.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_view_find(ulong view, int what, byte[] key, byte[] entry);

        // Fills an address book from a file.
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        public static extern int quill_import_address_book(ulong scanner, byte[] path,
            byte[] options);
    }

    // The texts of codes.
    internal static class Messages
    {
        internal static string Of(int code)
        {
            switch (code)
            {
                case -1001: return "the handle is 0";
                case -1002: return "the object of the handle no longer exists";
                case -1003: return "not a handle of such an object";
                case -1004: return "the object has a different owner";
                case -1005: return "an argument is null or out of range";
                case -1006: return "the buffer is too small";
                case -1007: return "out of memory";
                case -1008: return "internal failure";
                case -1009: return "the thread is inside another call";
                case -1010: return "the process is a fork of the one that loaded the library";
                case 0: return "No Error";
                case 1: return "Duplicated Login";
                case 2: return "Invalid User or Password";
                case 3: return "Address Book Not Found";
                case 4: return "Data Not Found";
                case 5: return "No More Addresses";
                case 6: return "General Failure";
                case 7: return "Invalid Field";
                case 8: return "Address Book Locked";
                case 9: return "Duplicated Address Book's Name";
                case 10: return "Not Logged In";
                case 11: return "Access Denied";
                case 12: return "Static Address Book";
                case 13: return "Call Not Implemented";
                case 14: return "Name Conflict";
                case 15: return "IMSP Idle";
                case 16: return "IMSP Server Busy";
                case 17: return "Bad Command";
                case 18: return "IMSP Failure";
                case 19: return "Timeout Expired";
                case 20: return "IMSP Unitialized";
                case 21: return "More Data Available than request";
                case 22: return "IMSP Busy";
                case 24: return "Address Book Full";
                case 25: return "Invalid host name";
                case -1: return "Not connected, invalid argument, no such file, or a text that is too long";
                case -2: return "The input file cannot be read";
                case -3: return "An argument is missing";
                case -11: return "Unknown import format";
                default: return "Unknown error";
            }
        }
    }
}
