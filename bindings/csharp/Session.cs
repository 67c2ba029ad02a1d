using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Net;
using System.Text;
using System.Threading;

namespace Quillkit
{
    // The one session of this process. It begins with the object and ends with Dispose, at the end of a
    // `using` block, or with the next session.
    //
    // The library keeps the session alive by a timer of this thread, which runs in every call, in
    // Wait and in Dispatch; on Windows also when the thread dispatches messages.
    public sealed class Session : IDisposable
    {
        private const double Slice = 200;  // milliseconds of a wait after which the program can end

        private static Session open;
        private readonly int thread = Thread.CurrentThread.ManagedThreadId;

        public ulong Handle { get; }

        public Session(string host, string user, string password, string third = "", bool loadKeys = true)
        {
            Library.Check();
            int result = Native.quill_log_to_quillbox(Library.Bytes(host), Library.Bytes(user),
                                                      Library.Bytes(password), Library.Bytes(third),
                                                      loadKeys ? 1 : 0, out ulong handle, out int error);
            Library.Reported(result, 0, error);
            Handle = handle;
            open = this;
        }

        // Logs out, unless this session has ended. Keys stay readable; calls to the server fail.
        public void Dispose()
        {
            if (open == this && Native.quill_logout() == 1) open = null;
        }

        public string Name => Library.Text(Native.quill_get_scanner_name, Handle);
        public string Version => Library.Text(Native.quill_get_scanner_version, Handle);
        public string Model => Library.Text(Native.quill_get_scanner_model, Handle);
        public bool IsAdministrator => Library.Number(Native.quill_is_admin_connected(Handle)) != 0;

        public IPAddress Address
        {
            get
            {
                Library.Number(Native.quill_get_scanner_address(Handle, out uint address));
                return new IPAddress(address);
            }
        }

        // The soft keys. Only ADMINISTRATOR and TOOLKIT have them, during a session.
        public Keys Keys
        {
            get
            {
                int result = Native.quill_get_top_level_abook(Handle, out ulong book);
                Library.Reported(result, 0, result == 0 ? Native.StatusNoSuchBook : result);
                return new Keys(book);
            }
        }

        public Entries<EmailEntry> Email => new Entries<EmailEntry>(Handle, Native.BookEmail);
        public Entries<FaxEntry> Fax => new Entries<FaxEntry>(Handle, Native.BookFax);
        public Entries<UserEntry> Users => new Entries<UserEntry>(Handle, Native.BookUsers);
        public Entries<PrinterEntry> Printers => new Entries<PrinterEntry>(Handle, Native.BookPrinters);
        public Entries<EmailEntry> Private => new Entries<EmailEntry>(Handle, Native.BookPrivateEmail);
        public Lists<EmailEntry> EmailLists => new Lists<EmailEntry>(Handle, Native.ListEmail);
        public Lists<FaxEntry> FaxLists => new Lists<FaxEntry>(Handle, Native.ListFax);
        public Lists<EmailEntry> PrivateLists => new Lists<EmailEntry>(Handle, Native.ListPrivateEmail);

        // A view of the public e-mail book.
        public View OpenView(int mode = Native.ViewSliding) => new View(Handle, mode);

        // Fills an address book from a file. Entry i of `columns` is the column of the file, from 0, for
        // field i of the book, or -1. The default is 0, 1.
        public void Import(string path, int format = Native.FormatDelimited, int target = Native.TargetEmail,
                           int[] columns = null, bool skipHeader = false, bool clearFirst = false)
        {
            columns = columns ?? new[] { 0, 1 };
            if (columns.Length > Native.ImportColumns)
                throw new ArgumentException("a book has at most " + Native.ImportColumns + " fields", nameof(columns));
            var options = new byte[Native.ImportOptionsSize];
            Action<int, int> Store = (offset, value) => BitConverter.GetBytes(value).CopyTo(options, offset);
            Store(Native.ImportOptionsSkipHeaderOffset, skipHeader ? 1 : 0);
            Store(Native.ImportOptionsClearFirstOffset, clearFirst ? 1 : 0);
            Store(Native.ImportOptionsFormatOffset, format);
            Store(Native.ImportOptionsTargetBookOffset, target);
            Store(Native.ImportOptionsColumnCountOffset, columns.Length);
            for (int i = 0; i < columns.Length; ++i) Store(Native.ImportOptionsColumnMapOffset + 4 * i, columns[i]);
            Library.Status(Native.quill_import_address_book(Handle, Library.Bytes(path, Encoding.UTF8), options));
        }

        private void RequireOwnThread()
        {
            if (Thread.CurrentThread.ManagedThreadId != thread)
                throw new InvalidOperationException("the session is kept alive only on the thread that logged in");
        }

        // Waits, and keeps the session alive.
        public void Wait(TimeSpan time)
        {
            RequireOwnThread();
            if (time < TimeSpan.Zero) throw new ArgumentOutOfRangeException(nameof(time));
            Stopwatch clock = Stopwatch.StartNew();
            for (TimeSpan left = time; left > TimeSpan.Zero; left = time - clock.Elapsed)
            {
                double slice = Math.Ceiling(Math.Min(left.TotalMilliseconds, Slice));
                if (Library.Number(Native.quill_wait((uint)slice)) == 0) break;  // the thread has to quit
            }
        }

        // Sends the keep-alive if it is due.
        public void Dispatch()
        {
            RequireOwnThread();
            Library.Number(Native.quill_dispatch_events());
        }
    }
}
