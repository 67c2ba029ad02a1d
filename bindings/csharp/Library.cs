using System;
using System.Diagnostics;
using System.IO;
using System.Text;

namespace Quillkit
{
    // A call failed. Code is a status of the server, a local code below 0, or an E value of
    // quillkit_c.
    public class QuillException : Exception
    {
        public int Code { get; }
        public string Text { get; }

        public QuillException(int code) : this(code, Messages.Of(code)) { }

        private QuillException(int code, string text) : base($"{text} ({code})")
        {
            Code = code;
            Text = text;
        }
    }

    // The library cannot be loaded, or these classes do not fit it.
    public class LoadException : Exception
    {
        public LoadException(string text, Exception why = null) : base(text, why) { }
    }

    // Loading the library, and the forms of its arguments and results.
    internal static class Library
    {
        // The library has no character set; this maps bytes to characters one to one.
        private static readonly Encoding Latin1 = Encoding.GetEncoding("iso-8859-1");
        private static bool isChecked;

        internal delegate int TextFunction(ulong handle, byte[] buffer, ref uint size);

        // Call it before any other function of the library.
        internal static void Check()
        {
            if (isChecked) return;
            CheckBits(Environment.OSVersion.Platform, IntPtr.Size);
            int contract = 0;
            try
            {
                contract = Native.quill_contract();
            }
            catch (DllNotFoundException why)
            {
                throw new LoadException("cannot load " + Native.Library + ": put its folder on the search path of " +
                                        "the system's libraries", why);
            }
            catch (EntryPointNotFoundException) { }
            if (contract != Native.Contract)
                throw new LoadException($"{Path()} has contract {contract}, but these classes need contract " +
                                        $"{Native.Contract}: use those of the library's version");
            isChecked = true;
        }

        internal static void CheckBits(PlatformID system, int pointerSize)
        {
            if (system == PlatformID.Win32NT && pointerSize == 8)
                throw new LoadException("quillkit_c.dll is a 32-bit DLL, as the server library is, and this is a " +
                                        "64-bit program: compile it for x86 (/platform:x86)");
        }

        // The file that the system has loaded. Mono does not list it among the modules.
        private static string Path()
        {
            const string maps = "/proc/self/maps";
            if (File.Exists(maps))
                foreach (string line in File.ReadLines(maps))
                    if (line.Contains("/lib" + Native.Library)) return line.Substring(line.IndexOf('/'));
            foreach (ProcessModule each in Process.GetCurrentProcess().Modules)
                if (each.FileName.Contains(Native.Library)) return each.FileName;
            return Native.Library;
        }

        internal static byte[] Bytes(string text)
        {
            return Bytes(text, Latin1);
        }

        // Throws for a character that the encoding lacks, and for a NUL: the library would ignore
        // what follows it.
        internal static byte[] Bytes(string text, Encoding encoding)
        {
            var strict = Encoding.GetEncoding(encoding.CodePage, EncoderFallback.ExceptionFallback,
                                              DecoderFallback.ReplacementFallback);
            if (text == null) throw new ArgumentNullException(nameof(text));
            if (text.IndexOf('\0') >= 0) throw new ArgumentException("a text contains a NUL character");
            return strict.GetBytes(text + '\0');
        }

        // A text of at most this length. Throws the error of the library for a longer one.
        internal static byte[] Bytes(string text, int longest)
        {
            byte[] bytes = Bytes(text);
            if (bytes.Length > longest + 1) throw new QuillException(Native.StatusRefused);
            return bytes;
        }

        // The name of an object on the appliance. The library would send a longer one as the empty name.
        internal static byte[] Name(string name)
        {
            return Bytes(name, Native.MaxName);
        }

        // The text at a place in the bytes, up to its NUL.
        internal static string TextAt(byte[] bytes, int start)
        {
            return Latin1.GetString(bytes, start, Array.IndexOf(bytes, (byte)0, start) - start);
        }

        internal static string Text(TextFunction function, ulong handle)
        {
            uint size = 256;
            var buffer = new byte[size];
            int result;
            while ((result = function(handle, buffer, ref size)) == Native.EBuffer) buffer = new byte[size];
            Number(result);
            return TextAt(buffer, 0);
        }

        // Return the result of a call, or throw its error.
        internal static int Number(int result)
        {
            if (result <= Native.ENull) throw new QuillException(result);
            return result;
        }

        internal static int Status(int status, params int[] accepted)
        {
            if (status != 0 && Array.IndexOf(accepted, status) < 0) throw new QuillException(status);
            return status;
        }

        internal static int Reported(int result, int failure, int error)
        {
            if (result == failure || result <= Native.ENull) throw new QuillException(error);
            return result;
        }
    }

    // An object of the library that this process owns. It ends with Dispose, or when it is collected.
    public abstract class Owned : IDisposable
    {
        public ulong Handle { get; private set; }

        protected Owned(ulong handle)
        {
            Handle = handle;
        }

        // Library.Status for a call with the handle: until then the object is not collected, which would
        // end the handle during the call.
        protected int Status(int status, params int[] accepted)
        {
            GC.KeepAlive(this);
            return Library.Status(status, accepted);
        }

        // An error means that the object has ended already.
        protected abstract void End(ulong handle);

        public void Dispose()
        {
            Close();
            GC.SuppressFinalize(this);
        }

        ~Owned()
        {
            Close();
        }

        private void Close()
        {
            if (Handle != 0) End(Handle);
            Handle = 0;
        }
    }
}
